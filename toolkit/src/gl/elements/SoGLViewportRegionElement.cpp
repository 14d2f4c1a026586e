#include <Orvex/elements/SoGLViewportRegionElement.h>

#include <Orvex/actions/SoGLRenderAction.h>
#include <Orvex/misc/SoState.h>

#include <GL/gl.h>

SO_ELEMENT_SOURCE(SoGLViewportRegionElement)

void SoGLViewportRegionElement::initClass() {
  SO_ELEMENT_INIT_CLASS(SoGLViewportRegionElement, SoViewportRegionElement);
}

SoGLViewportRegionElement::SoGLViewportRegionElement() { SO_ELEMENT_CONSTRUCTOR(SoGLViewportRegionElement); }

SoGLViewportRegionElement::~SoGLViewportRegionElement() = default;

void SoGLViewportRegionElement::init(SoState* state) {
  SoViewportRegionElement::init(state);
  // The default region (no size) is not sent: the action sets its own at
  // once.
  m_state = state;
}

void SoGLViewportRegionElement::push(SoState* state) {
  SoViewportRegionElement::push(state);
  m_state = state;
}

void SoGLViewportRegionElement::pop(SoState*, const SoElement* prevTopElement) {
  if (!matches(prevTopElement)) send();
}

void SoGLViewportRegionElement::setElt(const SbViewportRegion& region) {
  SoViewportRegionElement::setElt(region);
  send();
}

void SoGLViewportRegionElement::send() const {
  // The render action knows the tile and the update area; without it the
  // region is the viewport.
  if (auto* action = dynamic_cast<SoGLRenderAction*>(m_state ? m_state->getAction() : nullptr)) {
    action->sendViewport(viewportRegion);
    return;
  }
  const SbVec2s origin = viewportRegion.getViewportOriginPixels();
  const SbVec2s size = viewportRegion.getViewportSizePixels();
  glViewport(origin[0], origin[1], size[0], size[1]);
}
