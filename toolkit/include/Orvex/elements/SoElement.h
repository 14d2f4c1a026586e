#pragma once
#include <Orvex/SoTypedObject.h>

#include <cstdio>

class SoState;

// One kind of traversal state (the current switch index, a transform, a
// material...). Elements of the same kind share a stack index; the state
// keeps one stack per index. When a node changes an element below the
// current depth of the state, the state pushes a new element (reusing one
// from an earlier push when it can), which copies what it needs from the
// element beneath it (push); a state pop restores the one beneath (pop).
class SoElement : public SoTypedObject {
 public:
  static SoType getClassTypeId();
  // The base starts no stack.
  static int getClassStackIndex() { return -1; }
  static void initClass();
  // Every element class of the toolkit.
  static void initElements();
  SoType getTypeId() const override { return m_typeId; }

  // Called once for the bottom element of each stack of a new state.
  virtual void init(SoState* state);
  // Called on an element that becomes the top of its stack.
  virtual void push(SoState* state);
  // Called on the element that becomes the top again when `prevTopElement`
  // is popped.
  virtual void pop(SoState* state, const SoElement* prevTopElement);
  // Whether this element would give a cache the same result as `elt`.
  virtual bool matches(const SoElement* elt) const = 0;
  // A copy holding what matches() compares.
  virtual SoElement* copyMatchInfo() const = 0;
  virtual void print(FILE* fp) const;
  ~SoElement() override;

  static int getNumStackIndices();
  static SoType getIdFromStackIndex(int stackIndex);
  int getStackIndex() const { return m_stackIndex; }
  int getDepth() const { return m_depth; }
  // The element beneath this one in its stack, and the element above it
  // kept for reuse (not in the stack).
  SoElement* getNextInStack() const { return m_nextInStack; }
  SoElement* getNextFree() const { return m_nextFree; }

 protected:
  SoElement();

  // The top element of a stack, pushed to the state's depth for changing.
  static SoElement* getElement(SoState* state, int stackIndex);
  // The top element of a stack, for reading.
  static const SoElement* getConstElement(SoState* state, int stackIndex);
  // Tells an open cache that it depends on this element.
  void capture(SoState* state) const;
  virtual void captureThis(SoState* state) const;

  void setTypeId(SoType id) { m_typeId = id; }
  void setStackIndex(int index) { m_stackIndex = index; }
  void setDepth(int depth) { m_depth = depth; }
  // Allocates a new stack index for an element class that starts a stack.
  static int createStackIndex(SoType id);

 private:
  friend class SoState;
  SoType m_typeId;
  int m_stackIndex = -1;
  int m_depth = 0;
  SoElement* m_nextInStack = nullptr;
  SoElement* m_nextFree = nullptr;
};
