#include <Orvex/misc/SoState.h>

#include <Orvex/elements/SoElement.h>

SoState::SoState(SoAction* action, const SoTypeList& enabledElements) : m_action(action) {
  const int n = enabledElements.getLength();
  m_stack.assign(static_cast<size_t>(n), nullptr);
  m_bottom.assign(static_cast<size_t>(n), nullptr);
  for (int i = 0; i < n; ++i) {
    const SoType type = enabledElements[i];
    if (type.isBad() || !type.canCreateInstance()) continue;
    auto* elt = static_cast<SoElement*>(type.createInstance());
    elt->setDepth(0);
    m_stack[static_cast<size_t>(i)] = m_bottom[static_cast<size_t>(i)] = elt;
    elt->init(this);
  }
}

SoState::~SoState() {
  // Each stack is a chain from its bottom element through the free ones above.
  for (SoElement* elt : m_bottom) {
    while (elt) {
      SoElement* next = elt->m_nextFree;
      delete elt;
      elt = next;
    }
  }
}

bool SoState::isElementEnabled(int stackIndex) const {
  return stackIndex >= 0 && static_cast<size_t>(stackIndex) < m_stack.size() && m_stack[static_cast<size_t>(stackIndex)];
}

SoElement* SoState::getElement(int stackIndex) {
  if (!isElementEnabled(stackIndex)) return nullptr;
  SoElement*& top = m_stack[static_cast<size_t>(stackIndex)];
  if (top->m_depth >= m_depth) return top;
  // Push: reuse the element kept above the top, or make one.
  SoElement* elt = top->m_nextFree;
  if (!elt) {
    elt = static_cast<SoElement*>(top->getTypeId().createInstance());
    elt->m_nextInStack = top;
    top->m_nextFree = elt;
  }
  elt->m_depth = m_depth;
  top = elt;
  m_pushed.push_back(stackIndex);
  elt->push(this);
  return elt;
}

const SoElement* SoState::getConstElement(int stackIndex) const {
  return isElementEnabled(stackIndex) ? m_stack[static_cast<size_t>(stackIndex)] : nullptr;
}

SoElement* SoState::getElementNoPush(int stackIndex) const {
  return isElementEnabled(stackIndex) ? m_stack[static_cast<size_t>(stackIndex)] : nullptr;
}

void SoState::push() {
  m_marks.push_back(m_pushed.size());
  ++m_depth;
}

void SoState::pop() {
  if (m_marks.empty()) return;
  const size_t mark = m_marks.back();
  m_marks.pop_back();
  while (m_pushed.size() > mark) {
    const int index = m_pushed.back();
    m_pushed.pop_back();
    SoElement* popped = m_stack[static_cast<size_t>(index)];
    SoElement* below = popped->m_nextInStack;
    m_stack[static_cast<size_t>(index)] = below;
    below->pop(this, popped);
  }
  --m_depth;
}
