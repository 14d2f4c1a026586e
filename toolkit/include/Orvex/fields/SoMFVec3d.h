#pragma once
#include <Orvex/SbVec3d.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a SbVec3d vector.
class SoMFVec3d : public SoMField {
  SO_MFIELD_HEADER(SoMFVec3d, SbVec3d, const SbVec3d&);

 public:
  void setValues(int start, int num, const double v[][3]);
  void set1Value(int index, double x, double y, double z);
  void set1Value(int index, const double v[3]);
  void setValue(double x, double y, double z);
  void setValue(const double v[3]);
};
