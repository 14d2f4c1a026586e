#include "Compression.h"

#include <zlib.h>

namespace orvex {

bool isGzip(const char* data, size_t size) {
  return size >= 2 && static_cast<unsigned char>(data[0]) == 0x1f && static_cast<unsigned char>(data[1]) == 0x8b;
}

bool gunzip(const char* data, size_t size, std::vector<char>& out) {
  z_stream zs{};
  // 16 + MAX_WBITS: expect a gzip wrapper.
  if (inflateInit2(&zs, 16 + MAX_WBITS) != Z_OK) return false;
  zs.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data));
  zs.avail_in = static_cast<uInt>(size);
  char chunk[65536];
  int status = Z_OK;
  while (status != Z_STREAM_END || zs.avail_in > 0) {
    if (status == Z_STREAM_END) {
      // Another gzip member follows.
      if (inflateReset(&zs) != Z_OK) break;
    }
    zs.next_out = reinterpret_cast<Bytef*>(chunk);
    zs.avail_out = sizeof chunk;
    status = inflate(&zs, Z_NO_FLUSH);
    if (status != Z_OK && status != Z_STREAM_END) {
      inflateEnd(&zs);
      return false;
    }
    out.insert(out.end(), chunk, chunk + (sizeof chunk - zs.avail_out));
    if (status == Z_OK && zs.avail_in == 0 && zs.avail_out != 0) {
      // Input ended in the middle of the stream: a truncated file.
      inflateEnd(&zs);
      return false;
    }
  }
  inflateEnd(&zs);
  return true;
}

}  // namespace orvex
