// The vertex data elements: coordinates, normals and texture coordinates.

#include <Orvex/elements/SoCoordinateElement.h>
#include <Orvex/elements/SoNormalElement.h>
#include <Orvex/elements/SoTextureCoordinateElement.h>

#include <algorithm>

namespace {
const SbVec3f kDefaultCoord3(0.0f, 0.0f, 0.0f);
const SbVec4f kDefaultCoord4(0.0f, 0.0f, 0.0f, 1.0f);
const SbVec3f kDefaultNormal(0.0f, 0.0f, 1.0f);

int clampIndex(int index, int num) { return std::max(0, std::min(index, num - 1)); }
}  // namespace

// ---- SoCoordinateElement ------------------------------------------------------------

SO_ELEMENT_SOURCE(SoCoordinateElement)

SoCoordinateElement::SoCoordinateElement() { SO_ELEMENT_CONSTRUCTOR(SoCoordinateElement); }
SoCoordinateElement::~SoCoordinateElement() = default;

void SoCoordinateElement::initClass() { SO_ELEMENT_INIT_CLASS(SoCoordinateElement, SoReplacedElement); }

void SoCoordinateElement::init(SoState* state) {
  SoReplacedElement::init(state);
  numCoords = 1;
  coords3 = &kDefaultCoord3;
  coords4 = nullptr;
  coordsAre3D = true;
}

void SoCoordinateElement::print(FILE* fp) const {
  SoReplacedElement::print(fp);
  std::fprintf(fp, "    %d %s coordinates\n", numCoords, coordsAre3D ? "3D" : "4D");
}

void SoCoordinateElement::set3(SoState* state, SoNode* node, int32_t num, const SbVec3f* coords) {
  auto* elt = static_cast<SoCoordinateElement*>(SoReplacedElement::getElement(state, s_classStackIndex, node));
  if (!elt) return;
  elt->numCoords = coords ? std::max(num, 0) : 0;
  elt->coords3 = coords;
  elt->coords4 = nullptr;
  elt->coordsAre3D = true;
}

void SoCoordinateElement::set4(SoState* state, SoNode* node, int32_t num, const SbVec4f* coords) {
  auto* elt = static_cast<SoCoordinateElement*>(SoReplacedElement::getElement(state, s_classStackIndex, node));
  if (!elt) return;
  elt->numCoords = coords ? std::max(num, 0) : 0;
  elt->coords3 = nullptr;
  elt->coords4 = coords;
  elt->coordsAre3D = false;
}

const SoCoordinateElement* SoCoordinateElement::getInstance(SoState* state) {
  return static_cast<const SoCoordinateElement*>(getConstElement(state, s_classStackIndex));
}

const SbVec3f& SoCoordinateElement::getDefault3() { return kDefaultCoord3; }
const SbVec4f& SoCoordinateElement::getDefault4() { return kDefaultCoord4; }

const SbVec3f& SoCoordinateElement::get3(int index) const {
  if (numCoords <= 0) return kDefaultCoord3;
  index = clampIndex(index, numCoords);
  if (coordsAre3D) return coords3[index];
  const SbVec4f& h = coords4[index];
  const float w = h[3] != 0.0f ? h[3] : 1.0f;
  m_converted.setValue(h[0] / w, h[1] / w, h[2] / w);
  return m_converted;
}

const SbVec4f& SoCoordinateElement::get4(int index) const {
  if (numCoords <= 0) return kDefaultCoord4;
  index = clampIndex(index, numCoords);
  if (!coordsAre3D) return coords4[index];
  const SbVec3f& p = coords3[index];
  m_convertedW.setValue(p[0], p[1], p[2], 1.0f);
  return m_convertedW;
}

// ---- SoNormalElement ----------------------------------------------------------------

SO_ELEMENT_SOURCE(SoNormalElement)

SoNormalElement::SoNormalElement() { SO_ELEMENT_CONSTRUCTOR(SoNormalElement); }
SoNormalElement::~SoNormalElement() = default;

void SoNormalElement::initClass() { SO_ELEMENT_INIT_CLASS(SoNormalElement, SoReplacedElement); }

void SoNormalElement::init(SoState* state) {
  SoReplacedElement::init(state);
  numNormals = 0;
  normals = nullptr;
  unitLength = false;
}

void SoNormalElement::set(SoState* state, SoNode* node, int32_t num, const SbVec3f* values, bool isUnitLength) {
  auto* elt = static_cast<SoNormalElement*>(SoReplacedElement::getElement(state, s_classStackIndex, node));
  if (!elt) return;
  elt->numNormals = values ? std::max(num, 0) : 0;
  elt->normals = values;
  elt->unitLength = isUnitLength;
}

const SoNormalElement* SoNormalElement::getInstance(SoState* state) {
  return static_cast<const SoNormalElement*>(getConstElement(state, s_classStackIndex));
}

const SbVec3f& SoNormalElement::get(int index) const {
  if (numNormals <= 0) return kDefaultNormal;
  return normals[clampIndex(index, numNormals)];
}

// ---- SoTextureCoordinateElement -----------------------------------------------------

SO_ELEMENT_SOURCE(SoTextureCoordinateElement)

SoTextureCoordinateElement::SoTextureCoordinateElement() { SO_ELEMENT_CONSTRUCTOR(SoTextureCoordinateElement); }
SoTextureCoordinateElement::~SoTextureCoordinateElement() = default;

void SoTextureCoordinateElement::initClass() {
  SO_ELEMENT_INIT_CLASS(SoTextureCoordinateElement, SoReplacedElement);
}

void SoTextureCoordinateElement::init(SoState* state) {
  SoReplacedElement::init(state);
  whatKind = DEFAULT;
  function = nullptr;
  functionData = nullptr;
  numCoords = 0;
  dimension = 2;
  coords2 = nullptr;
  coords3 = nullptr;
  coords4 = nullptr;
}

void SoTextureCoordinateElement::setDefault(SoState* state, SoNode* node) {
  auto* elt = static_cast<SoTextureCoordinateElement*>(SoReplacedElement::getElement(state, s_classStackIndex, node));
  if (!elt) return;
  elt->whatKind = DEFAULT;
  elt->function = nullptr;
  elt->functionData = nullptr;
  elt->numCoords = 0;
}

void SoTextureCoordinateElement::setFunction(SoState* state, SoNode* node, FunctionCB* func, void* userData) {
  auto* elt = static_cast<SoTextureCoordinateElement*>(SoReplacedElement::getElement(state, s_classStackIndex, node));
  if (!elt) return;
  elt->whatKind = func ? FUNCTION : DEFAULT;
  elt->function = func;
  elt->functionData = userData;
  elt->numCoords = 0;
}

void SoTextureCoordinateElement::set2(SoState* state, SoNode* node, int32_t num, const SbVec2f* coords) {
  auto* elt = static_cast<SoTextureCoordinateElement*>(SoReplacedElement::getElement(state, s_classStackIndex, node));
  if (!elt) return;
  elt->whatKind = EXPLICIT;
  elt->numCoords = coords ? std::max(num, 0) : 0;
  elt->dimension = 2;
  elt->coords2 = coords;
}

void SoTextureCoordinateElement::set3(SoState* state, SoNode* node, int32_t num, const SbVec3f* coords) {
  auto* elt = static_cast<SoTextureCoordinateElement*>(SoReplacedElement::getElement(state, s_classStackIndex, node));
  if (!elt) return;
  elt->whatKind = EXPLICIT;
  elt->numCoords = coords ? std::max(num, 0) : 0;
  elt->dimension = 3;
  elt->coords3 = coords;
}

void SoTextureCoordinateElement::set4(SoState* state, SoNode* node, int32_t num, const SbVec4f* coords) {
  auto* elt = static_cast<SoTextureCoordinateElement*>(SoReplacedElement::getElement(state, s_classStackIndex, node));
  if (!elt) return;
  elt->whatKind = EXPLICIT;
  elt->numCoords = coords ? std::max(num, 0) : 0;
  elt->dimension = 4;
  elt->coords4 = coords;
}

SoTextureCoordinateElement::CoordType SoTextureCoordinateElement::getType(SoState* state) {
  const SoTextureCoordinateElement* elt = getInstance(state);
  return elt ? elt->getType() : DEFAULT;
}

const SoTextureCoordinateElement* SoTextureCoordinateElement::getInstance(SoState* state) {
  return static_cast<const SoTextureCoordinateElement*>(getConstElement(state, s_classStackIndex));
}

SoTextureCoordinateElement::CoordType SoTextureCoordinateElement::getType() const { return whatKind; }

SbVec4f SoTextureCoordinateElement::get4(int index) const {
  if (whatKind != EXPLICIT || numCoords <= 0) return SbVec4f(0.0f, 0.0f, 0.0f, 1.0f);
  index = clampIndex(index, numCoords);
  switch (dimension) {
    case 2:
      return SbVec4f(coords2[index][0], coords2[index][1], 0.0f, 1.0f);
    case 3:
      return SbVec4f(coords3[index][0], coords3[index][1], coords3[index][2], 1.0f);
    default:
      return coords4[index];
  }
}

SbVec2f SoTextureCoordinateElement::get2(int index) const {
  const SbVec4f v = get4(index);
  return SbVec2f(v[0], v[1]);
}

const SbVec4f& SoTextureCoordinateElement::get(const SbVec3f& point, const SbVec3f& normal) const {
  static const SbVec4f none(0.0f, 0.0f, 0.0f, 1.0f);
  if (whatKind != FUNCTION || !function) return none;
  return function(functionData, point, normal);
}
