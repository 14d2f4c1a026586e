#include "PixelConversion.h"

#include <cstring>

namespace orvex {

unsigned char luminance(unsigned char r, unsigned char g, unsigned char b) {
  // Integer weights out of 1000 keep the result exact and repeatable.
  const unsigned sum = 299u * r + 587u * g + 114u * b;
  return static_cast<unsigned char>((sum + 500u) / 1000u);
}

void convertRGBA(const unsigned char* rgba, size_t pixels, int components, unsigned char* out) {
  if (components == 4) {
    std::memcpy(out, rgba, pixels * 4);
    return;
  }
  for (size_t i = 0; i < pixels; ++i) {
    const unsigned char* p = rgba + i * 4;
    switch (components) {
      case 1: out[i] = luminance(p[0], p[1], p[2]); break;
      case 2:
        out[i * 2] = luminance(p[0], p[1], p[2]);
        out[i * 2 + 1] = p[3];
        break;
      default:
        out[i * 3] = p[0];
        out[i * 3 + 1] = p[1];
        out[i * 3 + 2] = p[2];
        break;
    }
  }
}

}  // namespace orvex
