#pragma once
// Fast reading and writing of ASCII arrays of plain numbers and vectors
// (mesh coordinates, indices), straight from and into memory. The results
// are those of the value-by-value path, which takes over whenever the text
// is not a plain bracketed list (comments, hexadecimal numbers, errors).

#include <charconv>
#include <cstring>
#include <string>
#include <vector>

#include "FieldValueIO.h"

namespace orvex {
namespace fio {

inline bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v'; }

// Parses "[ v, v, ... ]" of n-component values into `out`. Answers false,
// without consuming anything, when the fast path does not apply.
template <class C>
bool parseFlatAscii(SoInput* in, std::vector<C>& out, int n) {
  if (!in->skipWhiteSpace()) return false;
  const char* p;
  const char* end;
  if (!in->getRawBuffer(p, end) || p == end || *p != '[') return false;
  ++p;
  int newlines = 0;
  // Whitespace between numbers; no comments (the slow path handles them).
  // Lines end with LF, CR LF (counted at its LF) or a lone CR.
  auto skip = [&] {
    while (p < end) {
      if (*p == '\n' || (*p == '\r' && (p + 1 == end || p[1] != '\n')))
        ++newlines;
      else if (!isBlank(*p))
        break;
      ++p;
    }
  };
  const size_t bytesLeft = static_cast<size_t>(end - p);
  out.reserve(std::min<size_t>(bytesLeft / 2, 1u << 20));
  for (;;) {
    skip();
    if (p == end) return false;
    if (*p == ']') break;
    for (int k = 0; k < n; ++k) {
      if (k) skip();
      if (p < end && *p == '+') ++p;
      C value;
      auto [next, ec] = std::from_chars(p, end, value);
      if (ec != std::errc() || next == p) return false;
      // "0x" and the like: let the token reader decide.
      if (next < end && (*next == 'x' || *next == 'X')) return false;
      out.push_back(value);
      p = next;
    }
    skip();
    if (p < end && *p == ',') ++p;
  }
  in->setRawPosition(p + 1, newlines);
  return true;
}

// Reads a bracketed list of a flat value type with the fast parser; `store`
// receives the components and the number of values.
template <class T, class Store>
bool tryReadFlatAscii(SoInput* in, Store store) {
  if constexpr (FlatArray<T>::ok) {
    if (in->isBinary()) return false;
    std::vector<typename FlatArray<T>::C> scratch;
    if (!parseFlatAscii(in, scratch, FlatArray<T>::n)) return false;
    store(scratch.data(), static_cast<int>(scratch.size() / FlatArray<T>::n));
    return true;
  } else {
    return false;
  }
}

// Writes values as SoMField::writeValue does, formatting into large chunks.
template <class T>
bool tryWriteFlatAscii(SoOutput* out, const T* values, int num, int perLine) {
  if constexpr (FlatArray<T>::ok) {
    using C = typename FlatArray<T>::C;
    constexpr int n = FlatArray<T>::n;
    if (out->isBinary() || num < 2) return false;
    const int precision = std::is_same_v<C, float> ? out->getFloatPrecision()
                          : std::is_same_v<C, double> ? out->getDoublePrecision() : 0;
    const std::string lineStart = "\n" + std::string(static_cast<size_t>(out->getIndentLevel() + 1) * 4, ' ');
    const C* comps = reinterpret_cast<const C*>(values);
    std::string chunk;
    chunk.reserve(1 << 16);
    chunk += "[ ";
    char buf[64];
    for (int i = 0; i < num; ++i) {
      for (int k = 0; k < n; ++k) {
        if (k) chunk += ' ';
        const C v = comps[static_cast<size_t>(i) * n + k];
        std::to_chars_result r;
        if constexpr (std::is_floating_point_v<C>)
          r = precision > 0 ? std::to_chars(buf, buf + sizeof buf, v, std::chars_format::general, precision)
                            : std::to_chars(buf, buf + sizeof buf, v);
        else
          r = std::to_chars(buf, buf + sizeof buf, v);
        chunk.append(buf, r.ptr);
      }
      if (i + 1 < num) {
        chunk += ',';
        if ((i + 1) % perLine == 0)
          chunk += lineStart;
        else
          chunk += ' ';
      }
      if (chunk.size() > (1 << 16) - 256) {
        out->filePuts(chunk.c_str());
        chunk.clear();
      }
    }
    chunk += " ]";
    out->filePuts(chunk.c_str());
    return true;
  } else {
    return false;
  }
}

}  // namespace fio
}  // namespace orvex
