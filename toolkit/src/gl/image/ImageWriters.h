#pragma once
// Picture files from pixel buffers whose rows go bottom-up (as OpenGL
// reads them); the files get them top-down.

#include <vector>

namespace orvex {

// PNG with 1 (grey), 2 (grey, alpha), 3 (RGB) or 4 (RGBA) channels.
bool writePNG(const char* filename, const unsigned char* pixels, int width, int height, int components);
// JPEG at quality 0 to 1: grey for 1 or 2 channels, RGB for 3 or 4; alpha
// is dropped.
bool writeJPEG(const char* filename, const unsigned char* pixels, int width, int height, int components,
               float quality);
// The same JPEG as the bytes of the file, into `out`.
bool encodeJPEG(std::vector<unsigned char>& out, const unsigned char* pixels, int width, int height,
                int components, float quality);

}  // namespace orvex
