#include <Orvex/elements/SoCacheElement.h>

#include <Orvex/caches/SoCache.h>

SO_ELEMENT_SOURCE(SoCacheElement)

SoCacheElement::SoCacheElement() { SO_ELEMENT_CONSTRUCTOR(SoCacheElement); }

SoCacheElement::~SoCacheElement() {
  if (cache) cache->unref();
}

void SoCacheElement::initClass() { SO_ELEMENT_INIT_CLASS(SoCacheElement, SoElement); }

void SoCacheElement::init(SoState*) { cache = nullptr; }

// A pushed element opens no cache until set() gives it one.
void SoCacheElement::push(SoState*) {
  if (cache) cache->unref();
  cache = nullptr;
}

namespace {
bool openInChain(const SoElement* elt) {
  for (; elt; elt = elt->getNextInStack())
    if (static_cast<const SoCacheElement*>(elt)->getCache()) return true;
  return false;
}
}  // namespace

void SoCacheElement::pop(SoState* state, const SoElement* prevTopElement) {
  // The popped element's cache is closed: let it go.
  auto* popped = const_cast<SoCacheElement*>(static_cast<const SoCacheElement*>(prevTopElement));
  if (popped->cache) popped->cache->unref(state);
  popped->cache = nullptr;
  state->setCacheOpen(openInChain(this));
}

bool SoCacheElement::matches(const SoElement*) const { return false; }

SoElement* SoCacheElement::copyMatchInfo() const { return nullptr; }

void SoCacheElement::set(SoState* state, SoCache* newCache) {
  auto* elt = static_cast<SoCacheElement*>(getElement(state, s_classStackIndex));
  if (!elt) return;
  if (newCache) newCache->ref();
  if (elt->cache) elt->cache->unref(state);
  elt->cache = newCache;
  state->setCacheOpen(openInChain(elt));
}

SoCache* SoCacheElement::getCurrentCache(SoState* state) {
  const auto* elt = static_cast<const SoCacheElement*>(state->getConstElement(s_classStackIndex));
  return elt ? elt->cache : nullptr;
}

bool SoCacheElement::anyOpen(SoState* state) { return openInChain(state->getConstElement(s_classStackIndex)); }

void SoCacheElement::invalidate(SoState* state) {
  for (const SoElement* e = state->getConstElement(s_classStackIndex); e; e = e->getNextInStack())
    if (SoCache* c = static_cast<const SoCacheElement*>(e)->cache) c->invalidate();
}

void SoCacheElement::addElement(SoState* state, const SoElement* elt) {
  for (const SoElement* e = state->getConstElement(s_classStackIndex); e; e = e->getNextInStack()) {
    SoCache* c = static_cast<const SoCacheElement*>(e)->cache;
    // Only what was set outside the cache's part of the graph is a
    // dependency; the rest the cache's own nodes set every time.
    if (c && elt->getDepth() < e->getDepth()) c->addElement(elt);
  }
}

void SoCacheElement::addCacheDependency(SoState* state, SoCache* inner) {
  for (const SoElement* e = state->getConstElement(s_classStackIndex); e; e = e->getNextInStack())
    if (SoCache* c = static_cast<const SoCacheElement*>(e)->cache) c->addCacheDependency(inner);
}
