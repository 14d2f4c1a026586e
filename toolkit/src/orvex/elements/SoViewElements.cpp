// The viewing elements: viewport region, view volume and pick ray.

#include <Orvex/elements/SoPickRayElement.h>
#include <Orvex/elements/SoViewVolumeElement.h>
#include <Orvex/elements/SoViewportRegionElement.h>

// ---- SoViewportRegionElement --------------------------------------------------------

SO_ELEMENT_SOURCE(SoViewportRegionElement)

SoViewportRegionElement::SoViewportRegionElement() { SO_ELEMENT_CONSTRUCTOR(SoViewportRegionElement); }
SoViewportRegionElement::~SoViewportRegionElement() = default;

void SoViewportRegionElement::initClass() { SO_ELEMENT_INIT_CLASS(SoViewportRegionElement, SoElement); }

void SoViewportRegionElement::init(SoState*) { viewportRegion = getDefault(); }

void SoViewportRegionElement::push(SoState*) {
  viewportRegion = static_cast<const SoViewportRegionElement*>(getNextInStack())->viewportRegion;
}

bool SoViewportRegionElement::matches(const SoElement* elt) const {
  return elt && elt->getTypeId() == getTypeId() &&
         static_cast<const SoViewportRegionElement*>(elt)->viewportRegion == viewportRegion;
}

SoElement* SoViewportRegionElement::copyMatchInfo() const {
  auto* copy = static_cast<SoViewportRegionElement*>(getTypeId().createInstance());
  if (copy) copy->viewportRegion = viewportRegion;
  return copy;
}

void SoViewportRegionElement::print(FILE* fp) const {
  SoElement::print(fp);
  const SbVec2s size = viewportRegion.getViewportSizePixels();
  std::fprintf(fp, "    viewport %d x %d pixels\n", size[0], size[1]);
}

void SoViewportRegionElement::set(SoState* state, const SbViewportRegion& region) {
  if (auto* elt = static_cast<SoViewportRegionElement*>(getElement(state, s_classStackIndex))) elt->setElt(region);
}

const SbViewportRegion& SoViewportRegionElement::get(SoState* state) {
  static const SbViewportRegion fallback;
  const auto* elt = static_cast<const SoViewportRegionElement*>(getConstElement(state, s_classStackIndex));
  return elt ? elt->viewportRegion : fallback;
}

void SoViewportRegionElement::setElt(const SbViewportRegion& region) { viewportRegion = region; }

// ---- SoViewVolumeElement ------------------------------------------------------------

SO_ELEMENT_SOURCE(SoViewVolumeElement)

SoViewVolumeElement::SoViewVolumeElement() { SO_ELEMENT_CONSTRUCTOR(SoViewVolumeElement); }
SoViewVolumeElement::~SoViewVolumeElement() = default;

void SoViewVolumeElement::initClass() { SO_ELEMENT_INIT_CLASS(SoViewVolumeElement, SoReplacedElement); }

void SoViewVolumeElement::init(SoState* state) {
  SoReplacedElement::init(state);
  viewVolume = getDefault();
}

void SoViewVolumeElement::set(SoState* state, SoNode* node, const SbViewVolume& volume) {
  if (auto* elt = static_cast<SoViewVolumeElement*>(SoReplacedElement::getElement(state, s_classStackIndex, node)))
    elt->viewVolume = volume;
}

const SbViewVolume& SoViewVolumeElement::get(SoState* state) {
  static const SbViewVolume fallback;
  const auto* elt = static_cast<const SoViewVolumeElement*>(getConstElement(state, s_classStackIndex));
  return elt ? elt->viewVolume : fallback;
}

// ---- SoPickRayElement ---------------------------------------------------------------

SO_ELEMENT_SOURCE(SoPickRayElement)

SoPickRayElement::SoPickRayElement() { SO_ELEMENT_CONSTRUCTOR(SoPickRayElement); }
SoPickRayElement::~SoPickRayElement() = default;

void SoPickRayElement::initClass() { SO_ELEMENT_INIT_CLASS(SoPickRayElement, SoElement); }

void SoPickRayElement::init(SoState*) { volume = SbViewVolume(); }

void SoPickRayElement::push(SoState*) { volume = static_cast<const SoPickRayElement*>(getNextInStack())->volume; }

bool SoPickRayElement::matches(const SoElement*) const { return false; }

SoElement* SoPickRayElement::copyMatchInfo() const { return new SoPickRayElement; }

void SoPickRayElement::set(SoState* state, const SbViewVolume& v) {
  if (auto* elt = static_cast<SoPickRayElement*>(getElement(state, s_classStackIndex))) elt->volume = v;
}

const SbViewVolume& SoPickRayElement::get(SoState* state) {
  static const SbViewVolume fallback;
  const auto* elt = static_cast<const SoPickRayElement*>(getConstElement(state, s_classStackIndex));
  return elt ? elt->volume : fallback;
}
