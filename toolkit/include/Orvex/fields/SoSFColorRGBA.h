#pragma once
#include <Orvex/SbColor.h>
#include <Orvex/fields/SoSubField.h>

// A field holding an RGBA colour.
class SoSFColorRGBA : public SoSField {
  SO_SFIELD_HEADER(SoSFColorRGBA, SbColorRGBA, const SbColorRGBA&);

 public:
  void setValue(float r, float g, float b, float a);
  void setValue(const float v[4]);
  void setHSVAValue(float h, float s, float v, float a);
  void setHSVAValue(const float hsv[4]);
};
