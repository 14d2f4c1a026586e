#pragma once
#include <Orvex/SbVec4d.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a SbVec4d vector.
class SoMFVec4d : public SoMField {
  SO_MFIELD_HEADER(SoMFVec4d, SbVec4d, const SbVec4d&);

 public:
  void setValues(int start, int num, const double v[][4]);
  void set1Value(int index, double x, double y, double z, double w);
  void set1Value(int index, const double v[4]);
  void setValue(double x, double y, double z, double w);
  void setValue(const double v[4]);
};
