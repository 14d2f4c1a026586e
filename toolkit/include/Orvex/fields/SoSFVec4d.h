#pragma once
#include <Orvex/SbVec4d.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbVec4d vector.
class SoSFVec4d : public SoSField {
  SO_SFIELD_HEADER(SoSFVec4d, SbVec4d, const SbVec4d&);

 public:
  void setValue(double x, double y, double z, double w);
  void setValue(const double v[4]);
};
