#pragma once
#include <Orvex/SbColor.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each an RGBA colour.
class SoMFColorRGBA : public SoMField {
  SO_MFIELD_HEADER(SoMFColorRGBA, SbColorRGBA, const SbColorRGBA&);

 public:
  void setValues(int start, int num, const float v[][4]);
  void setHSVAValues(int start, int num, const float hsv[][4]);
  void set1Value(int index, float r, float g, float b, float a);
  void set1Value(int index, const float v[4]);
  void set1HSVAValue(int index, float h, float s, float v, float a);
  void set1HSVAValue(int index, const float hsv[4]);
  void setValue(float r, float g, float b, float a);
  void setValue(const float v[4]);
  void setHSVAValue(float h, float s, float v, float a);
  void setHSVAValue(const float hsv[4]);
};
