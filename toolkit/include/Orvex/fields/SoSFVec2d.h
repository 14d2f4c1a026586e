#pragma once
#include <Orvex/SbVec2d.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbVec2d vector.
class SoSFVec2d : public SoSField {
  SO_SFIELD_HEADER(SoSFVec2d, SbVec2d, const SbVec2d&);

 public:
  void setValue(double x, double y);
  void setValue(const double v[2]);
};
