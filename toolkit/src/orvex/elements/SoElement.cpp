#include <Orvex/elements/SoElement.h>

#include <Orvex/elements/SoCacheElement.h>
#include <Orvex/misc/SoState.h>

#include <mutex>
#include <vector>

namespace {
SoType s_elementType;
// The element type that started each stack.
std::mutex s_stackMutex;
std::vector<SoType> s_stackTypes;
}  // namespace

SoElement::SoElement() = default;
SoElement::~SoElement() = default;

SoType SoElement::getClassTypeId() { return s_elementType; }

void SoElement::initClass() {
  SoTypedObject::initClass();
  if (s_elementType.isBad()) s_elementType = SoType::createType(SoTypedObject::getClassTypeId(), "SoElement");
}

void SoElement::init(SoState*) {}
void SoElement::push(SoState*) {}
void SoElement::pop(SoState*, const SoElement*) {}

void SoElement::print(FILE* fp) const {
  std::fprintf(fp, "Element: %s (stack %d, depth %d)\n", getTypeId().getName().getString(), m_stackIndex, m_depth);
}

int SoElement::getNumStackIndices() {
  std::lock_guard<std::mutex> lock(s_stackMutex);
  return static_cast<int>(s_stackTypes.size());
}

SoType SoElement::getIdFromStackIndex(int stackIndex) {
  std::lock_guard<std::mutex> lock(s_stackMutex);
  return stackIndex >= 0 && static_cast<size_t>(stackIndex) < s_stackTypes.size()
             ? s_stackTypes[static_cast<size_t>(stackIndex)]
             : SoType::badType();
}

int SoElement::createStackIndex(SoType id) {
  std::lock_guard<std::mutex> lock(s_stackMutex);
  s_stackTypes.push_back(id);
  return static_cast<int>(s_stackTypes.size()) - 1;
}

SoElement* SoElement::getElement(SoState* state, int stackIndex) { return state->getElement(stackIndex); }

const SoElement* SoElement::getConstElement(SoState* state, int stackIndex) {
  const SoElement* elt = state->getConstElement(stackIndex);
  if (elt) elt->capture(state);
  return elt;
}

void SoElement::capture(SoState* state) const {
  if (state->isCacheOpen()) captureThis(state);
}

// An element read while caches are open becomes a dependency of those it
// was set outside of.
void SoElement::captureThis(SoState* state) const { SoCacheElement::addElement(state, this); }
