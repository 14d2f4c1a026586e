#pragma once
#include <Orvex/elements/SoSubElement.h>

// Base of elements whose value is one float.
class SoFloatElement : public SoElement {
  SO_ELEMENT_ABSTRACT_HEADER(SoFloatElement);

 public:
  static void set(int stackIndex, SoState* state, float value);
  static float get(int stackIndex, SoState* state);
  virtual void setElt(float value) { data = value; }
  float getValue() const { return data; }

  void init(SoState* state) override;
  void push(SoState* state) override;
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;
  void print(FILE* fp) const override;

 protected:
  ~SoFloatElement() override;
  float data = 0;
};
