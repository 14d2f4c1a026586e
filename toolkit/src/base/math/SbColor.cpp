// Colour conversions: HSV (hexcone model) and packed 0xRRGGBBAA.
#include <Orvex/SbColor.h>

#include <algorithm>
#include <cmath>

namespace {
void hsvToRgb(float h, float s, float v, float& r, float& g, float& b) {
  if (s <= 0) {
    r = g = b = v;
    return;
  }
  h = h - std::floor(h);  // a hue of 1 is red again
  const float sector = h * 6.0f;
  const int i = static_cast<int>(std::floor(sector)) % 6;
  const float f = sector - std::floor(sector);
  const float p = v * (1 - s), q = v * (1 - s * f), t = v * (1 - s * (1 - f));
  switch (i) {
    case 0: r = v; g = t; b = p; break;
    case 1: r = q; g = v; b = p; break;
    case 2: r = p; g = v; b = t; break;
    case 3: r = p; g = q; b = v; break;
    case 4: r = t; g = p; b = v; break;
    default: r = v; g = p; b = q; break;
  }
}

void rgbToHsv(float r, float g, float b, float& h, float& s, float& v) {
  const float max = std::max({r, g, b}), min = std::min({r, g, b});
  const float delta = max - min;
  v = max;
  s = max > 0 ? delta / max : 0;
  if (delta <= 0) {
    h = 0;
    return;
  }
  if (max == r)
    h = (g - b) / delta;
  else if (max == g)
    h = 2 + (b - r) / delta;
  else
    h = 4 + (r - g) / delta;
  h /= 6;
  if (h < 0) h += 1;
}

uint32_t toByte(float c) {
  return static_cast<uint32_t>(std::lround(std::clamp(c, 0.0f, 1.0f) * 255.0f));
}
}  // namespace

SbColor& SbColor::setHSVValue(float h, float s, float v) {
  float r, g, b;
  hsvToRgb(h, s, v, r, g, b);
  setValue(r, g, b);
  return *this;
}
void SbColor::getHSVValue(float& h, float& s, float& v) const { rgbToHsv((*this)[0], (*this)[1], (*this)[2], h, s, v); }
SbColor& SbColor::setPackedValue(uint32_t rgba, float& transparency) {
  setValue(((rgba >> 24) & 0xff) / 255.0f, ((rgba >> 16) & 0xff) / 255.0f, ((rgba >> 8) & 0xff) / 255.0f);
  transparency = 1.0f - (rgba & 0xff) / 255.0f;
  return *this;
}
uint32_t SbColor::getPackedValue(float transparency) const {
  return (toByte((*this)[0]) << 24) | (toByte((*this)[1]) << 16) | (toByte((*this)[2]) << 8) | toByte(1 - transparency);
}

SbColorRGBA& SbColorRGBA::setHSVAValue(float h, float s, float v, float a) {
  float r, g, b;
  hsvToRgb(h, s, v, r, g, b);
  setValue(r, g, b, a);
  return *this;
}
void SbColorRGBA::getHSVAValue(float& h, float& s, float& v, float& a) const {
  rgbToHsv((*this)[0], (*this)[1], (*this)[2], h, s, v);
  a = (*this)[3];
}
SbColorRGBA& SbColorRGBA::setPackedValue(uint32_t rgba) {
  setValue(((rgba >> 24) & 0xff) / 255.0f, ((rgba >> 16) & 0xff) / 255.0f, ((rgba >> 8) & 0xff) / 255.0f,
           (rgba & 0xff) / 255.0f);
  return *this;
}
uint32_t SbColorRGBA::getPackedValue() const {
  return (toByte((*this)[0]) << 24) | (toByte((*this)[1]) << 16) | (toByte((*this)[2]) << 8) | toByte((*this)[3]);
}
