#include <Orvex/elements/SoLazyElement.h>

#include <Orvex/nodes/SoNode.h>

#include <algorithm>

SO_ELEMENT_SOURCE(SoLazyElement)

SoLazyElement::SoLazyElement() { SO_ELEMENT_CONSTRUCTOR(SoLazyElement); }
SoLazyElement::~SoLazyElement() = default;

void SoLazyElement::initClass() { SO_ELEMENT_INIT_CLASS(SoLazyElement, SoElement); }

void SoLazyElement::init(SoState*) {
  m_defaultDiffuse = getDefaultDiffuse();
  m_defaultTransparency = getDefaultTransparency();
  diffuse = &m_defaultDiffuse;
  numDiffuse = 1;
  diffuseNodeId = 0;
  transparencies = &m_defaultTransparency;
  numTransparencies = 1;
  transparencyNodeId = 0;
  ambient = getDefaultAmbient();
  emissive = getDefaultEmissive();
  specular = getDefaultSpecular();
  shininess = getDefaultShininess();
  lightModel = getDefaultLightModel();
  colorMaterial = false;
  blending = false;
  redundantSets = 0;
}

void SoLazyElement::push(SoState*) {
  const auto* below = static_cast<const SoLazyElement*>(getNextInStack());
  m_defaultDiffuse = below->m_defaultDiffuse;
  m_defaultTransparency = below->m_defaultTransparency;
  // The defaults live in each element: point at this one's copy.
  diffuse = below->diffuse == &below->m_defaultDiffuse ? &m_defaultDiffuse : below->diffuse;
  numDiffuse = below->numDiffuse;
  diffuseNodeId = below->diffuseNodeId;
  transparencies =
      below->transparencies == &below->m_defaultTransparency ? &m_defaultTransparency : below->transparencies;
  numTransparencies = below->numTransparencies;
  transparencyNodeId = below->transparencyNodeId;
  ambient = below->ambient;
  emissive = below->emissive;
  specular = below->specular;
  shininess = below->shininess;
  lightModel = below->lightModel;
  colorMaterial = below->colorMaterial;
  blending = below->blending;
  redundantSets = 0;
}

bool SoLazyElement::matches(const SoElement* elt) const {
  if (!elt || elt->getTypeId() != getTypeId()) return false;
  const auto* o = static_cast<const SoLazyElement*>(elt);
  return o->diffuseNodeId == diffuseNodeId && o->numDiffuse == numDiffuse &&
         o->transparencyNodeId == transparencyNodeId && o->numTransparencies == numTransparencies &&
         o->ambient == ambient && o->emissive == emissive && o->specular == specular && o->shininess == shininess &&
         o->lightModel == lightModel && o->colorMaterial == colorMaterial && o->blending == blending;
}

SoElement* SoLazyElement::copyMatchInfo() const {
  auto* copy = static_cast<SoLazyElement*>(getTypeId().createInstance());
  if (!copy) return nullptr;
  // Only what matches() compares: the arrays are not needed.
  copy->diffuseNodeId = diffuseNodeId;
  copy->numDiffuse = numDiffuse;
  copy->transparencyNodeId = transparencyNodeId;
  copy->numTransparencies = numTransparencies;
  copy->ambient = ambient;
  copy->emissive = emissive;
  copy->specular = specular;
  copy->shininess = shininess;
  copy->lightModel = lightModel;
  copy->colorMaterial = colorMaterial;
  copy->blending = blending;
  return copy;
}

void SoLazyElement::print(FILE* fp) const {
  SoElement::print(fp);
  std::fprintf(fp, "    %d diffuse colours, %d transparencies, light model %d\n", numDiffuse, numTransparencies,
               lightModel);
}

namespace {
SoLazyElement* lazyElement(SoState* state, int stackIndex) {
  return static_cast<SoLazyElement*>(state->getElement(stackIndex));
}
}  // namespace

void SoLazyElement::setDiffuse(SoState* state, SoNode* node, int32_t num, const SbColor* colors) {
  SoLazyElement* elt = lazyElement(state, s_classStackIndex);
  if (!elt) return;
  if (num <= 0 || !colors) {
    elt->m_defaultDiffuse = getDefaultDiffuse();
    elt->diffuse = &elt->m_defaultDiffuse;
    elt->numDiffuse = 1;
    elt->diffuseNodeId = 0;
    return;
  }
  elt->diffuse = colors;
  elt->numDiffuse = num;
  elt->diffuseNodeId = node ? node->getNodeId() : 0;
}

void SoLazyElement::setTransparency(SoState* state, SoNode* node, int32_t num, const float* values) {
  SoLazyElement* elt = lazyElement(state, s_classStackIndex);
  if (!elt) return;
  if (num <= 0 || !values) {
    elt->m_defaultTransparency = getDefaultTransparency();
    elt->transparencies = &elt->m_defaultTransparency;
    elt->numTransparencies = 1;
    elt->transparencyNodeId = 0;
    return;
  }
  elt->transparencies = values;
  elt->numTransparencies = num;
  elt->transparencyNodeId = node ? node->getNodeId() : 0;
}

void SoLazyElement::setAmbient(SoState* state, const SbColor& color) {
  if (SoLazyElement* elt = lazyElement(state, s_classStackIndex)) {
    if (elt->ambient == color) elt->registerRedundantSet(state, AMBIENT_MASK);
    elt->ambient = color;
  }
}

void SoLazyElement::setEmissive(SoState* state, const SbColor& color) {
  if (SoLazyElement* elt = lazyElement(state, s_classStackIndex)) {
    if (elt->emissive == color) elt->registerRedundantSet(state, EMISSIVE_MASK);
    elt->emissive = color;
  }
}

void SoLazyElement::setSpecular(SoState* state, const SbColor& color) {
  if (SoLazyElement* elt = lazyElement(state, s_classStackIndex)) {
    if (elt->specular == color) elt->registerRedundantSet(state, SPECULAR_MASK);
    elt->specular = color;
  }
}

void SoLazyElement::setShininess(SoState* state, float value) {
  if (SoLazyElement* elt = lazyElement(state, s_classStackIndex)) {
    if (elt->shininess == value) elt->registerRedundantSet(state, SHININESS_MASK);
    elt->shininess = value;
  }
}

void SoLazyElement::setLightModel(SoState* state, int32_t model) {
  if (SoLazyElement* elt = lazyElement(state, s_classStackIndex)) {
    if (elt->lightModel == model) elt->registerRedundantSet(state, LIGHT_MODEL_MASK);
    elt->lightModel = model;
  }
}

void SoLazyElement::setColorMaterial(SoState* state, bool value) {
  if (SoLazyElement* elt = lazyElement(state, s_classStackIndex)) {
    if (elt->colorMaterial == value) elt->registerRedundantSet(state, COLOR_MATERIAL_MASK);
    elt->colorMaterial = value;
  }
}

void SoLazyElement::setBlending(SoState* state, bool value) {
  if (SoLazyElement* elt = lazyElement(state, s_classStackIndex)) {
    if (elt->blending == value) elt->registerRedundantSet(state, BLENDING_MASK);
    elt->blending = value;
  }
}

void SoLazyElement::registerRedundantSet(SoState*, uint32_t mask) { redundantSets |= mask; }

const SoLazyElement* SoLazyElement::getInstance(SoState* state) {
  return static_cast<const SoLazyElement*>(getConstElement(state, s_classStackIndex));
}

const SbColor& SoLazyElement::getDiffuse(int index) const {
  return diffuse[std::max(0, std::min(index, numDiffuse - 1))];
}

float SoLazyElement::getTransparency(int index) const {
  return transparencies[std::max(0, std::min(index, numTransparencies - 1))];
}

namespace {
const SoLazyElement* instanceOrNull(SoState* state) { return SoLazyElement::getInstance(state); }
}  // namespace

const SbColor& SoLazyElement::getDiffuse(SoState* state, int index) {
  static const SbColor fallback = getDefaultDiffuse();
  const SoLazyElement* elt = instanceOrNull(state);
  return elt ? elt->getDiffuse(index) : fallback;
}

float SoLazyElement::getTransparency(SoState* state, int index) {
  const SoLazyElement* elt = instanceOrNull(state);
  return elt ? elt->getTransparency(index) : getDefaultTransparency();
}

const SbColor& SoLazyElement::getAmbient(SoState* state) {
  static const SbColor fallback = getDefaultAmbient();
  const SoLazyElement* elt = instanceOrNull(state);
  return elt ? elt->ambient : fallback;
}

const SbColor& SoLazyElement::getEmissive(SoState* state) {
  static const SbColor fallback = getDefaultEmissive();
  const SoLazyElement* elt = instanceOrNull(state);
  return elt ? elt->emissive : fallback;
}

const SbColor& SoLazyElement::getSpecular(SoState* state) {
  static const SbColor fallback = getDefaultSpecular();
  const SoLazyElement* elt = instanceOrNull(state);
  return elt ? elt->specular : fallback;
}

float SoLazyElement::getShininess(SoState* state) {
  const SoLazyElement* elt = instanceOrNull(state);
  return elt ? elt->shininess : getDefaultShininess();
}

int32_t SoLazyElement::getLightModel(SoState* state) {
  const SoLazyElement* elt = instanceOrNull(state);
  return elt ? elt->lightModel : getDefaultLightModel();
}

bool SoLazyElement::getColorMaterial(SoState* state) {
  const SoLazyElement* elt = instanceOrNull(state);
  return elt && elt->colorMaterial;
}

bool SoLazyElement::getBlending(SoState* state) {
  const SoLazyElement* elt = instanceOrNull(state);
  return elt && elt->blending;
}
