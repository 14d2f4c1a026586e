#include <png.h>

#include <cstdio>
#include <memory>

#include "ImageWriters.h"

namespace orvex {

namespace {
struct FileCloser {
  void operator()(FILE* f) const { std::fclose(f); }
};

// Owns the libpng write structures.
class PngWriteStruct {
 public:
  PngWriteStruct() : m_png(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr)) {
    if (m_png) m_info = png_create_info_struct(m_png);
  }
  ~PngWriteStruct() { png_destroy_write_struct(&m_png, m_info ? &m_info : nullptr); }
  PngWriteStruct(const PngWriteStruct&) = delete;
  PngWriteStruct& operator=(const PngWriteStruct&) = delete;
  png_structp png() const { return m_png; }
  png_infop info() const { return m_info; }

 private:
  png_structp m_png;
  png_infop m_info = nullptr;
};

int colorType(int components) {
  switch (components) {
    case 1: return PNG_COLOR_TYPE_GRAY;
    case 2: return PNG_COLOR_TYPE_GRAY_ALPHA;
    case 3: return PNG_COLOR_TYPE_RGB;
    default: return PNG_COLOR_TYPE_RGBA;
  }
}

// libpng reports errors by longjmp: nothing with a destructor may live in
// this frame.
bool writeRows(png_structp png, png_infop info, FILE* file, png_bytep* rows, int width, int height,
               int components) {
  if (setjmp(png_jmpbuf(png))) return false;
  png_init_io(png, file);
  png_set_IHDR(png, info, static_cast<png_uint_32>(width), static_cast<png_uint_32>(height), 8,
               colorType(components), PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_write_info(png, info);
  png_write_image(png, rows);
  png_write_end(png, nullptr);
  return true;
}
}  // namespace

bool writePNG(const char* filename, const unsigned char* pixels, int width, int height, int components) {
  if (!filename || !pixels || width <= 0 || height <= 0 || components < 1 || components > 4) return false;
  std::unique_ptr<FILE, FileCloser> file(std::fopen(filename, "wb"));
  if (!file) return false;
  PngWriteStruct writer;
  if (!writer.png() || !writer.info()) return false;
  const size_t stride = static_cast<size_t>(width) * static_cast<size_t>(components);
  std::unique_ptr<png_bytep[]> rows(new png_bytep[static_cast<size_t>(height)]);
  for (int y = 0; y < height; ++y)
    rows[static_cast<size_t>(y)] = const_cast<png_bytep>(pixels + stride * static_cast<size_t>(height - 1 - y));
  if (!writeRows(writer.png(), writer.info(), file.get(), rows.get(), width, height, components)) return false;
  return std::fflush(file.get()) == 0 && !std::ferror(file.get());
}

}  // namespace orvex
