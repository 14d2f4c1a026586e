#pragma once
#include <Orvex/SoType.h>

#include <vector>

class SoAction;
class SoElement;

// The traversal state of an action: one stack of elements per stack index,
// holding elements of the types the action enables. push() and pop() bracket
// the part of a traversal whose changes must not leak out (a separator).
class SoState {
 public:
  // `enabledElements` holds one type per stack index (bad types for stacks
  // the action does not use).
  SoState(SoAction* action, const SoTypeList& enabledElements);
  ~SoState();
  SoState(const SoState&) = delete;
  SoState& operator=(const SoState&) = delete;

  SoAction* getAction() const { return m_action; }

  // The top element of a stack, pushed to the current depth so that it can
  // be changed; nullptr when the action does not enable that stack.
  SoElement* getElement(int stackIndex);
  // The top element of a stack, for reading.
  const SoElement* getConstElement(int stackIndex) const;
  // The top element of a stack, to be changed in place without a push (for
  // elements that keep bookkeeping valid at every depth, like open caches).
  SoElement* getElementNoPush(int stackIndex) const;
  bool isElementEnabled(int stackIndex) const;

  void push();
  void pop();
  int getDepth() const { return m_depth; }

  // Whether a cache is being built (elements then record what they are
  // read for); set by caching nodes.
  void setCacheOpen(bool flag) { m_cacheOpen = flag; }
  bool isCacheOpen() const { return m_cacheOpen; }

 private:
  SoAction* m_action;
  std::vector<SoElement*> m_stack;   // top element per stack index
  std::vector<SoElement*> m_bottom;  // the first element of each stack (owns the chain)
  std::vector<int> m_pushed;         // stack indices pushed, in order
  std::vector<size_t> m_marks;       // size of m_pushed at each push()
  int m_depth = 0;
  bool m_cacheOpen = false;
};
