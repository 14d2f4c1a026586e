#include <cstdio>
// jpeglib.h needs FILE and size_t declared first.
#include <jpeglib.h>

#include <algorithm>
#include <csetjmp>
#include <cstdlib>
#include <memory>
#include <vector>

#include "ImageWriters.h"

namespace orvex {

namespace {
struct FileCloser {
  void operator()(FILE* f) const { std::fclose(f); }
};

// libjpeg's error handler must not exit the process: it jumps back.
struct JpegError {
  jpeg_error_mgr manager;
  std::jmp_buf jump;
};

void onError(j_common_ptr info) { std::longjmp(reinterpret_cast<JpegError*>(info->err)->jump, 1); }

// No object with a destructor lives in this frame (longjmp).
bool compress(FILE* file, const unsigned char* rows, int width, int height, int channels, int quality) {
  jpeg_compress_struct info;
  JpegError error;
  info.err = jpeg_std_error(&error.manager);
  error.manager.error_exit = onError;
  if (setjmp(error.jump)) {
    jpeg_destroy_compress(&info);
    return false;
  }
  jpeg_create_compress(&info);
  jpeg_stdio_dest(&info, file);
  info.image_width = static_cast<JDIMENSION>(width);
  info.image_height = static_cast<JDIMENSION>(height);
  info.input_components = channels;
  info.in_color_space = channels == 1 ? JCS_GRAYSCALE : JCS_RGB;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, quality, TRUE);
  jpeg_start_compress(&info, TRUE);
  const size_t stride = static_cast<size_t>(width) * static_cast<size_t>(channels);
  while (info.next_scanline < info.image_height) {
    // Top row first: the buffer's last row.
    JSAMPROW row = const_cast<JSAMPROW>(rows + stride * (static_cast<size_t>(height) - 1 - info.next_scanline));
    jpeg_write_scanlines(&info, &row, 1);
  }
  jpeg_finish_compress(&info);
  jpeg_destroy_compress(&info);
  return true;
}
}  // namespace

namespace {
// Writes the JPEG of the pixels to an open file.
bool writeJPEGTo(FILE* file, const unsigned char* pixels, int width, int height, int components, float quality) {
  if (!file || !pixels || width <= 0 || height <= 0 || components < 1 || components > 4) return false;
  // JPEG has no alpha: keep grey or RGB only.
  const int channels = components <= 2 ? 1 : 3;
  const size_t count = static_cast<size_t>(width) * static_cast<size_t>(height);
  std::vector<unsigned char> stripped;
  const unsigned char* rows = pixels;
  if (channels != components) {
    stripped.resize(count * static_cast<size_t>(channels));
    for (size_t i = 0; i < count; ++i)
      for (int c = 0; c < channels; ++c)
        stripped[i * static_cast<size_t>(channels) + static_cast<size_t>(c)] =
            pixels[i * static_cast<size_t>(components) + static_cast<size_t>(c)];
    rows = stripped.data();
  }
  const int q = static_cast<int>(std::clamp(quality, 0.0f, 1.0f) * 100.0f + 0.5f);
  if (!compress(file, rows, width, height, channels, std::max(q, 1))) return false;
  return std::fflush(file) == 0 && !std::ferror(file);
}

// A memory stream's buffer, freed with the stream's owner.
struct MemoryStream {
  char* data = nullptr;
  size_t size = 0;
  FILE* file = nullptr;
  MemoryStream() : file(open_memstream(&data, &size)) {}
  ~MemoryStream() {
    if (file) std::fclose(file);
    std::free(data);
  }
  MemoryStream(const MemoryStream&) = delete;
  MemoryStream& operator=(const MemoryStream&) = delete;
};
}  // namespace

bool writeJPEG(const char* filename, const unsigned char* pixels, int width, int height, int components,
               float quality) {
  if (!filename) return false;
  std::unique_ptr<FILE, FileCloser> file(std::fopen(filename, "wb"));
  return file && writeJPEGTo(file.get(), pixels, width, height, components, quality);
}

bool encodeJPEG(std::vector<unsigned char>& out, const unsigned char* pixels, int width, int height,
                int components, float quality) {
  MemoryStream stream;
  if (!stream.file || !writeJPEGTo(stream.file, pixels, width, height, components, quality)) return false;
  // After the flush the stream's buffer and size are up to date.
  out.assign(reinterpret_cast<unsigned char*>(stream.data), reinterpret_cast<unsigned char*>(stream.data) + stream.size);
  return true;
}

}  // namespace orvex
