#pragma once
#include <Orvex/actions/SoSubAction.h>

#include <cstdint>

// Counts the primitives a graph would draw: triangles, lines, points, text
// strings and images. Shapes count what they generate.
class SoGetPrimitiveCountAction : public SoAction {
  SO_ACTION_HEADER(SoGetPrimitiveCountAction);

 public:
  SoGetPrimitiveCountAction();
  ~SoGetPrimitiveCountAction() override;

  int64_t getTriangleCount() const { return m_triangles; }
  int64_t getLineCount() const { return m_lines; }
  int64_t getPointCount() const { return m_points; }
  int64_t getTextCount() const { return m_texts; }
  int64_t getImageCount() const { return m_images; }
  // Whether a shape that is not made of triangles was met.
  bool containsNonTriangleShapes() const { return m_nonTriangles; }
  // Whether nothing at all was counted.
  bool containsNoPrimitives() const;
  // When set, shapes may give an estimate instead of generating (the
  // toolkit's shapes always count exactly).
  void setCanApproximate(bool flag) { m_canApproximate = flag; }
  bool canApproximateCount() const { return m_canApproximate; }
  // Decimation settings read by shapes that support levels of detail.
  void setDecimationValue(float percentage) { m_decimation = percentage; }
  float getDecimationPercentage() const { return m_decimation; }

  // Used by shapes.
  void addNumTriangles(int64_t num) { m_triangles += num; }
  void addNumLines(int64_t num) {
    m_lines += num;
    if (num > 0) m_nonTriangles = true;
  }
  void addNumPoints(int64_t num) {
    m_points += num;
    if (num > 0) m_nonTriangles = true;
  }
  void addNumText(int64_t num) {
    m_texts += num;
    if (num > 0) m_nonTriangles = true;
  }
  void addNumImage(int64_t num) {
    m_images += num;
    if (num > 0) m_nonTriangles = true;
  }
  void incNumTriangles() { ++m_triangles; }
  void incNumLines() { addNumLines(1); }
  void incNumPoints() { addNumPoints(1); }

 protected:
  void beginTraversal(SoNode* node) override;

 private:
  int64_t m_triangles = 0;
  int64_t m_lines = 0;
  int64_t m_points = 0;
  int64_t m_texts = 0;
  int64_t m_images = 0;
  bool m_nonTriangles = false;
  bool m_canApproximate = false;
  float m_decimation = 1.0f;
};
