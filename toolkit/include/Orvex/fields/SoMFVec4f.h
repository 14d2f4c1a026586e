#pragma once
#include <Orvex/SbVec4f.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a SbVec4f vector.
class SoMFVec4f : public SoMField {
  SO_MFIELD_HEADER(SoMFVec4f, SbVec4f, const SbVec4f&);

 public:
  void setValues(int start, int num, const float v[][4]);
  void set1Value(int index, float x, float y, float z, float w);
  void set1Value(int index, const float v[4]);
  void setValue(float x, float y, float z, float w);
  void setValue(const float v[4]);
};
