// The font node and the text shapes.

#include <Orvex/SoPrimitiveVertex.h>
#include <Orvex/actions/SoAction.h>
#include <Orvex/elements/SoFontNameElement.h>
#include <Orvex/elements/SoFontSizeElement.h>
#include <Orvex/elements/SoMaterialBindingElement.h>
#include <Orvex/elements/SoViewVolumeElement.h>
#include <Orvex/elements/SoViewportRegionElement.h>
#include <Orvex/misc/SoState.h>
#include <Orvex/nodes/SoFont.h>
#include <Orvex/nodes/SoText2.h>
#include <Orvex/nodes/SoText3.h>

#include <cmath>

#include "text/ScreenText.h"
#include "text/TextLayout.h"

// ---- SoFont ----------------------------------------------------------------------------

SO_NODE_SOURCE(SoFont)

SoFont::SoFont() {
  SO_NODE_CONSTRUCTOR(SoFont);
  SO_NODE_ADD_FIELD(name, (SbName("defaultFont")));
  SO_NODE_ADD_FIELD(size, (10.0f));
}

SoFont::~SoFont() = default;

void SoFont::initClass() { SO_NODE_INIT_CLASS(SoFont, SoNode, "Node"); }

void SoFont::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state) return;
  if (!name.isIgnored() && state->isElementEnabled(SoFontNameElement::getClassStackIndex()))
    SoFontNameElement::set(state, this, name.getValue());
  if (!size.isIgnored() && state->isElementEnabled(SoFontSizeElement::getClassStackIndex()))
    SoFontSizeElement::set(state, size.getValue());
}

// ---- SoText2 ---------------------------------------------------------------------------

SO_NODE_SOURCE(SoText2)

SoText2::SoText2() {
  SO_NODE_CONSTRUCTOR(SoText2);
  SO_NODE_DEFINE_ENUM_VALUE(Justification, LEFT);
  SO_NODE_DEFINE_ENUM_VALUE(Justification, RIGHT);
  SO_NODE_DEFINE_ENUM_VALUE(Justification, CENTER);
  SO_NODE_ADD_FIELD(string, (""));
  SO_NODE_ADD_FIELD(spacing, (1.0f));
  SO_NODE_ADD_FIELD(justification, (LEFT));
  SO_NODE_SET_SF_ENUM_TYPE(justification, Justification);
}

SoText2::~SoText2() = default;

void SoText2::initClass() { SO_NODE_INIT_CLASS(SoText2, SoShape, "Shape"); }

namespace {

// Whether the state knows the view: screen-aligned text has no extent
// without a view volume and a viewport.
bool knowsView(SoState* state) {
  return state && state->isElementEnabled(SoViewVolumeElement::getClassStackIndex()) &&
         state->isElementEnabled(SoViewportRegionElement::getClassStackIndex()) &&
         state->isElementEnabled(SoFontSizeElement::getClassStackIndex());
}

// The object-space corners of each line of a screen-aligned text,
// counterclockwise from the lower left.
std::vector<std::array<SbVec3f, 4>> text2Corners(SoState* state, const SoText2* node) {
  std::vector<std::array<SbVec3f, 4>> corners;
  if (!knowsView(state)) return corners;
  const orvex::text::ScreenPlacement placement(state);
  if (!placement.isValid()) return corners;
  const orvex::text::PixelText text = orvex::text::layoutPixelText(state, node);
  for (const auto& r : text.lineRects) {
    if (r[2] <= r[0]) continue;  // an empty line covers nothing
    const std::array<SbVec3f, 4> quad = {placement.toObject(SbVec2f(r[0], r[1])), placement.toObject(SbVec2f(r[2], r[1])),
                                         placement.toObject(SbVec2f(r[2], r[3])), placement.toObject(SbVec2f(r[0], r[3]))};
    // A degenerate view (a camera of no height) has no way back.
    bool finite = true;
    for (const SbVec3f& p : quad)
      for (int i = 0; i < 3; ++i) finite = finite && std::isfinite(p[i]);
    if (finite) corners.push_back(quad);
  }
  return corners;
}

}  // namespace

void SoText2::computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) {
  box.makeEmpty();
  for (const auto& quad : text2Corners(action->getState(), this))
    for (const SbVec3f& p : quad) box.extendBy(p);
  center = box.isEmpty() ? SbVec3f(0.0f, 0.0f, 0.0f) : box.getCenter();
}

void SoText2::generatePrimitives(SoAction* action) {
  static const float kTex[4][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
  SoPrimitiveVertex v[4];
  for (const auto& quad : text2Corners(action->getState(), this)) {
    SbVec3f normal = (quad[1] - quad[0]).cross(quad[3] - quad[0]);
    if (normal.length() > 0.0f) normal.normalize();
    for (int i = 0; i < 4; ++i) {
      v[i].setPoint(quad[static_cast<size_t>(i)]);
      v[i].setNormal(normal);
      v[i].setTextureCoords(SbVec4f(kTex[i][0], kTex[i][1], 0.0f, 1.0f));
      v[i].setMaterialIndex(0);
    }
    invokeTriangleCallbacks(action, &v[0], &v[1], &v[2]);
    invokeTriangleCallbacks(action, &v[0], &v[2], &v[3]);
  }
}

// ---- SoText3 ---------------------------------------------------------------------------

SO_NODE_SOURCE(SoText3)

SoText3::SoText3() {
  SO_NODE_CONSTRUCTOR(SoText3);
  SO_NODE_DEFINE_ENUM_VALUE(Justification, LEFT);
  SO_NODE_DEFINE_ENUM_VALUE(Justification, RIGHT);
  SO_NODE_DEFINE_ENUM_VALUE(Justification, CENTER);
  SO_NODE_DEFINE_ENUM_VALUE(Part, FRONT);
  SO_NODE_DEFINE_ENUM_VALUE(Part, SIDES);
  SO_NODE_DEFINE_ENUM_VALUE(Part, BACK);
  SO_NODE_DEFINE_ENUM_VALUE(Part, ALL);
  SO_NODE_ADD_FIELD(string, (""));
  SO_NODE_ADD_FIELD(spacing, (1.0f));
  SO_NODE_ADD_FIELD(justification, (LEFT));
  SO_NODE_ADD_FIELD(parts, (FRONT));
  SO_NODE_SET_SF_ENUM_TYPE(justification, Justification);
  SO_NODE_SET_SF_ENUM_TYPE(parts, Part);
}

SoText3::~SoText3() = default;

void SoText3::initClass() { SO_NODE_INIT_CLASS(SoText3, SoShape, "Shape"); }

namespace {

// The extrusion depth of 3D text, as a fraction of the font size.
constexpr float kDepthPerSize = 0.2f;

// The size of 3D text; 0 (no text) for sizes that are not finite.
float fontSize(SoState* state) {
  const float size = state && state->isElementEnabled(SoFontSizeElement::getClassStackIndex())
                         ? SoFontSizeElement::get(state)
                         : SoFontSizeElement::getDefault();
  return std::isfinite(size) ? size : 0.0f;
}

std::shared_ptr<orvex::text::Font> currentFont(SoState* state) {
  const bool named = state && state->isElementEnabled(SoFontNameElement::getClassStackIndex());
  return orvex::text::Font::find(named ? SoFontNameElement::get(state) : SoFontNameElement::getDefault());
}

}  // namespace

void SoText3::computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) {
  box.makeEmpty();
  center.setValue(0.0f, 0.0f, 0.0f);
  SoState* state = action->getState();
  const auto font = currentFont(state);
  if (!font) return;
  const float size = fontSize(state);
  if (size == 0.0f || !std::isfinite(spacing.getValue())) return;
  const auto layout = orvex::text::layoutText(*font, string, spacing.getValue(),
                                              orvex::text::justifyFromField(justification.getValue()));
  if (layout.bounds.isEmpty()) return;
  const int p = parts.getValue();
  const float back = (p & (SIDES | BACK)) ? -kDepthPerSize * size : 0.0f;
  const SbVec2f& lo = layout.bounds.getMin();
  const SbVec2f& hi = layout.bounds.getMax();
  box.setBounds(SbVec3f(lo[0] * size, lo[1] * size, back), SbVec3f(hi[0] * size, hi[1] * size, 0.0f));
  center = box.getCenter();
}

void SoText3::generatePrimitives(SoAction* action) {
  SoState* state = action->getState();
  const auto font = currentFont(state);
  if (!font) return;
  const float size = fontSize(state);
  if (size == 0.0f || !std::isfinite(spacing.getValue())) return;
  const int p = parts.getValue();
  const float depth = kDepthPerSize * size;
  // Material per part: front 0, sides 1, back 2.
  const SoMaterialBindingElement::Binding binding =
      state ? SoMaterialBindingElement::get(state) : SoMaterialBindingElement::OVERALL;
  const bool perPart = binding != SoMaterialBindingElement::OVERALL;
  const int segments = 2 + static_cast<int>(std::lround(getComplexityValue(action) * 8.0f));
  const auto layout = orvex::text::layoutText(*font, string, spacing.getValue(),
                                              orvex::text::justifyFromField(justification.getValue()));
  SoPrimitiveVertex v[4];
  auto put = [&](SoPrimitiveVertex& pv, const SbVec2f& em, float z, const SbVec3f& normal, int material) {
    pv.setPoint(em[0] * size, em[1] * size, z);
    pv.setNormal(normal);
    pv.setTextureCoords(SbVec4f(em[0], em[1], 0.0f, 1.0f));
    pv.setMaterialIndex(perPart ? material : 0);
  };
  for (const orvex::text::PlacedGlyph& g : layout.glyphs) {
    const auto glyph = font->outline(g.glyph, segments);
    const auto& tri = glyph->triangles;
    for (size_t t = 0; t + 2 < tri.size(); t += 3) {
      const SbVec2f a = glyph->vertices[static_cast<size_t>(tri[t])] + g.pen;
      const SbVec2f b = glyph->vertices[static_cast<size_t>(tri[t + 1])] + g.pen;
      const SbVec2f c = glyph->vertices[static_cast<size_t>(tri[t + 2])] + g.pen;
      if (p & FRONT) {
        put(v[0], a, 0.0f, SbVec3f(0, 0, 1), 0);
        put(v[1], b, 0.0f, SbVec3f(0, 0, 1), 0);
        put(v[2], c, 0.0f, SbVec3f(0, 0, 1), 0);
        invokeTriangleCallbacks(action, &v[0], &v[1], &v[2]);
      }
      if (p & BACK) {
        put(v[0], a, -depth, SbVec3f(0, 0, -1), 2);
        put(v[1], c, -depth, SbVec3f(0, 0, -1), 2);
        put(v[2], b, -depth, SbVec3f(0, 0, -1), 2);
        invokeTriangleCallbacks(action, &v[0], &v[1], &v[2]);
      }
    }
    if (!(p & SIDES)) continue;
    // The filled area is left of each contour edge: the outward normal is
    // on its right.
    for (const auto& contour : glyph->contours) {
      for (size_t i = 0, n = contour.size(); i < n; ++i) {
        const SbVec2f a = contour[i] + g.pen;
        const SbVec2f b = contour[(i + 1) % n] + g.pen;
        SbVec3f normal(b[1] - a[1], a[0] - b[0], 0.0f);
        if (normal.length() == 0.0f) continue;
        normal.normalize();
        put(v[0], a, 0.0f, normal, 1);
        put(v[1], b, 0.0f, normal, 1);
        put(v[2], b, -depth, normal, 1);
        put(v[3], a, -depth, normal, 1);
        invokeTriangleCallbacks(action, &v[3], &v[2], &v[1]);
        invokeTriangleCallbacks(action, &v[3], &v[1], &v[0]);
      }
    }
  }
}
