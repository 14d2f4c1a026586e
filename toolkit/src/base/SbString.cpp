#include <Orvex/SbString.h>

#include <cstdio>
#include <cstring>
#include <memory>

#include "Utf.h"

namespace {

size_t utf16Count(const SbWChar* s) {
  size_t n = 0;
  while (s[n] != 0) ++n;
  return n;
}

// Clamps an inclusive byte range [start, end] (end -1: to the end) to `size`;
// answers false when the range is empty.
bool clampRange(size_t size, int& start, int& end) {
  if (end < 0 || end >= static_cast<int>(size)) end = static_cast<int>(size) - 1;
  if (start < 0) start = 0;
  return start <= end;
}

}  // namespace

SbString::SbString() = default;

SbString::SbString(const char* utf8) : m_utf8(utf8 ? utf8 : "") {}

SbString::SbString(const char* utf8, int start, int end) {
  if (!utf8) return;
  if (clampRange(std::strlen(utf8), start, end)) m_utf8.assign(utf8 + start, end - start + 1);
}

SbString::SbString(const std::string& utf8) : m_utf8(utf8) {}

SbString::SbString(const SbWChar* utf16) {
  if (utf16) orvex::utf::appendUtf16(m_utf8, reinterpret_cast<const char16_t*>(utf16), utf16Count(utf16));
}

SbString::SbString(const SbWChar* utf16, size_t count) {
  if (utf16) orvex::utf::appendUtf16(m_utf8, reinterpret_cast<const char16_t*>(utf16), count);
}

SbString::SbString(int digits) : m_utf8(std::to_string(digits)) {}

SbString::SbString(const SbString& other) : m_utf8(other.m_utf8) {}

SbString::SbString(SbString&& other) noexcept
    : m_utf8(std::move(other.m_utf8)), m_utf16(other.m_utf16.exchange(nullptr)) {
  other.m_utf8.clear();
}

SbString& SbString::operator=(const SbString& other) {
  if (this != &other) {
    invalidate();
    m_utf8 = other.m_utf8;
  }
  return *this;
}

SbString& SbString::operator=(SbString&& other) noexcept {
  if (this != &other) {
    invalidate();
    m_utf8 = std::move(other.m_utf8);
    other.m_utf8.clear();
    m_utf16.store(other.m_utf16.exchange(nullptr));
  }
  return *this;
}

SbString& SbString::operator=(const char* utf8) {
  invalidate();
  m_utf8 = utf8 ? utf8 : "";
  return *this;
}

SbString::~SbString() { invalidate(); }

void SbString::invalidate() { delete m_utf16.exchange(nullptr); }

SbString SbString::fromUtf8(const char* utf8) { return SbString(utf8); }

SbString SbString::fromUtf16(const SbWChar* utf16, size_t count) { return SbString(utf16, count); }

SbString SbString::sprintf(const char* format, ...) {
  va_list args;
  va_start(args, format);
  SbString result = vsprintf(format, args);
  va_end(args);
  return result;
}

SbString SbString::vsprintf(const char* format, va_list args) {
  SbString result;
  if (!format) return result;
  va_list measure;
  va_copy(measure, args);
  const int size = std::vsnprintf(nullptr, 0, format, measure);
  va_end(measure);
  if (size <= 0) return result;
  result.m_utf8.resize(static_cast<size_t>(size) + 1);
  std::vsnprintf(result.m_utf8.data(), result.m_utf8.size(), format, args);
  result.m_utf8.resize(static_cast<size_t>(size));
  return result;
}

const char* SbString::getString() const { return m_utf8.c_str(); }

const SbWChar* SbString::toUtf16() const {
  std::u16string* cached = m_utf16.load(std::memory_order_acquire);
  if (!cached) {
    auto built = std::make_unique<std::u16string>(orvex::utf::toUtf16(m_utf8));
    std::u16string* expected = nullptr;
    if (m_utf16.compare_exchange_strong(expected, built.get(), std::memory_order_acq_rel)) {
      cached = built.release();
    } else {
      cached = expected;  // another thread published first; ours is dropped
    }
  }
  return reinterpret_cast<const SbWChar*>(cached->c_str());
}

int SbString::getLength() const {
  if (const std::u16string* cached = m_utf16.load(std::memory_order_acquire))
    return static_cast<int>(cached->size());
  return static_cast<int>(orvex::utf::utf16Length(m_utf8));
}

void SbString::makeEmpty(bool freeOld) {
  invalidate();
  m_utf8.clear();
  if (freeOld) m_utf8.shrink_to_fit();
}

uint32_t SbString::hash() const {
  // FNV-1a over the UTF-8 bytes.
  uint32_t h = 2166136261u;
  for (unsigned char c : m_utf8) h = (h ^ c) * 16777619u;
  return h;
}

uint32_t SbString::hash(const char* s) { return SbString(s).hash(); }

SbString SbString::getSubString(int startChar, int endChar) const {
  SbString result;
  if (clampRange(m_utf8.size(), startChar, endChar))
    result.m_utf8 = m_utf8.substr(startChar, endChar - startChar + 1);
  return result;
}

void SbString::deleteSubString(int startChar, int endChar) {
  if (!clampRange(m_utf8.size(), startChar, endChar)) return;
  invalidate();
  m_utf8.erase(startChar, endChar - startChar + 1);
}

int SbString::find(const SbString& s) const {
  const size_t pos = m_utf8.find(s.m_utf8);
  return pos == std::string::npos ? -1 : static_cast<int>(pos);
}

SbString& SbString::operator+=(const char* utf8) {
  if (utf8) {
    invalidate();
    m_utf8 += utf8;
  }
  return *this;
}

SbString& SbString::operator+=(const SbString& other) {
  invalidate();
  m_utf8 += other.m_utf8;
  return *this;
}

SbString& SbString::operator+=(char c) {
  invalidate();
  m_utf8 += c;
  return *this;
}

SbString operator+(const SbString& a, const SbString& b) {
  SbString result(a);
  result += b;
  return result;
}

bool operator==(const SbString& a, const char* b) { return a.m_utf8 == (b ? b : ""); }
