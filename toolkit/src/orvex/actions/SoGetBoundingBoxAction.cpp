#include <Orvex/actions/SoGetBoundingBoxAction.h>

#include <Orvex/SoPath.h>
#include <Orvex/nodes/SoNode.h>
#include <Orvex/elements/SoBBoxModelMatrixElement.h>
#include <Orvex/elements/SoLocalBBoxMatrixElement.h>

#include "EnabledElements.h"

SO_ACTION_SOURCE(SoGetBoundingBoxAction)

void SoGetBoundingBoxAction::initClass() {
  SO_ACTION_INIT_CLASS(SoGetBoundingBoxAction, SoAction);
  SO_ACTION_ADD_METHOD(SoNode, &SoNode::getBoundingBoxS);
  orvex::enableShapeElements<SoGetBoundingBoxAction>();
  // The model matrix that also keeps the local (separator) matrix.
  SO_ENABLE(SoGetBoundingBoxAction, SoBBoxModelMatrixElement);
  SO_ENABLE(SoGetBoundingBoxAction, SoLocalBBoxMatrixElement);
}

SoGetBoundingBoxAction::SoGetBoundingBoxAction(const SbViewportRegion& region) : m_viewport(region) {
  SO_ACTION_CONSTRUCTOR(SoGetBoundingBoxAction);
}

SoGetBoundingBoxAction::~SoGetBoundingBoxAction() {
  if (m_resetPath) m_resetPath->unref();
}

void SoGetBoundingBoxAction::setViewportRegion(const SbViewportRegion& region) { m_viewport = region; }

void SoGetBoundingBoxAction::setResetPath(const SoPath* path, bool resetBefore, ResetType what) {
  auto* p = const_cast<SoPath*>(path);
  if (p) p->ref();
  if (m_resetPath) m_resetPath->unref();
  m_resetPath = p;
  m_resetBefore = resetBefore;
  m_resetWhat = what;
}

void SoGetBoundingBoxAction::beginTraversal(SoNode* node) {
  m_box = SbXfBox3f();
  m_centerSet = false;
  m_center.setValue(0.0f, 0.0f, 0.0f);
  m_collections.clear();
  SoViewportRegionElement::set(getState(), m_viewport);
  traverse(node);
}

const SbVec3f& SoGetBoundingBoxAction::getCenter() const {
  if (m_centerSet) return m_center;
  m_boxCenter = m_box.isEmpty() ? SbVec3f(0.0f, 0.0f, 0.0f) : m_box.getCenter();
  return m_boxCenter;
}

namespace {
// The model matrix, read without making it a dependency of open caches
// (cached boxes are kept in their separator's space).
const SbMatrix& modelMatrix(SoState* state) {
  static const SbMatrix identity = SbMatrix::identity();
  const auto* elt =
      static_cast<const SoModelMatrixElement*>(state->getConstElement(SoModelMatrixElement::getClassStackIndex()));
  return elt ? elt->getModelMatrix() : identity;
}

void extendXf(SbXfBox3f& into, const SbXfBox3f& box) {
  // An empty box takes the other's transformation, so that one shape's box
  // stays as tight as its own space allows.
  if (into.isEmpty())
    into = box;
  else
    into.extendBy(box);
}
}  // namespace

void SoGetBoundingBoxAction::addWorldBox(const SbXfBox3f& worldBox) {
  extendXf(m_box, worldBox);
  for (SbXfBox3f& c : m_collections) extendXf(c, worldBox);
}

void SoGetBoundingBoxAction::extendBy(const SbBox3f& box) {
  if (box.isEmpty()) return;
  SbXfBox3f xf(box);
  xf.setTransform(modelMatrix(getState()));
  addWorldBox(xf);
}

void SoGetBoundingBoxAction::extendBy(const SbXfBox3f& box) {
  if (box.isEmpty()) return;
  SbXfBox3f xf(box);
  xf.transform(modelMatrix(getState()));
  addWorldBox(xf);
}

void SoGetBoundingBoxAction::setCenter(const SbVec3f& center, bool transformCenter) {
  if (transformCenter)
    modelMatrix(getState()).multVecMatrix(center, m_center);
  else
    m_center = center;
  m_centerSet = true;
}

void SoGetBoundingBoxAction::resetCenter() {
  m_centerSet = false;
  m_center.setValue(0.0f, 0.0f, 0.0f);
}

void SoGetBoundingBoxAction::beginCacheCollection() { m_collections.emplace_back(); }

void SoGetBoundingBoxAction::endCacheCollection(SbXfBox3f& box) {
  if (m_collections.empty()) {
    box = SbXfBox3f();
    return;
  }
  box = m_collections.back();
  m_collections.pop_back();
}

// ---- the reset path -------------------------------------------------------------

bool SoGetBoundingBoxAction::isAtResetPath() {
  if (!m_resetPath || getCurPathLength() != m_resetPath->getLength() || getCurPathTail() != m_resetPath->getTail())
    return false;
  return *getCurPath() == *m_resetPath;
}

void SoGetBoundingBoxAction::applyReset() {
  if (m_resetWhat & TRANSFORM) SoBBoxModelMatrixElement::reset(getState(), getCurPathTail());
  if (m_resetWhat & BBOX) {
    m_box = SbXfBox3f();
    for (SbXfBox3f& c : m_collections) c = SbXfBox3f();
    resetCenter();
  }
}

void SoGetBoundingBoxAction::checkResetBefore() {
  if (m_resetPath && m_resetBefore && isAtResetPath()) applyReset();
}

void SoGetBoundingBoxAction::checkResetAfter() {
  if (m_resetPath && !m_resetBefore && isAtResetPath()) applyReset();
}
