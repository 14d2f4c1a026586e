#pragma once
// Sums the pictures of several rendering passes over one rectangle of the
// current drawable, and puts back their mean: antialiasing by jittered
// passes without an accumulation buffer (framebuffer objects have none).

#include <cstddef>
#include <vector>

namespace orvex {

class GLPassAccumulator {
 public:
  GLPassAccumulator(int x, int y, int width, int height);
  // Adds what the read buffer holds in the rectangle now.
  void add();
  // Draws the mean of the passes added into the rectangle, replacing its
  // colours (depth and stencil are left as the last pass left them).
  void drawMean() const;

 private:
  int m_x, m_y, m_width, m_height;
  int m_passes = 0;
  std::vector<float> m_sum;
  mutable std::vector<float> m_scratch;
};

// The sub-pixel shift of pass `pass` of `passes` (see
// SoGLRenderAction::setNumPasses), in pixels, each coordinate in -0.5..0.5.
void passJitter(int pass, int passes, float& dx, float& dy);

}  // namespace orvex
