#include "Font.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <cstdlib>

namespace orvex {
namespace text {

struct Font::Face {
  FT_Face face = nullptr;
  ~Face() {
    if (face) FT_Done_Face(face);
  }
};

namespace {

// The FreeType library and the fonts opened, by file; they live until the
// process ends.
struct FontRegistry {
  std::mutex mutex;
  FT_Library library = nullptr;
  bool initialised = false;
  std::map<std::string, std::shared_ptr<Font>> byPath;
  std::map<std::string, std::shared_ptr<Font>> byName;
};

FontRegistry& registry() {
  static FontRegistry* instance = new FontRegistry;  // outlives static destructors
  return *instance;
}

// Collects an outline's contours, cutting curves into straight pieces.
struct OutlineSink {
  std::vector<Contour> contours;
  SbVec2f last;
  int segments = 4;
  float scale = 1.0f;

  SbVec2f point(const FT_Vector* v) const { return SbVec2f(float(v->x) * scale, float(v->y) * scale); }
  void add(const SbVec2f& p) {
    contours.back().push_back(p);
    last = p;
  }
  static int moveTo(const FT_Vector* to, void* user) {
    auto* self = static_cast<OutlineSink*>(user);
    self->contours.emplace_back();
    self->add(self->point(to));
    return 0;
  }
  static int lineTo(const FT_Vector* to, void* user) {
    auto* self = static_cast<OutlineSink*>(user);
    if (self->contours.empty()) self->contours.emplace_back();
    self->add(self->point(to));
    return 0;
  }
  static int conicTo(const FT_Vector* control, const FT_Vector* to, void* user) {
    auto* self = static_cast<OutlineSink*>(user);
    if (self->contours.empty()) self->contours.emplace_back();
    const SbVec2f p0 = self->last, p1 = self->point(control), p2 = self->point(to);
    for (int i = 1; i <= self->segments; ++i) {
      const float t = float(i) / float(self->segments), u = 1.0f - t;
      self->add(p0 * (u * u) + p1 * (2.0f * u * t) + p2 * (t * t));
    }
    return 0;
  }
  static int cubicTo(const FT_Vector* c1, const FT_Vector* c2, const FT_Vector* to, void* user) {
    auto* self = static_cast<OutlineSink*>(user);
    if (self->contours.empty()) self->contours.emplace_back();
    const SbVec2f p0 = self->last, p1 = self->point(c1), p2 = self->point(c2), p3 = self->point(to);
    for (int i = 1; i <= self->segments; ++i) {
      const float t = float(i) / float(self->segments), u = 1.0f - t;
      self->add(p0 * (u * u * u) + p1 * (3.0f * u * u * t) + p2 * (3.0f * u * t * t) + p3 * (t * t * t));
    }
    return 0;
  }
};

}  // namespace

Font::Font(std::string path, std::unique_ptr<Face> face) : m_path(std::move(path)), m_face(std::move(face)) {
  const FT_Face f = m_face->face;
  const float em = f->units_per_EM > 0 ? float(f->units_per_EM) : 1.0f;
  if (f->ascender > 0) m_ascent = float(f->ascender) / em;
  if (f->descender < 0) m_descent = float(-f->descender) / em;
}

Font::~Font() = default;

std::shared_ptr<Font> Font::open(const std::string& path) {
  FontRegistry& r = registry();
  auto it = r.byPath.find(path);
  if (it != r.byPath.end()) return it->second;
  if (!r.initialised) {
    r.initialised = true;
    if (FT_Init_FreeType(&r.library) != 0) r.library = nullptr;
  }
  if (!r.library || path.empty()) return nullptr;
  auto face = std::make_unique<Face>();
  if (FT_New_Face(r.library, path.c_str(), 0, &face->face) != 0) {
    face->face = nullptr;
    return nullptr;
  }
  // Scalable fonts only: outlines and any pixel size are needed.
  if (!FT_IS_SCALABLE(face->face)) return nullptr;
  FT_Select_Charmap(face->face, FT_ENCODING_UNICODE);
  std::shared_ptr<Font> font(new Font(path, std::move(face)));
  r.byPath[path] = font;
  return font;
}

std::shared_ptr<Font> Font::find(const SbName& name) {
  FontRegistry& r = registry();
  std::lock_guard<std::mutex> lock(r.mutex);
  const std::string key = name.getString();
  auto it = r.byName.find(key);
  if (it != r.byName.end()) return it->second;
  std::shared_ptr<Font> font = open(findFontFile(key));
  if (!font) font = open(fallbackFontFile());
  r.byName[key] = font;
  return font;
}

unsigned Font::glyphIndex(char32_t c) const {
  std::lock_guard<std::mutex> lock(m_mutex);
  return FT_Get_Char_Index(m_face->face, static_cast<FT_ULong>(c));
}

float Font::advance(unsigned glyph) const {
  std::lock_guard<std::mutex> lock(m_mutex);
  auto it = m_advances.find(glyph);
  if (it != m_advances.end()) return it->second;
  const FT_Face f = m_face->face;
  float advance = 0.0f;
  if (FT_Load_Glyph(f, glyph, FT_LOAD_NO_SCALE | FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP) == 0)
    advance = float(f->glyph->metrics.horiAdvance) / float(f->units_per_EM);
  m_advances.emplace(glyph, advance);
  return advance;
}

float Font::kerning(unsigned left, unsigned right) const {
  std::lock_guard<std::mutex> lock(m_mutex);
  const FT_Face f = m_face->face;
  if (!FT_HAS_KERNING(f)) return 0.0f;
  FT_Vector k{0, 0};
  if (FT_Get_Kerning(f, left, right, FT_KERNING_UNSCALED, &k) != 0) return 0.0f;
  return float(k.x) / float(f->units_per_EM);
}

std::shared_ptr<const TessellatedGlyph> Font::outline(unsigned glyph, int curveSegments) const {
  std::lock_guard<std::mutex> lock(m_mutex);
  const auto key = std::make_pair(glyph, curveSegments);
  auto it = m_outlines.find(key);
  if (it != m_outlines.end()) return it->second;
  const FT_Face f = m_face->face;
  OutlineSink sink;
  sink.segments = curveSegments < 1 ? 1 : curveSegments;
  sink.scale = 1.0f / float(f->units_per_EM);
  if (FT_Load_Glyph(f, glyph, FT_LOAD_NO_SCALE | FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP) == 0 &&
      f->glyph->format == FT_GLYPH_FORMAT_OUTLINE) {
    FT_Outline_Funcs funcs{};
    funcs.move_to = &OutlineSink::moveTo;
    funcs.line_to = &OutlineSink::lineTo;
    funcs.conic_to = &OutlineSink::conicTo;
    funcs.cubic_to = &OutlineSink::cubicTo;
    FT_Outline_Decompose(&f->glyph->outline, &funcs, &sink);
  }
  auto result = std::make_shared<const TessellatedGlyph>(tessellate(std::move(sink.contours)));
  m_outlines.emplace(key, result);
  return result;
}

GlyphBitmap Font::bitmap(unsigned glyph, int pixelSize) const {
  std::lock_guard<std::mutex> lock(m_mutex);
  GlyphBitmap out;
  const FT_Face f = m_face->face;
  if (pixelSize < 1 || FT_Set_Pixel_Sizes(f, 0, static_cast<FT_UInt>(pixelSize)) != 0) return out;
  if (FT_Load_Glyph(f, glyph, FT_LOAD_RENDER) != 0) return out;
  const FT_Bitmap& b = f->glyph->bitmap;
  if (b.pixel_mode != FT_PIXEL_MODE_GRAY) return out;
  out.width = static_cast<int>(b.width);
  out.rows = static_cast<int>(b.rows);
  out.left = f->glyph->bitmap_left;
  out.top = f->glyph->bitmap_top;
  out.coverage.resize(static_cast<size_t>(out.width) * static_cast<size_t>(out.rows));
  for (int y = 0; y < out.rows; ++y) {
    const unsigned char* row = b.pitch >= 0 ? b.buffer + static_cast<ptrdiff_t>(y) * b.pitch
                                            : b.buffer + static_cast<ptrdiff_t>(out.rows - 1 - y) * -b.pitch;
    std::copy(row, row + out.width, out.coverage.begin() + static_cast<ptrdiff_t>(y) * out.width);
  }
  return out;
}

}  // namespace text
}  // namespace orvex
