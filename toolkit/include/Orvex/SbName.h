#pragma once
#include <Orvex/SbString.h>

// An interned, immutable string: two names with the same text share one
// storage, so comparison is a pointer comparison. The text lives as long as
// the process.
class SbName {
 public:
  SbName();
  SbName(const char* text);
  SbName(const SbString& text);
  SbName(const std::string& text);

  const char* getString() const { return m_text; }
  int getLength() const;
  bool operator!() const { return *m_text == '\0'; }

  friend bool operator==(const SbName& a, const SbName& b) { return a.m_text == b.m_text; }
  friend bool operator!=(const SbName& a, const SbName& b) { return a.m_text != b.m_text; }
  friend bool operator==(const SbName& a, const char* b);
  friend bool operator!=(const SbName& a, const char* b) { return !(a == b); }

  // Characters allowed in identifiers of scene files.
  static bool isIdentStartChar(char c);
  static bool isIdentChar(char c);
  static bool isBaseNameStartChar(char c);
  static bool isBaseNameChar(char c);

 private:
  const char* m_text;
};

namespace std {
template <> struct hash<SbName> {
  size_t operator()(const SbName& n) const noexcept { return std::hash<const void*>()(n.getString()); }
};
}  // namespace std
