#pragma once
#include <Orvex/SbVec3f.h>
#include <Orvex/SbVec4f.h>

// An RGB colour, components in [0, 1] (12 bytes, same layout as SbVec3f).
// Packed colours are 0xRRGGBBAA.
class SbColor : public SbVec3f {
 public:
  SbColor() = default;
  SbColor(const SbVec3f& v) : SbVec3f(v) {}
  explicit SbColor(const float rgb[3]) : SbVec3f(rgb) {}
  SbColor(float r, float g, float b) : SbVec3f(r, g, b) {}

  // Hue, saturation and value in [0, 1] (a hue of 1 is red again).
  SbColor& setHSVValue(float h, float s, float v);
  SbColor& setHSVValue(const float hsv[3]) { return setHSVValue(hsv[0], hsv[1], hsv[2]); }
  void getHSVValue(float& h, float& s, float& v) const;
  void getHSVValue(float hsv[3]) const { getHSVValue(hsv[0], hsv[1], hsv[2]); }
  // Sets the colour from 0xRRGGBBAA and stores 1 - alpha in `transparency`.
  SbColor& setPackedValue(uint32_t orderedRGBA, float& transparency);
  uint32_t getPackedValue(float transparency = 0) const;
};
static_assert(sizeof(SbColor) == 12, "SbColor must be exactly 3 floats");

// An RGBA colour, components in [0, 1] (16 bytes, same layout as SbVec4f).
class SbColorRGBA : public SbVec4f {
 public:
  SbColorRGBA() = default;
  SbColorRGBA(const SbVec4f& v) : SbVec4f(v) {}
  explicit SbColorRGBA(const float rgba[4]) : SbVec4f(rgba) {}
  SbColorRGBA(float r, float g, float b, float a) : SbVec4f(r, g, b, a) {}
  SbColorRGBA(const SbColor& rgb, float alpha) : SbVec4f(rgb[0], rgb[1], rgb[2], alpha) {}

  SbColor getRGB() const { return SbColor((*this)[0], (*this)[1], (*this)[2]); }
  float getAlpha() const { return (*this)[3]; }
  SbColorRGBA& setHSVAValue(float h, float s, float v, float a);
  void getHSVAValue(float& h, float& s, float& v, float& a) const;
  SbColorRGBA& setPackedValue(uint32_t orderedRGBA);
  uint32_t getPackedValue() const;
};
static_assert(sizeof(SbColorRGBA) == 16, "SbColorRGBA must be exactly 4 floats");
