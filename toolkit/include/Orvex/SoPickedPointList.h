#pragma once
#include <cstddef>
#include <vector>

class SoPickedPoint;

// A list of picked points that owns them: removing a point or destroying
// the list deletes the points.
class SoPickedPointList {
 public:
  SoPickedPointList() = default;
  SoPickedPointList(const SoPickedPointList& other);
  SoPickedPointList& operator=(const SoPickedPointList& other);
  ~SoPickedPointList();

  int getLength() const { return static_cast<int>(m_points.size()); }
  SoPickedPoint* operator[](int index) const { return m_points[static_cast<size_t>(index)]; }
  SoPickedPoint* get(int index) const { return m_points[static_cast<size_t>(index)]; }
  // The list takes over the point.
  void append(SoPickedPoint* point);
  void insert(SoPickedPoint* point, int before);
  // Replaces (and deletes) the point at the index.
  void set(int index, SoPickedPoint* point);
  // Deletes the points from `start` on.
  void truncate(int start);

 private:
  std::vector<SoPickedPoint*> m_points;
};
