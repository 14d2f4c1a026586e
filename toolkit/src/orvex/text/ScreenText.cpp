#include "ScreenText.h"

#include <Orvex/SbViewportRegion.h>
#include <Orvex/elements/SoFontNameElement.h>
#include <Orvex/elements/SoFontSizeElement.h>
#include <Orvex/elements/SoModelMatrixElement.h>
#include <Orvex/elements/SoViewVolumeElement.h>
#include <Orvex/elements/SoViewportRegionElement.h>
#include <Orvex/misc/SoState.h>
#include <Orvex/nodes/SoText2.h>

#include <algorithm>
#include <cmath>

namespace orvex {
namespace text {

ScreenPlacement::ScreenPlacement(SoState* state) {
  const SbMatrix& model = SoModelMatrixElement::get(state);
  m_volume = SoViewVolumeElement::get(state);
  const SbViewportRegion& viewport = SoViewportRegionElement::get(state);
  const SbVec2s size = viewport.getViewportSizePixels();
  const SbVec2s origin = viewport.getViewportOriginPixels();
  if (size[0] <= 0 || size[1] <= 0) return;
  m_viewportSize.setValue(size[0], size[1]);
  SbVec3f world;
  model.multVecMatrix(SbVec3f(0.0f, 0.0f, 0.0f), world);
  m_distance = (world - m_volume.getProjectionPoint()).dot(m_volume.getProjectionDirection());
  if (m_volume.getProjectionType() == SbViewVolume::PERSPECTIVE && m_distance <= 0.0f) return;
  m_volume.projectToScreen(world, m_screen);
  m_window.setValue(origin[0] + m_screen[0] * size[0], origin[1] + m_screen[1] * size[1], m_screen[2]);
  m_worldToObject = model.inverse();
  m_valid = true;
}

SbVec3f ScreenPlacement::toObject(const SbVec2f& offset) const {
  const SbVec2f screen(m_screen[0] + offset[0] / m_viewportSize[0], m_screen[1] + offset[1] / m_viewportSize[1]);
  const SbVec3f world = m_volume.getPlanePoint(m_distance, screen);
  SbVec3f object;
  m_worldToObject.multVecMatrix(world, object);
  return object;
}

PixelText layoutPixelText(SoState* state, const SoText2* node) {
  PixelText out;
  out.font = Font::find(SoFontNameElement::get(state));
  const float requested = SoFontSizeElement::get(state);
  if (!out.font || !(requested >= 0.5f)) return out;  // NaN too
  out.pixelSize = requested > kMaxPixelSize ? kMaxPixelSize : static_cast<int>(std::lround(requested));
  const float size = static_cast<float>(out.pixelSize);
  out.layout = layoutText(*out.font, node->string, node->spacing.getValue(), justifyFromField(node->justification.getValue()));
  const auto reachable = [](float v) { return std::fabs(v) <= kMaxPixelOffset; };  // false for NaN
  auto& glyphs = out.layout.glyphs;
  for (PlacedGlyph& g : glyphs) g.pen.setValue(std::round(g.pen[0] * size), std::round(g.pen[1] * size));
  glyphs.erase(std::remove_if(glyphs.begin(), glyphs.end(),
                              [&](const PlacedGlyph& g) { return !reachable(g.pen[0]) || !reachable(g.pen[1]); }),
               glyphs.end());
  for (size_t line = 0; line < out.layout.baseline.size(); ++line) {
    const float left = std::round(out.layout.lineLeft[line] * size);
    const float baseline = std::round(out.layout.baseline[line] * size);
    const float width = std::round(out.layout.lineWidth[line] * size);
    if (!reachable(left) || !reachable(baseline) || !reachable(left + width)) continue;
    out.lineRects.push_back({left, baseline - std::ceil(out.font->descent() * size), left + width,
                             baseline + std::ceil(out.font->ascent() * size)});
  }
  return out;
}

}  // namespace text
}  // namespace orvex
