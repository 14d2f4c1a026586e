#include <Orvex/devices/SoGLFormat.h>

bool SoGLFormat::operator==(const SoGLFormat& other) const {
  return m_colorBits == other.m_colorBits && m_alphaBits == other.m_alphaBits && m_depthBits == other.m_depthBits &&
         m_stencilBits == other.m_stencilBits && m_samples == other.m_samples &&
         m_doubleBuffer == other.m_doubleBuffer;
}
