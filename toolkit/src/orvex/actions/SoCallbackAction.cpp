#include <Orvex/actions/SoCallbackAction.h>

#include <Orvex/SoPath.h>
#include <Orvex/nodes/SoNode.h>
#include <Orvex/elements/SoFocalDistanceElement.h>
#include <Orvex/elements/SoSwitchElement.h>
#include <Orvex/nodes/SoShape.h>

#include <algorithm>

#include "EnabledElements.h"

SO_ACTION_SOURCE(SoCallbackAction)

void SoCallbackAction::initClass() {
  SO_ACTION_INIT_CLASS(SoCallbackAction, SoAction);
  SO_ACTION_ADD_METHOD(SoNode, &SoCallbackAction::traverseNode);
  orvex::enableShapeElements<SoCallbackAction>();
}

SoCallbackAction::SoCallbackAction() { SO_ACTION_CONSTRUCTOR(SoCallbackAction); }

SoCallbackAction::SoCallbackAction(const SbViewportRegion& region) : m_viewport(region) {
  SO_ACTION_CONSTRUCTOR(SoCallbackAction);
}

SoCallbackAction::~SoCallbackAction() = default;

void SoCallbackAction::beginTraversal(SoNode* node) {
  m_response = CONTINUE;
  SoViewportRegionElement::set(getState(), m_viewport);
  traverse(node);
}

// ---- registration -----------------------------------------------------------------

void SoCallbackAction::addPreCallback(SoType type, SoCallbackActionCB* cb, void* data) {
  m_pre.push_back({type, cb, data});
}
void SoCallbackAction::addPostCallback(SoType type, SoCallbackActionCB* cb, void* data) {
  m_post.push_back({type, cb, data});
}
void SoCallbackAction::addPreTailCallback(SoCallbackActionCB* cb, void* data) {
  m_preTail.push_back({SoType::badType(), cb, data});
}
void SoCallbackAction::addPostTailCallback(SoCallbackActionCB* cb, void* data) {
  m_postTail.push_back({SoType::badType(), cb, data});
}
void SoCallbackAction::addTriangleCallback(SoType type, SoTriangleCB* cb, void* data) {
  m_triangle.push_back({type, cb, data});
  m_matchValid = false;
}
void SoCallbackAction::addLineSegmentCallback(SoType type, SoLineSegmentCB* cb, void* data) {
  m_lineSegment.push_back({type, cb, data});
  m_matchValid = false;
}
void SoCallbackAction::addPointCallback(SoType type, SoPointCB* cb, void* data) {
  m_point.push_back({type, cb, data});
  m_matchValid = false;
}

template <class F>
void SoCallbackAction::removeEntry(std::vector<Entry<F>>& list, SoType type, F* cb, void* data) {
  for (auto it = list.begin(); it != list.end(); ++it) {
    if (it->type == type && it->function == cb && it->data == data) {
      list.erase(it);
      return;
    }
  }
}

void SoCallbackAction::removePreCallback(SoType type, SoCallbackActionCB* cb, void* data) {
  removeEntry(m_pre, type, cb, data);
}
void SoCallbackAction::removePostCallback(SoType type, SoCallbackActionCB* cb, void* data) {
  removeEntry(m_post, type, cb, data);
}
void SoCallbackAction::removePreTailCallback(SoCallbackActionCB* cb, void* data) {
  removeEntry(m_preTail, SoType::badType(), cb, data);
}
void SoCallbackAction::removePostTailCallback(SoCallbackActionCB* cb, void* data) {
  removeEntry(m_postTail, SoType::badType(), cb, data);
}
void SoCallbackAction::removeTriangleCallback(SoType type, SoTriangleCB* cb, void* data) {
  removeEntry(m_triangle, type, cb, data);
  m_matchValid = false;
}
void SoCallbackAction::removeLineSegmentCallback(SoType type, SoLineSegmentCB* cb, void* data) {
  removeEntry(m_lineSegment, type, cb, data);
  m_matchValid = false;
}
void SoCallbackAction::removePointCallback(SoType type, SoPointCB* cb, void* data) {
  removeEntry(m_point, type, cb, data);
  m_matchValid = false;
}

void SoCallbackAction::clearCallbacks() {
  m_pre.clear();
  m_post.clear();
  m_preTail.clear();
  m_postTail.clear();
  m_triangle.clear();
  m_lineSegment.clear();
  m_point.clear();
  m_matchValid = false;
}

// ---- traversal --------------------------------------------------------------------

bool SoCallbackAction::isAtPathTail(const SoNode* node) {
  if (getWhatAppliedTo() == NODE) return false;
  const SoPath* path = getPathAppliedTo();
  return path && getCurPathCode() == BELOW_PATH && getCurPathLength() == path->getLength() && node == path->getTail();
}

namespace {
// Calls each callback for the node in turn; the first that does not answer
// CONTINUE decides.
template <class Entries>
SoCallbackAction::Response callEach(const Entries& entries, SoCallbackAction* action, const SoNode* node,
                                    bool byType) {
  // A copy: callbacks may register or remove callbacks.
  const Entries copy = entries;
  for (const auto& e : copy) {
    if (byType && !node->isOfType(e.type)) continue;
    const SoCallbackAction::Response r = e.function(e.data, action, node);
    if (r != SoCallbackAction::CONTINUE) return r;
  }
  return SoCallbackAction::CONTINUE;
}
}  // namespace

void SoCallbackAction::invokePreCallbacks(const SoNode* node) {
  m_response = callEach(m_pre, this, node, true);
  if (m_response == ABORT) setTerminated(true);
}

void SoCallbackAction::invokePostCallbacks(const SoNode* node) {
  m_response = callEach(m_post, this, node, true);
  if (m_response == ABORT) setTerminated(true);
}

void SoCallbackAction::traverseNode(SoAction* action, SoNode* node) {
  auto* self = static_cast<SoCallbackAction*>(action);
  const bool tail = !self->m_preTail.empty() || !self->m_postTail.empty() ? self->isAtPathTail(node) : false;
  if (tail) {
    self->m_response = callEach(self->m_preTail, self, node, false);
    if (self->m_response == ABORT) {
      self->setTerminated(true);
      return;
    }
  }
  bool prune = tail && self->m_response == PRUNE;
  if (!prune) {
    self->invokePreCallbacks(node);
    if (self->m_response == ABORT) return;
    prune = self->m_response == PRUNE;
  }
  if (!prune) node->callback(self);
  if (self->hasTerminated()) return;
  self->invokePostCallbacks(node);
  if (self->m_response == ABORT || !tail) return;
  self->m_response = callEach(self->m_postTail, self, node, false);
  if (self->m_response == ABORT) self->setTerminated(true);
}

bool SoCallbackAction::shouldGeneratePrimitives(const SoShape* shape) const {
  auto matches = [shape](const auto& list) {
    return std::any_of(list.begin(), list.end(), [shape](const auto& e) { return shape->isOfType(e.type); });
  };
  return matches(m_triangle) || matches(m_lineSegment) || matches(m_point);
}

void SoCallbackAction::matchShape(const SoShape* shape) {
  const SoType type = shape->getTypeId();
  if (m_matchValid && type == m_matchedType) return;
  m_shapeTriangle.clear();
  m_shapeLineSegment.clear();
  m_shapePoint.clear();
  for (const auto& e : m_triangle)
    if (type.isDerivedFrom(e.type)) m_shapeTriangle.push_back(e);
  for (const auto& e : m_lineSegment)
    if (type.isDerivedFrom(e.type)) m_shapeLineSegment.push_back(e);
  for (const auto& e : m_point)
    if (type.isDerivedFrom(e.type)) m_shapePoint.push_back(e);
  m_matchedType = type;
  m_matchValid = true;
}

void SoCallbackAction::invokeTriangleCallbacks(const SoShape* shape, const SoPrimitiveVertex* v1,
                                               const SoPrimitiveVertex* v2, const SoPrimitiveVertex* v3) {
  matchShape(shape);
  for (const auto& e : m_shapeTriangle) e.function(e.data, this, v1, v2, v3);
}

void SoCallbackAction::invokeLineSegmentCallbacks(const SoShape* shape, const SoPrimitiveVertex* v1,
                                                  const SoPrimitiveVertex* v2) {
  matchShape(shape);
  for (const auto& e : m_shapeLineSegment) e.function(e.data, this, v1, v2);
}

void SoCallbackAction::invokePointCallbacks(const SoShape* shape, const SoPrimitiveVertex* v) {
  matchShape(shape);
  for (const auto& e : m_shapePoint) e.function(e.data, this, v);
}

// ---- the state --------------------------------------------------------------------

float SoCallbackAction::getComplexity() const { return SoComplexityElement::get(getState()); }
SoComplexityTypeElement::Type SoCallbackAction::getComplexityType() const {
  return SoComplexityTypeElement::get(getState());
}
int32_t SoCallbackAction::getNumCoordinates() const { return SoCoordinateElement::getInstance(getState())->getNum(); }
const SbVec3f& SoCallbackAction::getCoordinate3(int index) const {
  return SoCoordinateElement::getInstance(getState())->get3(index);
}
const SbVec4f& SoCallbackAction::getCoordinate4(int index) const {
  return SoCoordinateElement::getInstance(getState())->get4(index);
}
SoDrawStyleElement::Style SoCallbackAction::getDrawStyle() const { return SoDrawStyleElement::get(getState()); }
unsigned short SoCallbackAction::getLinePattern() const {
  return static_cast<unsigned short>(SoLinePatternElement::get(getState()));
}
float SoCallbackAction::getLineWidth() const { return SoLineWidthElement::get(getState()); }
float SoCallbackAction::getPointSize() const { return SoPointSizeElement::get(getState()); }
const SbName& SoCallbackAction::getFontName() const { return SoFontNameElement::get(getState()); }
float SoCallbackAction::getFontSize() const { return SoFontSizeElement::get(getState()); }
SoLazyElement::LightModel SoCallbackAction::getLightModel() const {
  return static_cast<SoLazyElement::LightModel>(SoLazyElement::getLightModel(getState()));
}

void SoCallbackAction::getMaterial(SbColor& ambient, SbColor& diffuse, SbColor& specular, SbColor& emission,
                                   float& shininess, float& transparency, int materialIndex) const {
  SoState* state = getState();
  ambient = SoLazyElement::getAmbient(state);
  diffuse = SoLazyElement::getDiffuse(state, materialIndex);
  specular = SoLazyElement::getSpecular(state);
  emission = SoLazyElement::getEmissive(state);
  shininess = SoLazyElement::getShininess(state);
  transparency = SoLazyElement::getTransparency(state, materialIndex);
}

SoMaterialBindingElement::Binding SoCallbackAction::getMaterialBinding() const {
  return SoMaterialBindingElement::get(getState());
}
int32_t SoCallbackAction::getNumNormals() const { return SoNormalElement::getInstance(getState())->getNum(); }
const SbVec3f& SoCallbackAction::getNormal(int index) const {
  return SoNormalElement::getInstance(getState())->get(index);
}
SoNormalBindingElement::Binding SoCallbackAction::getNormalBinding() const {
  return SoNormalBindingElement::get(getState());
}
int32_t SoCallbackAction::getNumTextureCoordinates() const {
  return SoTextureCoordinateElement::getInstance(getState())->getNum();
}
SbVec2f SoCallbackAction::getTextureCoordinate2(int index) const {
  return SoTextureCoordinateElement::getInstance(getState())->get2(index);
}
SbVec4f SoCallbackAction::getTextureCoordinate4(int index) const {
  return SoTextureCoordinateElement::getInstance(getState())->get4(index);
}
SoTextureCoordinateBindingElement::Binding SoCallbackAction::getTextureCoordinateBinding() const {
  return SoTextureCoordinateBindingElement::get(getState());
}
const SbMatrix& SoCallbackAction::getTextureMatrix() const { return SoTextureMatrixElement::get(getState()); }
const SbMatrix& SoCallbackAction::getModelMatrix() const { return SoModelMatrixElement::get(getState()); }
SoUnitsElement::Units SoCallbackAction::getUnits() const { return SoUnitsElement::get(getState()); }
float SoCallbackAction::getFocalDistance() const { return SoFocalDistanceElement::get(getState()); }
const SbMatrix& SoCallbackAction::getProjectionMatrix() const { return SoProjectionMatrixElement::get(getState()); }
const SbMatrix& SoCallbackAction::getViewingMatrix() const { return SoViewingMatrixElement::get(getState()); }
const SbViewVolume& SoCallbackAction::getViewVolume() const { return SoViewVolumeElement::get(getState()); }
SoPickStyleElement::Style SoCallbackAction::getPickStyle() const { return SoPickStyleElement::get(getState()); }
int32_t SoCallbackAction::getSwitch() const { return SoSwitchElement::get(getState()); }

SoShapeHintsElement::VertexOrderings SoCallbackAction::getVertexOrdering() const {
  SoShapeHintsElement::VertexOrderings o;
  SoShapeHintsElement::ShapeTypes s;
  SoShapeHintsElement::FaceTypes f;
  SoShapeHintsElement::get(getState(), o, s, f);
  return o;
}
SoShapeHintsElement::ShapeTypes SoCallbackAction::getShapeType() const {
  SoShapeHintsElement::VertexOrderings o;
  SoShapeHintsElement::ShapeTypes s;
  SoShapeHintsElement::FaceTypes f;
  SoShapeHintsElement::get(getState(), o, s, f);
  return s;
}
SoShapeHintsElement::FaceTypes SoCallbackAction::getFaceType() const {
  SoShapeHintsElement::VertexOrderings o;
  SoShapeHintsElement::ShapeTypes s;
  SoShapeHintsElement::FaceTypes f;
  SoShapeHintsElement::get(getState(), o, s, f);
  return f;
}
float SoCallbackAction::getCreaseAngle() const { return SoCreaseAngleElement::get(getState()); }
