#pragma once
// gzip streams of compressed scene files, through zlib.

#include <cstddef>
#include <vector>

namespace orvex {

// True when the bytes start with the gzip signature.
bool isGzip(const char* data, size_t size);
// Decompresses a whole gzip stream (concatenated members included).
bool gunzip(const char* data, size_t size, std::vector<char>& out);

}  // namespace orvex
