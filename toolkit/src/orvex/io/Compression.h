#pragma once
// gzip streams of compressed scene files, through zlib.

#include <cstddef>

#include "ByteBuffer.h"

namespace orvex {

// True when the bytes start with the gzip signature.
bool isGzip(const char* data, size_t size);

enum class InflateResult {
  OK,         // the whole stream, or the part that `keepGoing` asked for
  DAMAGED,    // not a valid gzip stream, or one cut short
  TOO_LARGE   // it inflates to more than the limit
};

// Decompresses a gzip stream (concatenated members included) into `out`,
// chunk by chunk, and stops as soon as the output would exceed `maxBytes`,
// so a small file that inflates to gigabytes costs no more than the limit.
// Throws std::bad_alloc when memory runs out below the limit.
// After the first chunk `keepGoing` (when given) sees what has been
// inflated so far and may end the work early (content that cannot be a
// scene file need not be inflated whole to be refused).
InflateResult gunzip(const char* data, size_t size, size_t maxBytes, ByteBuffer& out,
                     bool (*keepGoing)(const ByteBuffer&) = nullptr);

}  // namespace orvex
