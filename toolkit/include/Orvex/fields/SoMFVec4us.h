#pragma once
#include <Orvex/SbVec4us.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a SbVec4us vector.
class SoMFVec4us : public SoMField {
  SO_MFIELD_HEADER(SoMFVec4us, SbVec4us, const SbVec4us&);

 public:
  void setValues(int start, int num, const unsigned short v[][4]);
  void set1Value(int index, unsigned short x, unsigned short y, unsigned short z, unsigned short w);
  void set1Value(int index, const unsigned short v[4]);
  void setValue(unsigned short x, unsigned short y, unsigned short z, unsigned short w);
  void setValue(const unsigned short v[4]);
};
