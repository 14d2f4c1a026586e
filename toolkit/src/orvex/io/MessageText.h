#pragma once
// Text taken from a file and shown in a read error. A hostile or damaged
// file can hold a line or a token of many megabytes, and a message that
// echoes it whole would flood the log (and cost its size again in every
// copy of the message), so only a bounded prefix is shown, marked as cut.

#include <cstddef>
#include <string>

namespace orvex {

// Bytes of file text a message shows at most.
constexpr size_t kMaxQuotedBytes = 80;

// The text as a message shows it: control characters (which could move the
// cursor of a terminal showing the message) become '?', and text longer
// than kMaxQuotedBytes is cut at a character boundary and ends with
// "... [cut from N bytes]".
inline std::string quoteForMessage(const char* text, size_t length) {
  size_t shown = length;
  if (length > kMaxQuotedBytes) {
    shown = kMaxQuotedBytes;
    // Not in the middle of a UTF-8 sequence: step back over continuation bytes.
    while (shown > 0 && (static_cast<unsigned char>(text[shown]) & 0xC0) == 0x80) --shown;
  }
  std::string quoted;
  quoted.reserve(shown + 32);
  for (size_t i = 0; i < shown; ++i) {
    const unsigned char c = static_cast<unsigned char>(text[i]);
    quoted += c < 0x20 || c == 0x7F ? '?' : static_cast<char>(c);
  }
  if (shown < length) quoted += "... [cut from " + std::to_string(length) + " bytes]";
  return quoted;
}

inline std::string quoteForMessage(const std::string& text) { return quoteForMessage(text.data(), text.size()); }

}  // namespace orvex
