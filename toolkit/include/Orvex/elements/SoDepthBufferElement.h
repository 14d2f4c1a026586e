#pragma once
#include <Orvex/SbVec2f.h>
#include <Orvex/elements/SoSubElement.h>

// How the depth buffer is used: whether depth is tested and written, the
// comparison, and the range depths map to.
class SoDepthBufferElement : public SoElement {
  SO_ELEMENT_HEADER(SoDepthBufferElement);

 public:
  enum DepthWriteFunctions { NEVER, LESS, EQUAL, LEQUAL, GREATER, NOTEQUAL, GEQUAL, ALWAYS };

  void init(SoState* state) override;
  void push(SoState* state) override;
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;

  static void set(SoState* state, bool test, bool write, DepthWriteFunctions function, const SbVec2f& range);
  static void get(SoState* state, bool& test, bool& write, DepthWriteFunctions& function, SbVec2f& range);
  static bool getDefaultTest() { return true; }
  static bool getDefaultWrite() { return true; }
  static DepthWriteFunctions getDefaultFunction() { return LESS; }
  static SbVec2f getDefaultRange() { return SbVec2f(0.0f, 1.0f); }

 protected:
  ~SoDepthBufferElement() override;
  virtual void setElt(bool test, bool write, DepthWriteFunctions function, const SbVec2f& range);

  bool test = true;
  bool write = true;
  DepthWriteFunctions function = LESS;
  SbVec2f range;
};
