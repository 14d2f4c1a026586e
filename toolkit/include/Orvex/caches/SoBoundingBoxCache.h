#pragma once
#include <Orvex/SbXfBox3f.h>
#include <Orvex/caches/SoCache.h>

// The bounding box of a separator's children in the separator's own space,
// with the center the children reported (if any).
class SoBoundingBoxCache : public SoCache {
 public:
  explicit SoBoundingBoxCache(SoState* state);

  void set(const SbXfBox3f& boundingBox, bool centerSet, const SbVec3f& centerPoint);
  const SbXfBox3f& getBox() const { return m_box; }
  // The box as an axis-aligned box in the separator's space.
  const SbBox3f& getProjectedBox() const { return m_projectedBox; }
  bool isCenterSet() const { return m_centerSet; }
  const SbVec3f& getCenter() const { return m_center; }

 protected:
  ~SoBoundingBoxCache() override;

 private:
  SbXfBox3f m_box;
  SbBox3f m_projectedBox;
  SbVec3f m_center;
  bool m_centerSet = false;
};
