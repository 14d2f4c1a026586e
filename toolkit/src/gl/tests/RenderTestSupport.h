#pragma once
// Helpers of the rendering tests: scene building, pixel reading.

#include <Orvex/SoDB.h>
#include <Orvex/SoOffscreenRenderer.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoFaceSet.h>
#include <Orvex/nodes/SoLightModel.h>
#include <Orvex/nodes/SoMaterial.h>
#include <Orvex/nodes/SoOrthographicCamera.h>
#include <Orvex/nodes/SoSeparator.h>
#include <gtest/gtest.h>

#include <array>

namespace gltest {

// Initialises the database once for the test program.
class DatabaseEnvironment : public ::testing::Environment {
 public:
  void SetUp() override { SoDB::init(); }
};

// A referenced root separator, released with the scope.
struct Root {
  Root() : node(new SoSeparator) { node->ref(); }
  ~Root() { node->unref(); }
  Root(const Root&) = delete;
  Root& operator=(const Root&) = delete;
  SoSeparator* operator->() const { return node; }
  SoSeparator* node;
};

inline SoLightModel* baseColor() {
  auto* m = new SoLightModel;
  m->model = SoLightModel::BASE_COLOR;
  return m;
}

inline SoMaterial* diffuse(float r, float g, float b, float transparency = 0.0f) {
  auto* m = new SoMaterial;
  m->diffuseColor.setValue(r, g, b);
  m->transparency.setValue(transparency);
  return m;
}

// An orthographic camera on the +z axis looking at the origin, showing
// `height` units vertically.
inline SoOrthographicCamera* orthoCamera(float height) {
  auto* cam = new SoOrthographicCamera;
  cam->position.setValue(0.0f, 0.0f, 10.0f);
  cam->height = height;
  cam->nearDistance = 1.0f;
  cam->farDistance = 20.0f;
  return cam;
}

// A quad in the plane z, corners (x0, y0) and (x1, y1), counterclockwise
// seen from +z.
inline void addQuad(SoSeparator* root, float x0, float y0, float x1, float y1, float z) {
  auto* coords = new SoCoordinate3;
  const float pts[4][3] = {{x0, y0, z}, {x1, y0, z}, {x1, y1, z}, {x0, y1, z}};
  coords->point.setValues(0, 4, pts);
  root->addChild(coords);
  auto* faces = new SoFaceSet;
  faces->numVertices.setValue(4);
  root->addChild(faces);
}

// Pixel (x, y), y counted from the bottom row, of a renderer's buffer.
inline std::array<int, 4> pixel(const SoOffscreenRenderer& r, int x, int y) {
  const int n = SoOffscreenRenderer::getNumComponents(r.getComponents());
  const int width = r.getViewportRegion().getWindowSize()[0];
  const unsigned char* p = r.getBuffer() + (static_cast<size_t>(y) * width + x) * n;
  std::array<int, 4> out{0, 0, 0, 255};
  for (int i = 0; i < n; ++i) out[static_cast<size_t>(i)] = p[i];
  return out;
}

// The number of pixels whose first channel is above `threshold`.
inline int countLit(const SoOffscreenRenderer& r, int threshold = 127) {
  const int n = SoOffscreenRenderer::getNumComponents(r.getComponents());
  int count = 0;
  for (size_t i = 0; i < r.getBufferSize(); i += static_cast<size_t>(n))
    if (r.getBuffer()[i] > threshold) ++count;
  return count;
}

}  // namespace gltest
