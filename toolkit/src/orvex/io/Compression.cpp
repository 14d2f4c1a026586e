#include "Compression.h"

#include <zlib.h>

#include <algorithm>
#include <limits>

namespace orvex {

namespace {

// Owns a zlib inflate stream, so that every way out of gunzip ends it.
class Inflater {
 public:
  Inflater() { m_ok = inflateInit2(&m_zs, 16 + MAX_WBITS) == Z_OK; }  // 16: expect a gzip wrapper
  ~Inflater() {
    if (m_ok) inflateEnd(&m_zs);
  }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;
  bool ok() const { return m_ok; }
  z_stream& stream() { return m_zs; }

 private:
  z_stream m_zs{};
  bool m_ok = false;
};

// The size the last member's trailer states (the length modulo 2^32). Only
// a hint for reserving memory: a damaged or hostile file may lie.
size_t statedSize(const char* data, size_t size) {
  if (size < 18) return 0;
  const auto* t = reinterpret_cast<const unsigned char*>(data + size - 4);
  return size_t(t[0]) | size_t(t[1]) << 8 | size_t(t[2]) << 16 | size_t(t[3]) << 24;
}

}  // namespace

bool isGzip(const char* data, size_t size) {
  return size >= 2 && static_cast<unsigned char>(data[0]) == 0x1f && static_cast<unsigned char>(data[1]) == 0x8b;
}

InflateResult gunzip(const char* data, size_t size, size_t maxBytes, ByteBuffer& out,
                     bool (*keepGoing)(const ByteBuffer&)) {
  out.reset();
  Inflater inflater;
  if (!inflater.ok()) return InflateResult::DAMAGED;
  z_stream& zs = inflater.stream();
  // Reserving what the trailer states lets an honest file take its size at
  // once. Reserved pages that are never written cost no memory, so a lying
  // trailer costs nothing beyond the limit.
  out.reserve(std::min(statedSize(data, size), maxBytes));
  zs.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data));
  constexpr size_t kMaxIn = std::numeric_limits<uInt>::max();
  size_t inLeft = size;
  auto feed = [&] {
    // zlib counts input in uInt: larger inputs are given in parts.
    const size_t n = std::min(inLeft, kMaxIn);
    zs.avail_in = static_cast<uInt>(n);
    inLeft -= n;
  };
  feed();
  char chunk[65536];
  bool checked = keepGoing == nullptr;
  int status = Z_OK;
  for (;;) {
    if (status == Z_STREAM_END) {
      if (zs.avail_in == 0 && inLeft == 0) return InflateResult::OK;
      // Another gzip member follows.
      if (inflateReset(&zs) != Z_OK) return InflateResult::DAMAGED;
    }
    if (zs.avail_in == 0 && inLeft > 0) feed();
    zs.next_out = reinterpret_cast<Bytef*>(chunk);
    zs.avail_out = sizeof chunk;
    status = inflate(&zs, Z_NO_FLUSH);
    if (status != Z_OK && status != Z_STREAM_END) return InflateResult::DAMAGED;
    const size_t produced = sizeof chunk - zs.avail_out;
    if (produced > maxBytes - out.size()) return InflateResult::TOO_LARGE;
    out.append(chunk, produced);
    if (!checked && !out.empty()) {
      checked = true;
      if (!keepGoing(out)) return InflateResult::OK;
    }
    if (status == Z_OK && zs.avail_in == 0 && inLeft == 0 && zs.avail_out != 0) {
      // Input ended in the middle of the stream: a truncated file.
      return InflateResult::DAMAGED;
    }
  }
}

}  // namespace orvex
