#pragma once
#include <Orvex/elements/SoSubElement.h>

class SoCache;

// The caches being built: a separator that builds a cache sets it here
// after pushing the state. Elements read while a cache is open (set outside
// the cache's part of the graph) become the cache's dependencies; a cache
// is valid later only where those elements match again.
class SoCacheElement : public SoElement {
  SO_ELEMENT_HEADER(SoCacheElement);

 public:
  void init(SoState* state) override;
  void push(SoState* state) override;
  void pop(SoState* state, const SoElement* prevTopElement) override;
  // Never compared: a cache does not depend on which caches are open.
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;

  // Opens `cache` at the current depth (the element takes a reference).
  static void set(SoState* state, SoCache* cache);
  SoCache* getCache() const { return cache; }
  // The innermost open cache, or null.
  static SoCache* getCurrentCache(SoState* state);
  static bool anyOpen(SoState* state);
  // Something happened that no cache can record: every open cache becomes
  // invalid.
  static void invalidate(SoState* state);
  // Makes `elt` a dependency of every open cache it was set outside of.
  static void addElement(SoState* state, const SoElement* elt);
  // Makes the dependencies of a (valid) inner cache those of the open ones.
  static void addCacheDependency(SoState* state, SoCache* cache);

 protected:
  ~SoCacheElement() override;

  SoCache* cache = nullptr;
};
