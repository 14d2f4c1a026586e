#include "GLPassAccumulator.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include <numeric>

namespace orvex {

GLPassAccumulator::GLPassAccumulator(int x, int y, int width, int height)
    : m_x(x), m_y(y), m_width(width), m_height(height),
      m_sum(static_cast<size_t>(width) * static_cast<size_t>(height) * 4, 0.0f) {}

void GLPassAccumulator::add() {
  if (m_sum.empty()) return;
  m_scratch.resize(m_sum.size());
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(m_x, m_y, m_width, m_height, GL_RGBA, GL_FLOAT, m_scratch.data());
  for (size_t i = 0; i < m_sum.size(); ++i) m_sum[i] += m_scratch[i];
  ++m_passes;
}

void GLPassAccumulator::drawMean() const {
  if (m_passes == 0 || m_sum.empty()) return;
  m_scratch.resize(m_sum.size());
  const float scale = 1.0f / static_cast<float>(m_passes);
  for (size_t i = 0; i < m_sum.size(); ++i) m_scratch[i] = m_sum[i] * scale;
  // The pixels replace what is there, untouched by the drawing state.
  glPushAttrib(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_PIXEL_MODE_BIT);
  glDisable(GL_DEPTH_TEST);
  glDisable(GL_BLEND);
  glDisable(GL_LIGHTING);
  glDisable(GL_TEXTURE_2D);
  glDisable(GL_ALPHA_TEST);
  glDepthMask(GL_FALSE);
  glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
  glPixelZoom(1.0f, 1.0f);
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
  glWindowPos2i(m_x, m_y);
  glDrawPixels(m_width, m_height, GL_RGBA, GL_FLOAT, m_scratch.data());
  glPopAttrib();
}

void passJitter(int pass, int passes, float& dx, float& dy) {
  if (passes <= 1) {
    dx = dy = 0.0f;
    return;
  }
  // The row of pass k is k * step mod n: with a step prime to n every row
  // is used once, like rooks on an n x n board; a step near n / 2 spreads
  // them across the pixel.
  int step = passes / 2;
  if (step % 2 == 0) ++step;
  while (std::gcd(step, passes) != 1) step += 2;
  const int row = (pass * step) % passes;
  dx = (static_cast<float>(pass) + 0.5f) / static_cast<float>(passes) - 0.5f;
  dy = (static_cast<float>(row) + 0.5f) / static_cast<float>(passes) - 0.5f;
}

}  // namespace orvex
