#pragma once
#include <Orvex/SbVec2d.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a SbVec2d vector.
class SoMFVec2d : public SoMField {
  SO_MFIELD_HEADER(SoMFVec2d, SbVec2d, const SbVec2d&);

 public:
  void setValues(int start, int num, const double v[][2]);
  void set1Value(int index, double x, double y);
  void set1Value(int index, const double v[2]);
  void setValue(double x, double y);
  void setValue(const double v[2]);
};
