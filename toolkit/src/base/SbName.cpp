#include <Orvex/SbName.h>

#include <cctype>
#include <cstring>
#include <mutex>
#include <shared_mutex>
#include <unordered_set>

namespace {

// The process-wide table of name texts. Set elements are nodes that never
// move, so each text keeps its address for as long as the table lives.
class NameTable {
 public:
  const char* intern(std::string text) {
    {
      std::shared_lock<std::shared_mutex> read(m_mutex);
      auto it = m_texts.find(text);
      if (it != m_texts.end()) return it->c_str();
    }
    std::unique_lock<std::shared_mutex> write(m_mutex);
    return m_texts.insert(std::move(text)).first->c_str();
  }

 private:
  std::shared_mutex m_mutex;
  std::unordered_set<std::string> m_texts;
};

NameTable& table() {
  // Deliberately never destroyed: names are used by static destructors of
  // other objects and their texts must outlive all of them.
  static NameTable* instance = new NameTable;
  return *instance;
}

}  // namespace

SbName::SbName() : m_text(table().intern(std::string())) {}

SbName::SbName(const char* text) : m_text(table().intern(text ? text : "")) {}

SbName::SbName(const SbString& text) : m_text(table().intern(text.toStdString())) {}

SbName::SbName(const std::string& text) : m_text(table().intern(text)) {}

int SbName::getLength() const { return static_cast<int>(std::strlen(m_text)); }

bool operator==(const SbName& a, const char* b) { return std::strcmp(a.m_text, b ? b : "") == 0; }

bool SbName::isIdentStartChar(char c) {
  return std::isalpha(static_cast<unsigned char>(c)) || c == '_';
}

bool SbName::isIdentChar(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
}

// Base names (node names in scene files) may use any printable character
// except those that delimit tokens; they may not start with a digit.
bool SbName::isBaseNameStartChar(char c) {
  return isBaseNameChar(c) && !std::isdigit(static_cast<unsigned char>(c));
}

bool SbName::isBaseNameChar(char c) {
  const auto u = static_cast<unsigned char>(c);
  if (u >= 0x80) return true;  // bytes of UTF-8 sequences
  if (u <= 0x20 || u == 0x7F) return false;
  return std::strchr("\"'+.\\{}[],#", c) == nullptr;
}
