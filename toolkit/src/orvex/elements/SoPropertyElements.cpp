// Shape hints, overrides, depth buffer, font name and material elements.

#include <Orvex/elements/SoDepthBufferElement.h>
#include <Orvex/elements/SoFontNameElement.h>
#include <Orvex/elements/SoMaterialElement.h>
#include <Orvex/elements/SoOverrideElement.h>
#include <Orvex/elements/SoShapeHintsElement.h>
#include <Orvex/nodes/SoMaterial.h>

// ---- SoShapeHintsElement ------------------------------------------------------------

SO_ELEMENT_SOURCE(SoShapeHintsElement)

SoShapeHintsElement::SoShapeHintsElement() { SO_ELEMENT_CONSTRUCTOR(SoShapeHintsElement); }
SoShapeHintsElement::~SoShapeHintsElement() = default;

void SoShapeHintsElement::initClass() { SO_ELEMENT_INIT_CLASS(SoShapeHintsElement, SoElement); }

void SoShapeHintsElement::init(SoState*) {
  vertexOrdering = getDefaultVertexOrdering();
  shapeType = getDefaultShapeType();
  faceType = getDefaultFaceType();
  windingType = getDefaultWindingType();
}

void SoShapeHintsElement::push(SoState*) {
  const auto* below = static_cast<const SoShapeHintsElement*>(getNextInStack());
  vertexOrdering = below->vertexOrdering;
  shapeType = below->shapeType;
  faceType = below->faceType;
  windingType = below->windingType;
}

bool SoShapeHintsElement::matches(const SoElement* elt) const {
  if (!elt || elt->getTypeId() != getTypeId()) return false;
  const auto* other = static_cast<const SoShapeHintsElement*>(elt);
  return other->vertexOrdering == vertexOrdering && other->shapeType == shapeType && other->faceType == faceType &&
         other->windingType == windingType;
}

SoElement* SoShapeHintsElement::copyMatchInfo() const {
  auto* copy = static_cast<SoShapeHintsElement*>(getTypeId().createInstance());
  if (!copy) return nullptr;
  copy->vertexOrdering = vertexOrdering;
  copy->shapeType = shapeType;
  copy->faceType = faceType;
  copy->windingType = windingType;
  return copy;
}

void SoShapeHintsElement::print(FILE* fp) const {
  SoElement::print(fp);
  std::fprintf(fp, "    ordering %d, shape type %d, face type %d, winding %d\n", vertexOrdering, shapeType, faceType,
               windingType);
}

void SoShapeHintsElement::set(SoState* state, VertexOrderings ordering, ShapeTypes shape, FaceTypes face) {
  if (auto* elt = static_cast<SoShapeHintsElement*>(getElement(state, s_classStackIndex)))
    elt->setElt(state, ordering, shape, face);
}

void SoShapeHintsElement::set(SoState* state, SoNode*, VertexOrderings ordering, ShapeTypes shape, FaceTypes face) {
  set(state, ordering, shape, face);
}

void SoShapeHintsElement::set(SoState* state, WindingTypes winding) {
  if (auto* elt = static_cast<SoShapeHintsElement*>(getElement(state, s_classStackIndex))) elt->setElt(state, winding);
}

void SoShapeHintsElement::get(SoState* state, VertexOrderings& ordering, ShapeTypes& shape, FaceTypes& face) {
  const auto* elt = static_cast<const SoShapeHintsElement*>(getConstElement(state, s_classStackIndex));
  ordering = elt ? elt->vertexOrdering : getDefaultVertexOrdering();
  shape = elt ? elt->shapeType : getDefaultShapeType();
  face = elt ? elt->faceType : getDefaultFaceType();
}

SoShapeHintsElement::WindingTypes SoShapeHintsElement::getWindingType(SoState* state) {
  const auto* elt = static_cast<const SoShapeHintsElement*>(getConstElement(state, s_classStackIndex));
  return elt ? elt->windingType : getDefaultWindingType();
}

void SoShapeHintsElement::setElt(SoState*, VertexOrderings ordering, ShapeTypes shape, FaceTypes face) {
  if (ordering != ORDERING_AS_IS) vertexOrdering = ordering;
  if (shape != SHAPE_TYPE_AS_IS) shapeType = shape;
  if (face != FACE_TYPE_AS_IS) faceType = face;
}

void SoShapeHintsElement::setElt(SoState*, WindingTypes winding) { windingType = winding; }

// ---- SoOverrideElement --------------------------------------------------------------

SO_ELEMENT_SOURCE(SoOverrideElement)

SoOverrideElement::SoOverrideElement() { SO_ELEMENT_CONSTRUCTOR(SoOverrideElement); }
SoOverrideElement::~SoOverrideElement() = default;

void SoOverrideElement::initClass() { SO_ELEMENT_INIT_CLASS(SoOverrideElement, SoElement); }

void SoOverrideElement::init(SoState*) { flags = 0; }

void SoOverrideElement::push(SoState*) { flags = static_cast<const SoOverrideElement*>(getNextInStack())->flags; }

bool SoOverrideElement::matches(const SoElement* elt) const {
  return elt && elt->getTypeId() == getTypeId() && static_cast<const SoOverrideElement*>(elt)->flags == flags;
}

SoElement* SoOverrideElement::copyMatchInfo() const {
  auto* copy = static_cast<SoOverrideElement*>(getTypeId().createInstance());
  if (copy) copy->flags = flags;
  return copy;
}

void SoOverrideElement::print(FILE* fp) const {
  SoElement::print(fp);
  std::fprintf(fp, "    flags 0x%08x\n", flags);
}

bool SoOverrideElement::isOverridden(SoState* state, uint32_t flag) { return (getFlags(state) & flag) != 0; }

uint32_t SoOverrideElement::getFlags(SoState* state) {
  // Read for every property node: no cache dependency is recorded for a
  // flag that is not set, so read it without capturing.
  const auto* elt = static_cast<const SoOverrideElement*>(state->getConstElement(s_classStackIndex));
  if (!elt) return 0;
  if (elt->flags) getConstElement(state, s_classStackIndex);
  return elt->flags;
}

void SoOverrideElement::setOverride(SoState* state, SoNode*, uint32_t flag, bool override) {
  auto* elt = static_cast<SoOverrideElement*>(getElement(state, s_classStackIndex));
  if (!elt) return;
  if (override)
    elt->flags |= flag;
  else
    elt->flags &= ~flag;
}

// ---- SoDepthBufferElement -----------------------------------------------------------

SO_ELEMENT_SOURCE(SoDepthBufferElement)

SoDepthBufferElement::SoDepthBufferElement() { SO_ELEMENT_CONSTRUCTOR(SoDepthBufferElement); }
SoDepthBufferElement::~SoDepthBufferElement() = default;

void SoDepthBufferElement::initClass() { SO_ELEMENT_INIT_CLASS(SoDepthBufferElement, SoElement); }

void SoDepthBufferElement::init(SoState*) {
  test = getDefaultTest();
  write = getDefaultWrite();
  function = getDefaultFunction();
  range = getDefaultRange();
}

void SoDepthBufferElement::push(SoState*) {
  const auto* below = static_cast<const SoDepthBufferElement*>(getNextInStack());
  test = below->test;
  write = below->write;
  function = below->function;
  range = below->range;
}

bool SoDepthBufferElement::matches(const SoElement* elt) const {
  if (!elt || elt->getTypeId() != getTypeId()) return false;
  const auto* other = static_cast<const SoDepthBufferElement*>(elt);
  return other->test == test && other->write == write && other->function == function && other->range == range;
}

SoElement* SoDepthBufferElement::copyMatchInfo() const {
  auto* copy = static_cast<SoDepthBufferElement*>(getTypeId().createInstance());
  if (copy) copy->setElt(test, write, function, range);
  return copy;
}

void SoDepthBufferElement::set(SoState* state, bool t, bool w, DepthWriteFunctions f, const SbVec2f& r) {
  if (auto* elt = static_cast<SoDepthBufferElement*>(getElement(state, s_classStackIndex))) elt->setElt(t, w, f, r);
}

void SoDepthBufferElement::get(SoState* state, bool& t, bool& w, DepthWriteFunctions& f, SbVec2f& r) {
  const auto* elt = static_cast<const SoDepthBufferElement*>(getConstElement(state, s_classStackIndex));
  t = elt ? elt->test : getDefaultTest();
  w = elt ? elt->write : getDefaultWrite();
  f = elt ? elt->function : getDefaultFunction();
  r = elt ? elt->range : getDefaultRange();
}

void SoDepthBufferElement::setElt(bool t, bool w, DepthWriteFunctions f, const SbVec2f& r) {
  test = t;
  write = w;
  function = f;
  range = r;
}

// ---- SoFontNameElement --------------------------------------------------------------

SO_ELEMENT_SOURCE(SoFontNameElement)

SoFontNameElement::SoFontNameElement() { SO_ELEMENT_CONSTRUCTOR(SoFontNameElement); }
SoFontNameElement::~SoFontNameElement() = default;

void SoFontNameElement::initClass() { SO_ELEMENT_INIT_CLASS(SoFontNameElement, SoReplacedElement); }

void SoFontNameElement::init(SoState* state) {
  SoReplacedElement::init(state);
  fontName = getDefault();
}

bool SoFontNameElement::matches(const SoElement* elt) const {
  return elt && elt->getTypeId() == getTypeId() && static_cast<const SoFontNameElement*>(elt)->fontName == fontName;
}

SoElement* SoFontNameElement::copyMatchInfo() const {
  auto* copy = static_cast<SoFontNameElement*>(getTypeId().createInstance());
  if (copy) {
    copy->fontName = fontName;
    copy->nodeId = nodeId;
  }
  return copy;
}

void SoFontNameElement::set(SoState* state, SoNode* node, const SbName& name) {
  if (auto* elt = static_cast<SoFontNameElement*>(SoReplacedElement::getElement(state, s_classStackIndex, node)))
    elt->fontName = name;
}

const SbName& SoFontNameElement::get(SoState* state) {
  static const SbName fallback = getDefault();
  const auto* elt = static_cast<const SoFontNameElement*>(getConstElement(state, s_classStackIndex));
  return elt ? elt->fontName : fallback;
}

// ---- SoMaterialElement --------------------------------------------------------------

SO_ELEMENT_SOURCE(SoMaterialElement)

SoMaterialElement::SoMaterialElement() { SO_ELEMENT_CONSTRUCTOR(SoMaterialElement); }
SoMaterialElement::~SoMaterialElement() = default;

void SoMaterialElement::initClass() { SO_ELEMENT_INIT_CLASS(SoMaterialElement, SoReplacedElement); }

void SoMaterialElement::init(SoState* state) {
  SoReplacedElement::init(state);
  material = nullptr;
}

void SoMaterialElement::set(SoState* state, SoMaterial* node) {
  auto* elt = static_cast<SoMaterialElement*>(SoReplacedElement::getElement(state, s_classStackIndex, node));
  if (elt) elt->material = node;
}

SoMaterial* SoMaterialElement::get(SoState* state) {
  const auto* elt = static_cast<const SoMaterialElement*>(getConstElement(state, s_classStackIndex));
  return elt ? elt->material : nullptr;
}
