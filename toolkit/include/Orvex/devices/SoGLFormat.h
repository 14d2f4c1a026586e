#pragma once
#include <Orvex/SbBase.h>

// The pixel format an OpenGL context is asked for: bits per colour channel,
// alpha, depth and stencil bits, the number of samples per pixel and
// whether the drawable is double buffered. The platform may give more than
// asked (never fewer bits when it can avoid it); SoGLContext::getFormat()
// reports what was asked for.
class SoGLFormat {
 public:
  // 8 bits per colour channel and alpha, a 24-bit depth buffer, an 8-bit
  // stencil buffer, one sample per pixel, double buffered.
  SoGLFormat() = default;

  // Bits of each of the red, green and blue channels.
  void setColorBits(int bits) { m_colorBits = bits; }
  int getColorBits() const { return m_colorBits; }
  // Bits of the alpha channel (0: no alpha).
  void setAlphaBits(int bits) { m_alphaBits = bits; }
  int getAlphaBits() const { return m_alphaBits; }
  // Bits of the depth buffer (0: none).
  void setDepthBits(int bits) { m_depthBits = bits; }
  int getDepthBits() const { return m_depthBits; }
  // Bits of the stencil buffer (0: none).
  void setStencilBits(int bits) { m_stencilBits = bits; }
  int getStencilBits() const { return m_stencilBits; }
  // Samples per pixel for multisampling (0 or 1: none).
  void setSamples(int samples) { m_samples = samples; }
  int getSamples() const { return m_samples; }
  // Whether the drawable has a back buffer that swapBuffers() shows.
  void setDoubleBuffer(bool flag) { m_doubleBuffer = flag; }
  bool isDoubleBuffer() const { return m_doubleBuffer; }

  // Whether every property is the same.
  bool operator==(const SoGLFormat& other) const;
  bool operator!=(const SoGLFormat& other) const { return !(*this == other); }

 private:
  int m_colorBits = 8;
  int m_alphaBits = 8;
  int m_depthBits = 24;
  int m_stencilBits = 8;
  int m_samples = 0;
  bool m_doubleBuffer = true;
};
