// Groups in the bounding-box, matrix and pick actions.

#include <Orvex/actions/SoGetBoundingBoxAction.h>
#include <Orvex/actions/SoGetMatrixAction.h>
#include <Orvex/actions/SoRayPickAction.h>
#include <Orvex/caches/SoBoundingBoxCache.h>
#include <Orvex/elements/SoBBoxModelMatrixElement.h>
#include <Orvex/elements/SoCacheElement.h>
#include <Orvex/elements/SoLocalBBoxMatrixElement.h>
#include <Orvex/misc/SoChildList.h>
#include <Orvex/nodes/SoGroup.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoSwitch.h>
#include <Orvex/nodes/SoTransformSeparator.h>

// ---- SoGroup ----------------------------------------------------------------------------

void SoGroup::getBoundingBox(SoGetBoundingBoxAction* action) {
  int numIndices;
  const int* indices;
  const int last = action->getPathCode(numIndices, indices) == SoAction::IN_PATH ? indices[numIndices - 1]
                                                                                 : getNumChildren() - 1;
  SbVec3f total(0.0f, 0.0f, 0.0f);
  int numCenters = 0;
  for (int i = 0; i <= last && i < getNumChildren(); ++i) {
    children.traverse(action, i);
    if (action->isCenterSet()) {
      total += action->getCenter();
      ++numCenters;
      action->resetCenter();
    }
    if (action->hasTerminated()) break;
  }
  if (numCenters > 0) action->setCenter(total / static_cast<float>(numCenters), false);
}

void SoGroup::getMatrix(SoGetMatrixAction* action) {
  int numIndices;
  const int* indices;
  switch (action->getPathCode(numIndices, indices)) {
    case SoAction::IN_PATH:
      children.traverse(action, 0, indices[numIndices - 1]);
      break;
    case SoAction::OFF_PATH:
      // Left of the path: what it changes reaches the path.
      children.traverse(action);
      break;
    default:
      break;
  }
}

// ---- SoSwitch ---------------------------------------------------------------------------

void SoSwitch::getBoundingBox(SoGetBoundingBoxAction* action) { doAction(action); }

void SoSwitch::getMatrix(SoGetMatrixAction* action) {
  int numIndices;
  const int* indices;
  const SoAction::PathCode code = action->getPathCode(numIndices, indices);
  if (code == SoAction::IN_PATH || code == SoAction::OFF_PATH) doAction(action);
}

// ---- SoTransformSeparator -----------------------------------------------------------------

void SoTransformSeparator::getBoundingBox(SoGetBoundingBoxAction* action) {
  SoState* state = action->getState();
  SbMatrix matrix, local;
  SoBBoxModelMatrixElement::pushMatrix(state, matrix, local);
  SoGroup::getBoundingBox(action);
  SoBBoxModelMatrixElement::popMatrix(state, matrix, local);
}

void SoTransformSeparator::getMatrix(SoGetMatrixAction* action) {
  int numIndices;
  const int* indices;
  if (action->getPathCode(numIndices, indices) == SoAction::IN_PATH) SoGroup::getMatrix(action);
}

// ---- SoSeparator --------------------------------------------------------------------------

namespace {
std::shared_ptr<SoBoundingBoxCache> newBBoxCache(SoState* state) {
  auto* cache = new SoBoundingBoxCache(state);
  cache->ref();
  return std::shared_ptr<SoBoundingBoxCache>(cache, [](SoBoundingBoxCache* c) { c->unref(); });
}

// The model matrix without making it a dependency of open caches.
SbMatrix currentModelMatrix(SoState* state) {
  const auto* elt =
      static_cast<const SoModelMatrixElement*>(state->getConstElement(SoModelMatrixElement::getClassStackIndex()));
  return elt ? elt->getModelMatrix() : SbMatrix::identity();
}
}  // namespace

std::shared_ptr<SoBoundingBoxCache> SoSeparator::validBBoxCache(SoState* state) {
  std::lock_guard<std::mutex> lock(m_bboxMutex);
  if (!m_bboxCache || m_bboxCacheNodeId != getNodeId() || !m_bboxCache->isValid(state)) return nullptr;
  return m_bboxCache;
}

void SoSeparator::getBoundingBox(SoGetBoundingBoxAction* action) {
  SoState* state = action->getState();
  int numIndices;
  const int* indices;
  const bool inPath = action->getPathCode(numIndices, indices) == SoAction::IN_PATH;
  // A cache holds the box of all the children in the separator's space; it
  // cannot stand for a part of them, for a reset path or for camera space.
  const bool canCache = boundingBoxCaching.getValue() != OFF && !inPath && !action->isResetPath() &&
                        !action->isInCameraSpace() && state &&
                        state->isElementEnabled(SoCacheElement::getClassStackIndex());
  if (canCache) {
    if (std::shared_ptr<SoBoundingBoxCache> cache = validBBoxCache(state)) {
      SoCacheElement::addCacheDependency(state, cache.get());
      action->extendBy(cache->getBox());
      if (cache->isCenterSet()) action->setCenter(cache->getCenter(), true);
      return;
    }
  }
  if (!state) {
    SoGroup::getBoundingBox(action);
    return;
  }
  const SbMatrix separatorMatrix = currentModelMatrix(state);
  state->push();
  std::shared_ptr<SoBoundingBoxCache> cache;
  const uint64_t nodeId = getNodeId();
  if (canCache) {
    cache = newBBoxCache(state);
    SoCacheElement::set(state, cache.get());
    SoLocalBBoxMatrixElement::makeIdentity(state);
    action->beginCacheCollection();
  }
  SoGroup::getBoundingBox(action);
  if (cache) {
    // What the children added, brought into the separator's space.
    SbXfBox3f box;
    action->endCacheCollection(box);
    const SbMatrix toLocal = separatorMatrix.inverse();
    if (!box.isEmpty()) box.transform(toLocal);
    SbVec3f center(0.0f, 0.0f, 0.0f);
    if (action->isCenterSet()) toLocal.multVecMatrix(action->getCenter(), center);
    cache->set(box, action->isCenterSet(), center);
  }
  state->pop();
  if (cache) {
    std::lock_guard<std::mutex> lock(m_bboxMutex);
    m_bboxCache = cache;
    m_bboxCacheNodeId = nodeId;
  }
}

void SoSeparator::rayPick(SoRayPickAction* action) {
  int numIndices;
  const int* indices;
  SoState* state = action->getState();
  // Culling needs the ray (from a camera met before, or given) and a box.
  if (pickCulling.getValue() != OFF && action->isCullingEnabled() && state && action->hasWorldSpaceRay() &&
      action->getPathCode(numIndices, indices) != SoAction::IN_PATH) {
    if (std::shared_ptr<SoBoundingBoxCache> cache = validBBoxCache(state)) {
      action->setObjectSpace();
      if (!action->intersect(cache->getProjectedBox(), true)) return;
    }
  }
  doAction(action);
}
