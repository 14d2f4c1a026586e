#pragma once
// Texture images read from PNG files, kept by the texture node that named
// the file and read again when the name changes.

#include <Orvex/SbString.h>
#include <Orvex/SbVec2i32.h>

#include <mutex>
#include <string>
#include <vector>

namespace orvex {

// An 8-bit image, rows from the bottom.
struct Image8 {
  SbVec2i32 size{0, 0};
  int numComponents = 0;
  std::vector<unsigned char> pixels;
};

// Reads a PNG file (any PNG colour type and depth) into 8-bit grey, grey
// and alpha, RGB or RGBA. Answers false, with `error` set, for a missing,
// damaged or too large file; never ends the process.
bool readPngFile(const std::string& path, Image8& image, std::string& error);

// Images of more texels than this are refused.
constexpr long long kMaxTextureTexels = 64LL * 1024 * 1024;

class TextureFileImage {
 public:
  // The image of file `name` (looked up as given, then in the input
  // directories); read at the first call and after the name changes. A
  // file that cannot be read is reported once per name and gives an
  // empty image.
  const Image8& get(const SbString& name);

 private:
  std::mutex m_mutex;
  std::string m_name;
  bool m_loaded = false;
  Image8 m_image;
};

}  // namespace orvex
