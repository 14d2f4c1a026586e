#pragma once
#include <Orvex/SbRotation.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a double-precision rotation.
class SoMFRotationd : public SoMField {
  SO_MFIELD_HEADER(SoMFRotationd, SbRotationd, const SbRotationd&);

 public:
  void set1Value(int index, const SbVec3d& axis, double angle);
  void set1Value(int index, double q0, double q1, double q2, double q3);
  void set1Value(int index, const double q[4]);
  void setValue(const SbVec3d& axis, double angle);
  void setValue(double q0, double q1, double q2, double q3);
  void setValue(const double q[4]);
};
