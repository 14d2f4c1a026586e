#include "TextLayout.h"

#include <Orvex/fields/SoMFString.h>

namespace orvex {
namespace text {

Justify justifyFromField(int value) {
  switch (value) {
    case 2: return Justify::RIGHT;
    case 3: return Justify::CENTER;
    default: return Justify::LEFT;
  }
}

std::u32string decodeUtf8(const char* text) {
  std::u32string out;
  if (!text) return out;
  const auto* s = reinterpret_cast<const unsigned char*>(text);
  while (*s) {
    const unsigned char c = *s;
    int extra = c >= 0xF0 && c < 0xF8 ? 3 : c >= 0xE0 ? 2 : c >= 0xC0 ? 1 : 0;
    if (c >= 0xF8) extra = 0;
    char32_t code = extra == 3 ? c & 0x07u : extra == 2 ? c & 0x0Fu : extra == 1 ? c & 0x1Fu : c;
    bool valid = true;
    for (int i = 1; i <= extra; ++i) {
      if ((s[i] & 0xC0) != 0x80) {
        valid = false;
        break;
      }
      code = (code << 6) | (s[i] & 0x3Fu);
    }
    if (!valid) {
      out.push_back(c);
      ++s;
      continue;
    }
    out.push_back(code);
    s += 1 + extra;
  }
  return out;
}

TextLayout layoutText(const Font& font, const SoMFString& lines, float spacing, Justify justify) {
  TextLayout layout;
  for (int line = 0; line < lines.getNum(); ++line) {
    const float y = -static_cast<float>(line) * spacing;
    const size_t first = layout.glyphs.size();
    float x = 0.0f;
    unsigned previous = 0;
    for (const char32_t c : decodeUtf8(lines[line].getString())) {
      const unsigned glyph = font.glyphIndex(c);
      if (previous) x += font.kerning(previous, glyph);
      layout.glyphs.push_back(PlacedGlyph{glyph, SbVec2f(x, y), line});
      x += font.advance(glyph);
      previous = glyph;
    }
    const float width = x;
    const float left = justify == Justify::RIGHT ? -width : justify == Justify::CENTER ? -width / 2.0f : 0.0f;
    for (size_t g = first; g < layout.glyphs.size(); ++g) layout.glyphs[g].pen[0] += left;
    layout.lineLeft.push_back(left);
    layout.lineWidth.push_back(width);
    layout.baseline.push_back(y);
    if (layout.glyphs.size() == first) continue;  // an empty line covers nothing
    layout.bounds.extendBy(SbVec2f(left, y - font.descent()));
    layout.bounds.extendBy(SbVec2f(left + width, y + font.ascent()));
  }
  return layout;
}

}  // namespace text
}  // namespace orvex
