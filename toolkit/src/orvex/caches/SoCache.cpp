#include <Orvex/caches/SoCache.h>

#include <Orvex/caches/SoBoundingBoxCache.h>
#include <Orvex/elements/SoElement.h>
#include <Orvex/misc/SoState.h>

#include <algorithm>

SoCache::SoCache(SoState* state) : m_depth(state ? state->getDepth() : 0) {}

SoCache::~SoCache() {
  for (SoElement* e : m_elements) delete e;
}

void SoCache::ref() { ++m_refCount; }

void SoCache::unref(SoState* state) {
  if (--m_refCount > 0) return;
  destroy(state);
  delete this;
}

void SoCache::addElement(const SoElement* elt) {
  if (!elt) return;
  const int index = elt->getStackIndex();
  if (std::find(m_stackIndices.begin(), m_stackIndices.end(), index) != m_stackIndices.end()) return;
  SoElement* copy = elt->copyMatchInfo();
  if (!copy) return;
  m_elements.push_back(copy);
  m_stackIndices.push_back(index);
  m_depths.push_back(elt->getDepth());
}

void SoCache::addCacheDependency(const SoCache* cache) {
  if (!cache || cache == this) return;
  if (cache->m_invalidated) m_invalidated = true;
  for (size_t i = 0; i < cache->m_elements.size(); ++i) {
    // Elements the inner cache depends on that were set inside this one's
    // part of the graph are this cache's own business.
    if (cache->m_depths[i] >= m_depth) continue;
    const int index = cache->m_stackIndices[i];
    if (std::find(m_stackIndices.begin(), m_stackIndices.end(), index) != m_stackIndices.end()) continue;
    SoElement* copy = cache->m_elements[i]->copyMatchInfo();
    if (!copy) continue;
    m_elements.push_back(copy);
    m_stackIndices.push_back(index);
    m_depths.push_back(cache->m_depths[i]);
  }
}

const SoElement* SoCache::getInvalidElement(const SoState* state) const {
  for (size_t i = 0; i < m_elements.size(); ++i) {
    const SoElement* current = state->getConstElement(m_stackIndices[i]);
    if (!current || !current->matches(m_elements[i])) return m_elements[i];
  }
  return nullptr;
}

bool SoCache::isValid(const SoState* state) const { return !m_invalidated && !getInvalidElement(state); }

// ---- SoBoundingBoxCache ---------------------------------------------------------------

SoBoundingBoxCache::SoBoundingBoxCache(SoState* state) : SoCache(state) {}
SoBoundingBoxCache::~SoBoundingBoxCache() = default;

void SoBoundingBoxCache::set(const SbXfBox3f& boundingBox, bool centerSet, const SbVec3f& centerPoint) {
  m_box = boundingBox;
  m_projectedBox = boundingBox.project();
  m_centerSet = centerSet;
  m_center = centerPoint;
}
