#pragma once
// Turns RGBA bytes read from OpenGL into the channels a picture keeps.

#include <cstddef>

namespace orvex {

// 0.299 red + 0.587 green + 0.114 blue, rounded to the nearest byte.
unsigned char luminance(unsigned char r, unsigned char g, unsigned char b);

// Copies `pixels` RGBA pixels into `components` bytes each (1: luminance,
// 2: luminance and alpha, 3: RGB, 4: RGBA).
void convertRGBA(const unsigned char* rgba, size_t pixels, int components, unsigned char* out);

}  // namespace orvex
