#pragma once
#include <Orvex/SbVec2f.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a SbVec2f vector.
class SoMFVec2f : public SoMField {
  SO_MFIELD_HEADER(SoMFVec2f, SbVec2f, const SbVec2f&);

 public:
  void setValues(int start, int num, const float v[][2]);
  void set1Value(int index, float x, float y);
  void set1Value(int index, const float v[2]);
  void setValue(float x, float y);
  void setValue(const float v[2]);
};
