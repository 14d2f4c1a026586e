#include <Orvex/SbViewportRegion.h>

#include <algorithm>
#include <cmath>

SbViewportRegion::SbViewportRegion()
    : m_windowSize(100, 100), m_vpOrigin(0, 0), m_vpSize(1, 1), m_pixelsPerInch(72) {}
SbViewportRegion::SbViewportRegion(short width, short height)
    : m_windowSize(width, height), m_vpOrigin(0, 0), m_vpSize(1, 1), m_pixelsPerInch(72) {}
SbViewportRegion::SbViewportRegion(const SbVec2s& winSize)
    : m_windowSize(winSize), m_vpOrigin(0, 0), m_vpSize(1, 1), m_pixelsPerInch(72) {}

void SbViewportRegion::setWindowSize(short width, short height) { m_windowSize.setValue(width, height); }
void SbViewportRegion::setWindowSize(const SbVec2s& winSize) { m_windowSize = winSize; }
void SbViewportRegion::setViewport(float left, float bottom, float width, float height) {
  m_vpOrigin.setValue(left, bottom);
  m_vpSize.setValue(width, height);
}
void SbViewportRegion::setViewport(const SbVec2f& origin, const SbVec2f& size) {
  m_vpOrigin = origin;
  m_vpSize = size;
}
void SbViewportRegion::setViewportPixels(short left, short bottom, short width, short height) {
  const float w = m_windowSize[0] > 0 ? m_windowSize[0] : 1;
  const float h = m_windowSize[1] > 0 ? m_windowSize[1] : 1;
  setViewport(left / w, bottom / h, width / w, height / h);
}
void SbViewportRegion::setViewportPixels(const SbVec2s& origin, const SbVec2s& size) {
  setViewportPixels(origin[0], origin[1], size[0], size[1]);
}
SbVec2s SbViewportRegion::getViewportOriginPixels() const {
  return SbVec2s(static_cast<short>(std::lround(m_vpOrigin[0] * m_windowSize[0])),
                 static_cast<short>(std::lround(m_vpOrigin[1] * m_windowSize[1])));
}
SbVec2s SbViewportRegion::getViewportSizePixels() const {
  return SbVec2s(static_cast<short>(std::lround(m_vpSize[0] * m_windowSize[0])),
                 static_cast<short>(std::lround(m_vpSize[1] * m_windowSize[1])));
}
float SbViewportRegion::getViewportAspectRatio() const {
  const SbVec2s px = getViewportSizePixels();
  return px[1] > 0 ? static_cast<float>(px[0]) / px[1] : 1.0f;
}
void SbViewportRegion::scaleWidth(float ratio) {
  const float center = m_vpOrigin[0] + m_vpSize[0] / 2;
  const float width = std::min(1.0f, m_vpSize[0] * ratio);
  m_vpSize[0] = width;
  m_vpOrigin[0] = std::clamp(center - width / 2, 0.0f, 1.0f - width);
}
void SbViewportRegion::scaleHeight(float ratio) {
  const float center = m_vpOrigin[1] + m_vpSize[1] / 2;
  const float height = std::min(1.0f, m_vpSize[1] * ratio);
  m_vpSize[1] = height;
  m_vpOrigin[1] = std::clamp(center - height / 2, 0.0f, 1.0f - height);
}
bool operator==(const SbViewportRegion& a, const SbViewportRegion& b) {
  return a.m_windowSize == b.m_windowSize && a.m_vpOrigin == b.m_vpOrigin && a.m_vpSize == b.m_vpSize &&
         a.m_pixelsPerInch == b.m_pixelsPerInch;
}
