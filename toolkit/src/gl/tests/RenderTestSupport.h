#pragma once
// Helpers of the rendering tests: scene building, pixel reading.

#include <Orvex/SoDB.h>
#include <Orvex/SoOffscreenRenderer.h>
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

// Pixel (x, y), y counted from the bottom row, of a renderer's buffer.
inline std::array<int, 4> pixel(const SoOffscreenRenderer& r, int x, int y) {
  const int n = r.getComponents();
  const int width = r.getViewportRegion().getWindowSize()[0];
  const unsigned char* p = r.getBuffer() + (static_cast<size_t>(y) * width + x) * n;
  std::array<int, 4> out{0, 0, 0, 255};
  for (int i = 0; i < n; ++i) out[static_cast<size_t>(i)] = p[i];
  return out;
}

// The number of pixels whose first channel is above `threshold`.
inline int countLit(const SoOffscreenRenderer& r, int threshold = 127) {
  const int n = r.getComponents();
  int count = 0;
  for (size_t i = 0; i < r.getBufferSize(); i += static_cast<size_t>(n))
    if (r.getBuffer()[i] > threshold) ++count;
  return count;
}

}  // namespace gltest
