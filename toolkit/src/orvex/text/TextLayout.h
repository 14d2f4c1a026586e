#pragma once
// Lines of text laid out in a font: where each glyph's pen position falls,
// in em units (1 = the font size), the first baseline at y = 0 and each
// further line `spacing` em lower, every line placed by the justification.

#include <Orvex/SbBox2f.h>

#include <string>
#include <vector>

#include "Font.h"

class SoMFString;

namespace orvex {
namespace text {

enum class Justify { LEFT, RIGHT, CENTER };

// Maps the justification enumerations of the text nodes (LEFT 1, RIGHT 2,
// CENTER 3).
Justify justifyFromField(int value);

struct PlacedGlyph {
  unsigned glyph = 0;
  SbVec2f pen;    // em
  int line = 0;
};

struct TextLayout {
  std::vector<PlacedGlyph> glyphs;
  // Per line: left end and width of the advances, baseline height.
  std::vector<float> lineLeft;
  std::vector<float> lineWidth;
  std::vector<float> baseline;
  // From each line's left end to its right end, from its descent to its
  // ascent; empty for no lines.
  SbBox2f bounds;
};

// The characters of a UTF-8 string; malformed bytes stand for themselves.
std::u32string decodeUtf8(const char* text);

TextLayout layoutText(const Font& font, const SoMFString& lines, float spacing, Justify justify);

}  // namespace text
}  // namespace orvex
