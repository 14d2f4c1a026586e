#pragma once
#include <Orvex/SbColor.h>
#include <Orvex/fields/SoSubField.h>

// A field holding an RGB colour.
class SoSFColor : public SoSField {
  SO_SFIELD_HEADER(SoSFColor, SbColor, const SbColor&);

 public:
  void setValue(float r, float g, float b);
  void setValue(const float v[3]);
  void setHSVValue(float h, float s, float v);
  void setHSVValue(const float hsv[3]);
};
