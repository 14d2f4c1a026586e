// The element registry: every element class declared with SO_ELEMENT_SOURCE
// or SO_ELEMENT_ABSTRACT_SOURCE puts its initClass() here when the library
// (or a library that adds element classes) is loaded.

#include <Orvex/elements/SoSubElement.h>

#include <mutex>
#include <vector>

namespace {

struct Registry {
  std::recursive_mutex mutex;
  std::vector<void (*)()> initFunctions;
  bool initialized = false;  // initElements() has run: new classes start at once
};

Registry& registry() {
  static Registry* instance = new Registry;  // outlives static destructors
  return *instance;
}

}  // namespace

namespace orvex {

bool registerElementClass(void (*initClass)()) {
  Registry& r = registry();
  std::lock_guard<std::recursive_mutex> lock(r.mutex);
  r.initFunctions.push_back(initClass);
  if (r.initialized) initClass();
  return true;
}

}  // namespace orvex

void SoElement::initElements() {
  Registry& r = registry();
  std::lock_guard<std::recursive_mutex> lock(r.mutex);
  initClass();
  // Each initClass() sets up its parent first, so the order of
  // registration does not matter.
  for (size_t i = 0; i < r.initFunctions.size(); ++i) r.initFunctions[i]();
  r.initialized = true;
}
