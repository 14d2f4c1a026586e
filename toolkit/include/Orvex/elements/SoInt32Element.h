#pragma once
#include <Orvex/elements/SoSubElement.h>

#include <cstdint>

// Base of elements whose value is one 32-bit integer.
class SoInt32Element : public SoElement {
  SO_ELEMENT_ABSTRACT_HEADER(SoInt32Element);

 public:
  // Sets the value of the element of that stack in the state.
  static void set(int stackIndex, SoState* state, int32_t value);
  static int32_t get(int stackIndex, SoState* state);
  virtual void setElt(int32_t value) { data = value; }
  int32_t getValue() const { return data; }

  void init(SoState* state) override;
  void push(SoState* state) override;
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;
  void print(FILE* fp) const override;

 protected:
  ~SoInt32Element() override;
  int32_t data = 0;
};
