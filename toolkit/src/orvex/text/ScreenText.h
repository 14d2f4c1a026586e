#pragma once
// Where screen-aligned text falls: its origin projected onto the viewport,
// and pixel offsets from there carried back into object space at the
// origin's depth. The lines are laid out in pixels (the font size is the
// pixel size per em), each glyph's pen on a whole pixel, as drawn.

#include <Orvex/SbMatrix.h>
#include <Orvex/SbVec2f.h>
#include <Orvex/SbVec3f.h>
#include <Orvex/SbViewVolume.h>

#include <array>
#include <memory>
#include <vector>

#include "TextLayout.h"

class SoState;
class SoText2;

namespace orvex {
namespace text {

class ScreenPlacement {
 public:
  explicit ScreenPlacement(SoState* state);
  // False when the origin is behind the camera or the viewport is empty.
  bool isValid() const { return m_valid; }
  // The origin in window pixels (from the viewport's lower left corner of
  // the window) and in normalised depth (0 near, 1 far).
  const SbVec3f& windowOrigin() const { return m_window; }
  // The object-space point `offset` pixels right of and above the origin,
  // at the origin's depth.
  SbVec3f toObject(const SbVec2f& offset) const;

 private:
  bool m_valid = false;
  SbVec3f m_window;
  SbVec3f m_screen;  // normalised screen coordinates of the origin
  SbVec2f m_viewportSize;
  SbViewVolume m_volume;
  float m_distance = 0.0f;
  SbMatrix m_worldToObject;
};

// Font sizes of screen-aligned text beyond this many pixels are drawn at it.
constexpr int kMaxPixelSize = 1024;
// Glyphs further than this many pixels from the origin are left out.
constexpr float kMaxPixelOffset = 65536.0f;

// A text node's lines in the state's font, in pixels: pens rounded to
// whole pixels relative to the origin.
struct PixelText {
  std::shared_ptr<Font> font;
  int pixelSize = 0;
  TextLayout layout;  // pens in pixels
  // Per line: the pixel rectangle it covers (left, bottom, right, top),
  // relative to the origin.
  std::vector<std::array<float, 4>> lineRects;
};

PixelText layoutPixelText(SoState* state, const SoText2* node);

}  // namespace text
}  // namespace orvex
