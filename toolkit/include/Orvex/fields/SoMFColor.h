#pragma once
#include <Orvex/SbColor.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each an RGB colour.
class SoMFColor : public SoMField {
  SO_MFIELD_HEADER(SoMFColor, SbColor, const SbColor&);

 public:
  void setValues(int start, int num, const float v[][3]);
  void setHSVValues(int start, int num, const float hsv[][3]);
  void set1Value(int index, float r, float g, float b);
  void set1Value(int index, const float v[3]);
  void set1HSVValue(int index, float h, float s, float v);
  void set1HSVValue(int index, const float hsv[3]);
  void setValue(float r, float g, float b);
  void setValue(const float v[3]);
  void setHSVValue(float h, float s, float v);
  void setHSVValue(const float hsv[3]);
};
