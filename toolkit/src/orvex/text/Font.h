#pragma once
// A font file opened with FreeType: glyph metrics and outlines in em units
// (1 = the font size), and glyph coverage bitmaps at a pixel size. Fonts
// are found by name (see FontFiles.h) and shared; every member may be
// called from any thread.

#include <Orvex/SbName.h>
#include <Orvex/SbVec2f.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "GlyphTessellator.h"

namespace orvex {
namespace text {

// A glyph's coverage, one byte per pixel, rows from the top. The bitmap's
// top-left corner is `left` pixels right of the pen and `top` pixels above
// the baseline.
struct GlyphBitmap {
  int width = 0;
  int rows = 0;
  int left = 0;
  int top = 0;
  std::vector<unsigned char> coverage;
};

class Font {
 public:
  // The font `name` stands for, or the fallback font; null only when no
  // font file can be opened at all.
  static std::shared_ptr<Font> find(const SbName& name);

  ~Font();
  Font(const Font&) = delete;
  Font& operator=(const Font&) = delete;

  // The glyph of a character (0: the font's missing-glyph box).
  unsigned glyphIndex(char32_t c) const;
  // Horizontal advance and kerning, in em.
  float advance(unsigned glyph) const;
  float kerning(unsigned left, unsigned right) const;
  // Height above and depth below the baseline of the font's glyphs, in em
  // (both positive).
  float ascent() const { return m_ascent; }
  float descent() const { return m_descent; }
  // The glyph's outline as triangles and oriented contours, in em; curves
  // are cut into `curveSegments` pieces each. Kept once made.
  std::shared_ptr<const TessellatedGlyph> outline(unsigned glyph, int curveSegments) const;
  // The glyph rendered at `pixelSize` pixels per em (anti-aliased).
  GlyphBitmap bitmap(unsigned glyph, int pixelSize) const;
  // The file the font came from.
  const std::string& path() const { return m_path; }

 private:
  struct Face;
  Font(std::string path, std::unique_ptr<Face> face);
  static std::shared_ptr<Font> open(const std::string& path);

  std::string m_path;
  std::unique_ptr<Face> m_face;
  float m_ascent = 0.8f;
  float m_descent = 0.2f;
  mutable std::mutex m_mutex;  // a FreeType face serves one call at a time
  mutable std::map<std::pair<unsigned, int>, std::shared_ptr<const TessellatedGlyph>> m_outlines;
  mutable std::map<unsigned, float> m_advances;  // layout asks for them on every traversal
};

// The font files installed, by name: the file whose base name, lower case
// and without spaces, dashes, underscores and colons, equals the name
// normalised alike ("DejaVu Sans:Bold" finds DejaVuSans-Bold.ttf); a few
// classic family names stand for the DejaVu families. Empty when none.
std::string findFontFile(const std::string& name);
// The font used when a name matches nothing: DejaVu Sans.
std::string fallbackFontFile();

}  // namespace text
}  // namespace orvex
