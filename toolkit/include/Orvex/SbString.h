#pragma once
#include <Orvex/SbBase.h>
#include <atomic>
#include <cstdarg>
#include <string>

// A Unicode string. The text is kept as UTF-8 (lone UTF-16 surrogates are kept
// in their 3-byte generalised form so that any Java string round-trips
// unchanged); the UTF-16 form is derived on demand and cached.
//
// Const methods may be called from several threads at once: the UTF-16 cache
// is published with one atomic compare-and-swap, so concurrent first calls of
// toUtf16() may each convert, but exactly one result is kept and every caller
// sees that one. Mutating methods need exclusive access, as usual.
class SbString {
 public:
  SbString();
  SbString(const char* utf8);               // null gives an empty string
  SbString(const char* utf8, int start, int end);  // bytes [start, end]
  SbString(const std::string& utf8);
  SbString(const SbWChar* utf16);           // NUL-terminated; null gives empty
  SbString(const SbWChar* utf16, size_t count);
  explicit SbString(int digits);            // decimal text of an integer
  SbString(const SbString& other);
  SbString(SbString&& other) noexcept;
  SbString& operator=(const SbString& other);
  SbString& operator=(SbString&& other) noexcept;
  SbString& operator=(const char* utf8);
  ~SbString();

  static SbString fromUtf8(const char* utf8);
  static SbString fromUtf16(const SbWChar* utf16, size_t count);
  // printf-style formatting into a new string.
  static SbString sprintf(const char* format, ...)
#if defined(__GNUC__)
      __attribute__((format(printf, 1, 2)))
#endif
      ;
  static SbString vsprintf(const char* format, va_list args);

  // UTF-8 text, NUL-terminated; valid until the string changes.
  const char* getString() const;
  const char* toUtf8() const { return getString(); }
  const std::string& toStdString() const { return m_utf8; }
  // UTF-16 code units, NUL-terminated; valid until the string changes.
  const SbWChar* toUtf16() const;
  // Length in UTF-16 code units (what Java's String.length() reports).
  int getLength() const;
  // Size of the UTF-8 text in bytes.
  size_t getSize() const { return m_utf8.size(); }
  bool isEmpty() const { return m_utf8.empty(); }
  void makeEmpty(bool freeOld = true);
  uint32_t hash() const;
  static uint32_t hash(const char* s);

  // Substring by UTF-8 byte index [start, end]; end -1 means to the end.
  SbString getSubString(int startChar, int endChar = -1) const;
  void deleteSubString(int startChar, int endChar = -1);
  // Byte index of the first occurrence of s, or -1.
  int find(const SbString& s) const;
  bool contains(const SbString& s) const { return find(s) >= 0; }

  SbString& operator+=(const char* utf8);
  SbString& operator+=(const SbString& other);
  SbString& operator+=(char c);
  friend SbString operator+(const SbString& a, const SbString& b);

  bool operator!() const { return m_utf8.empty(); }
  friend bool operator==(const SbString& a, const SbString& b) { return a.m_utf8 == b.m_utf8; }
  friend bool operator!=(const SbString& a, const SbString& b) { return !(a == b); }
  friend bool operator==(const SbString& a, const char* b);
  friend bool operator!=(const SbString& a, const char* b) { return !(a == b); }
  friend bool operator<(const SbString& a, const SbString& b) { return a.m_utf8 < b.m_utf8; }

 private:
  void invalidate();
  std::string m_utf8;
  // Cache built by toUtf16(); owned by this string, published atomically.
  mutable std::atomic<std::u16string*> m_utf16{nullptr};
};
