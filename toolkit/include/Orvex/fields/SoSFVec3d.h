#pragma once
#include <Orvex/SbVec3d.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbVec3d vector.
class SoSFVec3d : public SoSField {
  SO_SFIELD_HEADER(SoSFVec3d, SbVec3d, const SbVec3d&);

 public:
  void setValue(double x, double y, double z);
  void setValue(const double v[3]);
};
