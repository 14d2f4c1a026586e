#pragma once
#include <Orvex/SbVec2f.h>
#include <Orvex/SbVec2s.h>

// The part of a window that rendering draws into. The viewport is kept in
// normalised window coordinates ([0, 1] on both axes), so it follows the
// window when the window is resized.
class SbViewportRegion {
 public:
  // A 100 x 100 window, viewport covering all of it, 72 pixels per inch.
  SbViewportRegion();
  SbViewportRegion(short width, short height);
  explicit SbViewportRegion(const SbVec2s& winSize);
  SbViewportRegion(const SbViewportRegion& other) = default;
  SbViewportRegion& operator=(const SbViewportRegion& other) = default;

  void setWindowSize(short width, short height);
  void setWindowSize(const SbVec2s& winSize);
  // In normalised window coordinates.
  void setViewport(float left, float bottom, float width, float height);
  void setViewport(const SbVec2f& origin, const SbVec2f& size);
  // In pixels.
  void setViewportPixels(short left, short bottom, short width, short height);
  void setViewportPixels(const SbVec2s& origin, const SbVec2s& size);

  const SbVec2s& getWindowSize() const { return m_windowSize; }
  const SbVec2f& getViewportOrigin() const { return m_vpOrigin; }
  const SbVec2f& getViewportSize() const { return m_vpSize; }
  SbVec2s getViewportOriginPixels() const;
  SbVec2s getViewportSizePixels() const;
  // Viewport width / height in pixels (1 for an empty viewport).
  float getViewportAspectRatio() const;

  // Scale the viewport about its centre, keeping it inside the window.
  void scaleWidth(float ratio);
  void scaleHeight(float ratio);

  void setPixelsPerInch(float ppi) { m_pixelsPerInch = ppi; }
  float getPixelsPerInch() const { return m_pixelsPerInch; }
  // Pixels per printer's point (1/72 inch).
  float getPixelsPerPoint() const { return m_pixelsPerInch / 72.0f; }

  friend bool operator==(const SbViewportRegion& a, const SbViewportRegion& b);
  friend bool operator!=(const SbViewportRegion& a, const SbViewportRegion& b) { return !(a == b); }

 private:
  SbVec2s m_windowSize;
  SbVec2f m_vpOrigin;
  SbVec2f m_vpSize;
  float m_pixelsPerInch;
};
