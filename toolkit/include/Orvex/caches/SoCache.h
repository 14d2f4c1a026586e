#pragma once
#include <Orvex/SbBase.h>

#include <atomic>
#include <vector>

class SoElement;
class SoState;

// What a cache needs to know to be reused: the elements its result depended
// on (copies holding their match information). The cache is valid in a
// state where every one of them matches the state's current element, until
// it is invalidated. Caches are reference counted.
class SoCache {
 public:
  SoCache(SoState* state);
  SoCache(const SoCache&) = delete;
  SoCache& operator=(const SoCache&) = delete;

  void ref();
  void unref(SoState* state = nullptr);

  // Records a dependency (once per stack).
  void addElement(const SoElement* elt);
  // Takes over the dependencies of another cache.
  void addCacheDependency(const SoCache* cache);
  virtual bool isValid(const SoState* state) const;
  // The first dependency that does not match `state`, or null.
  const SoElement* getInvalidElement(const SoState* state) const;
  void invalidate() { m_invalidated = true; }
  int getNumDependencies() const { return static_cast<int>(m_elements.size()); }
  // The depth of the state at which the cache was opened.
  int getDepth() const { return m_depth; }

 protected:
  virtual ~SoCache();
  virtual void destroy(SoState* state) {}

 private:
  std::vector<SoElement*> m_elements;  // owned copies
  std::vector<int> m_stackIndices;     // of m_elements
  std::vector<int> m_depths;           // state depth at which each was set
  std::atomic<int> m_refCount{0};
  int m_depth = 0;
  bool m_invalidated = false;
};
