#pragma once
#include <Orvex/SbVec3s.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a SbVec3s vector.
class SoMFVec3s : public SoMField {
  SO_MFIELD_HEADER(SoMFVec3s, SbVec3s, const SbVec3s&);

 public:
  void setValues(int start, int num, const short v[][3]);
  void set1Value(int index, short x, short y, short z);
  void set1Value(int index, const short v[3]);
  void setValue(short x, short y, short z);
  void setValue(const short v[3]);
};
