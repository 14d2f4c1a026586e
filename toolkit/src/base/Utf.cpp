#include "Utf.h"

namespace orvex::utf {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isHighSurrogate(char32_t u) { return u >= 0xD800 && u <= 0xDBFF; }
bool isLowSurrogate(char32_t u) { return u >= 0xDC00 && u <= 0xDFFF; }
bool isContinuation(unsigned char b) { return (b & 0xC0) == 0x80; }

void appendCodePoint(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {  // includes lone surrogates (generalised form)
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

// Decodes one sequence starting at s[i]; advances i past it.
char32_t decodeOne(const std::string& s, size_t& i) {
  const size_t n = s.size();
  const auto b0 = static_cast<unsigned char>(s[i]);
  auto at = [&](size_t k) { return static_cast<unsigned char>(s[i + k]); };

  if (b0 < 0x80) {
    i += 1;
    return b0;
  }
  if (b0 >= 0xC0 && b0 <= 0xDF && i + 1 < n && isContinuation(at(1))) {
    const char32_t cp = ((b0 & 0x1F) << 6) | (at(1) & 0x3F);
    if (cp >= 0x80 || cp == 0) {  // C0 80 is the modified-UTF-8 NUL
      i += 2;
      return cp;
    }
  } else if (b0 >= 0xE0 && b0 <= 0xEF && i + 2 < n && isContinuation(at(1)) &&
             isContinuation(at(2))) {
    const char32_t cp = ((b0 & 0x0F) << 12) | ((at(1) & 0x3F) << 6) | (at(2) & 0x3F);
    if (cp >= 0x800) {
      i += 3;
      return cp;
    }
  } else if (b0 >= 0xF0 && b0 <= 0xF4 && i + 3 < n && isContinuation(at(1)) &&
             isContinuation(at(2)) && isContinuation(at(3))) {
    const char32_t cp = ((b0 & 0x07) << 18) | ((at(1) & 0x3F) << 12) |
                        ((at(2) & 0x3F) << 6) | (at(3) & 0x3F);
    if (cp >= 0x10000 && cp <= 0x10FFFF) {
      i += 4;
      return cp;
    }
  }
  i += 1;
  return kReplacement;
}

}  // namespace

void appendUtf16(std::string& out, const char16_t* units, size_t count) {
  out.reserve(out.size() + count);
  for (size_t i = 0; i < count; ++i) {
    const char32_t u = units[i];
    if (isHighSurrogate(u) && i + 1 < count && isLowSurrogate(units[i + 1])) {
      const char32_t lo = units[++i];
      appendCodePoint(out, 0x10000 + ((u - 0xD800) << 10) + (lo - 0xDC00));
    } else {
      appendCodePoint(out, u);
    }
  }
}

std::u16string toUtf16(const std::string& utf8) {
  std::u16string out;
  out.reserve(utf8.size());
  for (size_t i = 0; i < utf8.size();) {
    const char32_t cp = decodeOne(utf8, i);
    if (cp >= 0x10000) {
      out += static_cast<char16_t>(0xD800 + ((cp - 0x10000) >> 10));
      out += static_cast<char16_t>(0xDC00 + ((cp - 0x10000) & 0x3FF));
    } else {
      out += static_cast<char16_t>(cp);
    }
  }
  return out;
}

size_t utf16Length(const std::string& utf8) {
  size_t units = 0;
  for (size_t i = 0; i < utf8.size();) units += decodeOne(utf8, i) >= 0x10000 ? 2 : 1;
  return units;
}

}  // namespace orvex::utf
