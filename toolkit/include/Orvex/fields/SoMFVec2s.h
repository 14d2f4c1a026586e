#pragma once
#include <Orvex/SbVec2s.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a SbVec2s vector.
class SoMFVec2s : public SoMField {
  SO_MFIELD_HEADER(SoMFVec2s, SbVec2s, const SbVec2s&);

 public:
  void setValues(int start, int num, const short v[][2]);
  void set1Value(int index, short x, short y);
  void set1Value(int index, const short v[2]);
  void setValue(short x, short y);
  void setValue(const short v[2]);
};
