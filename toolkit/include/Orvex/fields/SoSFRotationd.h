#pragma once
#include <Orvex/SbRotation.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a double-precision rotation.
class SoSFRotationd : public SoSField {
  SO_SFIELD_HEADER(SoSFRotationd, SbRotationd, const SbRotationd&);

 public:
  void setValue(const SbVec3d& axis, double angle);
  void setValue(double q0, double q1, double q2, double q3);
  void setValue(const double q[4]);
  void getValue(SbVec3d& axis, double& angle) const;
};
