#pragma once
#include <Orvex/SbRotation.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a rotation (axis and angle in radians in files).
class SoSFRotation : public SoSField {
  SO_SFIELD_HEADER(SoSFRotation, SbRotation, const SbRotation&);

 public:
  void setValue(const SbVec3f& axis, float angle);
  void setValue(float q0, float q1, float q2, float q3);
  void setValue(const float q[4]);
  void getValue(SbVec3f& axis, float& angle) const;
};
