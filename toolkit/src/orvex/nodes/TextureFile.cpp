#include "TextureFile.h"

#include <Orvex/SoInput.h>
#include <Orvex/errors/SoDebugError.h>

#include <png.h>

#include <cstdio>
#include <cstring>

namespace orvex {

namespace {

// The simplified reader of libpng, released with the scope.
struct PngReader {
  png_image image;
  PngReader() {
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
  }
  ~PngReader() { png_image_free(&image); }
  PngReader(const PngReader&) = delete;
  PngReader& operator=(const PngReader&) = delete;
};

}  // namespace

bool readPngFile(const std::string& path, Image8& out, std::string& error) {
  PngReader reader;
  if (!png_image_begin_read_from_file(&reader.image, path.c_str())) {
    error = reader.image.message[0] ? reader.image.message : "cannot read the file";
    return false;
  }
  const png_uint_32 width = reader.image.width, height = reader.image.height;
  if (width == 0 || height == 0 || static_cast<long long>(width) * height > kMaxTextureTexels) {
    error = "the image has " + std::to_string(width) + " x " + std::to_string(height) + " texels, too many";
    return false;
  }
  const bool color = (reader.image.format & PNG_FORMAT_FLAG_COLOR) != 0;
  const bool alpha = (reader.image.format & PNG_FORMAT_FLAG_ALPHA) != 0;
  reader.image.format = color ? (alpha ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB) : (alpha ? PNG_FORMAT_GA : PNG_FORMAT_GRAY);
  const int components = static_cast<int>(PNG_IMAGE_PIXEL_CHANNELS(reader.image.format));
  std::vector<unsigned char> pixels(static_cast<size_t>(width) * height * static_cast<size_t>(components));
  // A negative row stride stores the file's top row last: rows from the bottom.
  const png_int_32 stride = -static_cast<png_int_32>(width * static_cast<png_uint_32>(components));
  if (!png_image_finish_read(&reader.image, nullptr, pixels.data(), stride, nullptr)) {
    error = reader.image.message[0] ? reader.image.message : "damaged image data";
    return false;
  }
  out.size.setValue(static_cast<int32_t>(width), static_cast<int32_t>(height));
  out.numComponents = components;
  out.pixels.swap(pixels);
  return true;
}

const Image8& TextureFileImage::get(const SbString& name) {
  std::lock_guard<std::mutex> lock(m_mutex);
  const std::string wanted = name.getString();
  if (m_loaded && wanted == m_name) return m_image;
  m_name = wanted;
  m_loaded = true;
  m_image = Image8();
  if (wanted.empty()) return m_image;
  std::string path = wanted;
  if (FILE* f = std::fopen(path.c_str(), "rb"))
    std::fclose(f);
  else {
    SbString found;
    if (SoInput::findAbsolutePath(name, found)) path = found.getString();
  }
  std::string error;
  if (!readPngFile(path, m_image, error)) {
    m_image = Image8();
    SoDebugError::post("SoTexture2", "Cannot read texture file \"%s\": %s", wanted.c_str(), error.c_str());
  }
  return m_image;
}

}  // namespace orvex
