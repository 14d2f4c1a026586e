#include "GLText.h"

#include <Orvex/SbViewportRegion.h>
#include <Orvex/actions/SoAction.h>
#include <Orvex/elements/SoDepthBufferElement.h>
#include <Orvex/elements/SoDrawStyleElement.h>
#include <Orvex/elements/SoLazyElement.h>
#include <Orvex/elements/SoModelMatrixElement.h>
#include <Orvex/elements/SoProjectionMatrixElement.h>
#include <Orvex/elements/SoViewingMatrixElement.h>
#include <Orvex/elements/SoViewportRegionElement.h>
#include <Orvex/nodes/SoText2.h>

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

#include "GLTextures.h"
#include "text/ScreenText.h"

namespace orvex {

namespace {

// Texts larger than this many pixels a side are cut.
constexpr int kMaxTextPixels = 4096;

// The lines' glyphs composed into one coverage image (rows from the
// bottom), placed relative to the origin's pixel.
void composeText(const text::PixelText& text, GLCachedTexture& out) {
  struct Placed {
    text::GlyphBitmap bitmap;
    int x, top;
  };
  std::vector<Placed> placed;
  int minX = 0, minY = 0, maxX = 0, maxY = 0;
  bool any = false;
  for (const text::PlacedGlyph& g : text.layout.glyphs) {
    text::GlyphBitmap b = text.font->bitmap(g.glyph, text.pixelSize);
    if (b.width <= 0 || b.rows <= 0) continue;
    const int x = static_cast<int>(g.pen[0]) + b.left;
    const int top = static_cast<int>(g.pen[1]) + b.top;
    minX = any ? std::min(minX, x) : x;
    maxX = any ? std::max(maxX, x + b.width) : x + b.width;
    minY = any ? std::min(minY, top - b.rows) : top - b.rows;
    maxY = any ? std::max(maxY, top) : top;
    any = true;
    placed.push_back(Placed{std::move(b), x, top});
  }
  const int width = std::min(maxX - minX, kMaxTextPixels), height = std::min(maxY - minY, kMaxTextPixels);
  if (!any || width <= 0 || height <= 0) return;
  std::vector<unsigned char> coverage(static_cast<size_t>(width) * static_cast<size_t>(height), 0);
  for (const Placed& p : placed) {
    for (int row = 0; row < p.bitmap.rows; ++row) {
      const int y = p.top - 1 - row - minY;
      if (y < 0 || y >= height) continue;
      for (int col = 0; col < p.bitmap.width; ++col) {
        const int x = p.x + col - minX;
        if (x < 0 || x >= width) continue;
        unsigned char& texel = coverage[static_cast<size_t>(y) * width + x];
        texel = std::max(texel, p.bitmap.coverage[static_cast<size_t>(row) * p.bitmap.width + col]);
      }
    }
  }
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
  glTexImage2D(GL_TEXTURE_2D, 0, GL_ALPHA, width, height, 0, GL_ALPHA, GL_UNSIGNED_BYTE, coverage.data());
  out.placement[0] = minX;
  out.placement[1] = minY;
  out.placement[2] = width;
  out.placement[3] = height;
}

// What the composed image depends on besides the node: font and size.
uint64_t textVersion(const SoNode* node, const text::PixelText& text) {
  uint64_t h = node->getNodeId();
  h = h * 1000003u ^ std::hash<std::string>()(text.font->path());
  h = h * 1000003u ^ static_cast<uint64_t>(text.pixelSize);
  return h;
}

}  // namespace

void renderText2(SoAction* action, SoNode* node) {
  SoState* state = action->getState();
  if (SoDrawStyleElement::get(state) == SoDrawStyleElement::INVISIBLE) return;
  const text::PixelText text = text::layoutPixelText(state, static_cast<SoText2*>(node));
  if (!text.font || text.layout.glyphs.empty()) return;

  // The origin as OpenGL projects it, so the text sits where a vertex
  // there would.
  const SbMatrix all =
      SoModelMatrixElement::get(state) * SoViewingMatrixElement::get(state) * SoProjectionMatrixElement::get(state);
  SbVec4f clip;
  all.multVecMatrix(SbVec4f(0.0f, 0.0f, 0.0f, 1.0f), clip);
  if (clip[3] <= 0.0f) return;  // behind the camera
  const SbVec3f ndc(clip[0] / clip[3], clip[1] / clip[3], clip[2] / clip[3]);
  const SbViewportRegion& viewport = SoViewportRegionElement::get(state);
  const SbVec2s size = viewport.getViewportSizePixels();
  if (size[0] <= 0 || size[1] <= 0 || ndc[2] < -1.0f || ndc[2] > 1.0f) return;
  // The origin's pixel, relative to the viewport.
  const float originX = std::floor((ndc[0] + 1.0f) * 0.5f * size[0] + 0.5f);
  const float originY = std::floor((ndc[1] + 1.0f) * 0.5f * size[1] + 0.5f);

  glActiveTexture(GL_TEXTURE0);
  GLTextureLease lease(node, textVersion(node, text), [&text](GLCachedTexture& t) { composeText(text, t); });
  const GLCachedTexture& t = lease.texture();
  if (t.placement[2] <= 0 || t.placement[3] <= 0) return;
  const auto toNdcX = [&](float px) { return px / size[0] * 2.0f - 1.0f; };
  const auto toNdcY = [&](float py) { return py / size[1] * 2.0f - 1.0f; };
  const float x0 = toNdcX(originX + t.placement[0]), x1 = toNdcX(originX + t.placement[0] + t.placement[2]);
  const float y0 = toNdcY(originY + t.placement[1]), y1 = toNdcY(originY + t.placement[1] + t.placement[3]);

  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  glMatrixMode(GL_TEXTURE);
  glLoadIdentity();
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  bool test = true, write = true;
  SoDepthBufferElement::DepthWriteFunctions function = SoDepthBufferElement::LESS;
  SbVec2f range(0.0f, 1.0f);
  SoDepthBufferElement::get(state, test, write, function, range);
  if (test)
    glEnable(GL_DEPTH_TEST);
  else
    glDisable(GL_DEPTH_TEST);
  glDepthFunc(GL_LEQUAL);
  glDepthMask(write ? GL_TRUE : GL_FALSE);
  glDisable(GL_LIGHTING);
  glDisable(GL_CULL_FACE);
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  // The coverage is the alpha; texels without any write nothing.
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
  glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
  glEnable(GL_TEXTURE_2D);
  glEnable(GL_BLEND);
  glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
  glEnable(GL_ALPHA_TEST);
  glAlphaFunc(GL_GREATER, 0.0f);
  const SbColor& color = SoLazyElement::getDiffuse(state, 0);
  const float alpha = 1.0f - std::clamp(SoLazyElement::getTransparency(state, 0), 0.0f, 1.0f);
  glColor4f(color[0], color[1], color[2], alpha);
  glBegin(GL_QUADS);
  glTexCoord2f(0.0f, 0.0f);
  glVertex3f(x0, y0, ndc[2]);
  glTexCoord2f(1.0f, 0.0f);
  glVertex3f(x1, y0, ndc[2]);
  glTexCoord2f(1.0f, 1.0f);
  glVertex3f(x1, y1, ndc[2]);
  glTexCoord2f(0.0f, 1.0f);
  glVertex3f(x0, y1, ndc[2]);
  glEnd();
  glDisable(GL_ALPHA_TEST);
  glDisable(GL_BLEND);
  glDisable(GL_TEXTURE_2D);
}

}  // namespace orvex
