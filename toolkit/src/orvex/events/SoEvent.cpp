#include <Orvex/events/SoEvent.h>

#include <cmath>

namespace {

// The viewport's lower left corner and size in (fractional) window pixels.
void viewportPixels(const SbViewportRegion& vp, SbVec2f& origin, SbVec2f& size) {
  const SbVec2s& win = vp.getWindowSize();
  origin.setValue(vp.getViewportOrigin()[0] * win[0], vp.getViewportOrigin()[1] * win[1]);
  size.setValue(vp.getViewportSize()[0] * win[0], vp.getViewportSize()[1] * win[1]);
}

}  // namespace

SbVec2s SoEvent::getPosition(const SbViewportRegion& vpRgn) const {
  return m_position - vpRgn.getViewportOriginPixels();
}

SbVec2f SoEvent::getPositionFloat(const SbViewportRegion& vpRgn) const {
  SbVec2f origin, size;
  viewportPixels(vpRgn, origin, size);
  return m_positionFloat - origin;
}

SbVec2f SoEvent::getNormalizedPosition(const SbViewportRegion& vpRgn) const {
  SbVec2f origin, size;
  viewportPixels(vpRgn, origin, size);
  const SbVec2f p = m_positionFloat - origin;
  // An empty viewport has no inside: everything maps to its corner.
  return SbVec2f(size[0] > 0 ? p[0] / size[0] : 0.0f, size[1] > 0 ? p[1] / size[1] : 0.0f);
}

void SoEvent::setPosition(const SbVec2s& p) {
  m_position = p;
  m_positionFloat.setValue(p[0], p[1]);
}

void SoEvent::setPosition(const SbVec2f& p) {
  m_positionFloat = p;
  m_position.setValue(static_cast<short>(std::lround(p[0])), static_cast<short>(std::lround(p[1])));
}
