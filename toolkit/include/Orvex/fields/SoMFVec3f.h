#pragma once
#include <Orvex/SbVec3f.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a SbVec3f vector.
class SoMFVec3f : public SoMField {
  SO_MFIELD_HEADER(SoMFVec3f, SbVec3f, const SbVec3f&);

 public:
  void setValues(int start, int num, const float v[][3]);
  void set1Value(int index, float x, float y, float z);
  void set1Value(int index, const float v[3]);
  void setValue(float x, float y, float z);
  void setValue(const float v[3]);
};
