#pragma once
#include <Orvex/SbVec4s.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a SbVec4s vector.
class SoMFVec4s : public SoMField {
  SO_MFIELD_HEADER(SoMFVec4s, SbVec4s, const SbVec4s&);

 public:
  void setValues(int start, int num, const short v[][4]);
  void set1Value(int index, short x, short y, short z, short w);
  void set1Value(int index, const short v[4]);
  void setValue(short x, short y, short z, short w);
  void setValue(const short v[4]);
};
