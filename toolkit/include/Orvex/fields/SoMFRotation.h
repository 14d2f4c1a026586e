#pragma once
#include <Orvex/SbRotation.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a rotation (axis and angle in radians in files).
class SoMFRotation : public SoMField {
  SO_MFIELD_HEADER(SoMFRotation, SbRotation, const SbRotation&);

 public:
  void set1Value(int index, const SbVec3f& axis, float angle);
  void set1Value(int index, float q0, float q1, float q2, float q3);
  void set1Value(int index, const float q[4]);
  void setValue(const SbVec3f& axis, float angle);
  void setValue(float q0, float q1, float q2, float q3);
  void setValue(const float q[4]);
};
