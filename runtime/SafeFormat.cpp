#include "SafeFormat.h"

#include <cstring>

// What is kept, and why it is safe with ORVEX_SAFE_FORMAT_ARGS:
//
// - Integer conversions d i u o x X, with the flags - + space 0 # ', a width
//   and a precision of at most kMaxFieldWidth, and the length modifiers hh h
//   l ll j z t. Each reads one integer argument of at most the size of a long
//   long, and every argument passed is a long long zero: whatever size the
//   conversion asks for, it reads zero bits from storage that was passed
//   (on 64-bit ABIs every variadic integer takes one 8-byte slot; on 32-bit
//   ones a narrower read takes the first half of a long long, and the next
//   conversion reads no further than the arguments counted for it).
// - A '*' width or precision reads one int argument the same way, and counts
//   as one argument consumed (its value is 0: no padding, or an empty
//   precision).
// - "%%", which reads nothing.
//
// Everything else is escaped — its '%' becomes "%%", so the rest of the
// directive prints as the text it is:
//
// - s S c C p n and every unknown letter: they read a pointer or a character
//   that was never passed, or (n) write through one.
// - Floating conversions e E f F g G a A and the L and q modifiers: variadic
//   floating values travel in other registers than integers on common ABIs,
//   so they would read registers that were never set.
// - Positional arguments ("%1$d", "%*2$d"): they may name any argument
//   number, and one of them makes the formatter reinterpret the whole format.
// - The '#' flag on d i u and the ' flag on o x X, whose meaning the C and
//   POSIX standards leave undefined.
// - A width or precision above kMaxFieldWidth (the formatter would allocate
//   and fill the whole field).
// - A conversion that would take the count of arguments read by the
//   directives kept so far beyond kArgumentCount.
// - A '%' that ends the text, or a directive that ends before its conversion
//   letter.

namespace {

// The zero list must hold exactly as many arguments as the class promises.
constexpr long long kZeroArguments[] = {ORVEX_SAFE_FORMAT_ARGS};
static_assert(sizeof(kZeroArguments) / sizeof(kZeroArguments[0]) == SafeFormat::kArgumentCount,
              "ORVEX_SAFE_FORMAT_ARGS and SafeFormat::kArgumentCount disagree");

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// True when `c` is one of `set`; never for the terminating NUL, which strchr
// would find at the end of every set.
bool isOneOf(char c, const char* set) { return c != '\0' && std::strchr(set, c) != nullptr; }

// Reads the decimal number at text[i] (possibly empty: 0) and moves i past
// it. Values above kMaxFieldWidth are reported as kMaxFieldWidth + 1, so a
// run of digits cannot overflow.
int readNumber(const char* text, size_t& i) {
  int value = 0;
  for (; isDigit(text[i]); ++i) {
    if (value <= SafeFormat::kMaxFieldWidth) value = value * 10 + (text[i] - '0');
  }
  return value <= SafeFormat::kMaxFieldWidth ? value : SafeFormat::kMaxFieldWidth + 1;
}

// Examines the directive whose '%' is at directive[0] (and which is not
// "%%"). When it is an integer conversion as described above, answers its
// length and stores in `arguments` how many arguments it reads; otherwise
// answers 0.
size_t keptDirectiveLength(const char* directive, int& arguments) {
  size_t i = 1;
  bool alternateForm = false;
  bool grouping = false;
  for (; isOneOf(directive[i], "-+ 0#'"); ++i) {
    if (directive[i] == '#') alternateForm = true;
    if (directive[i] == '\'') grouping = true;
  }

  arguments = 1;  // the converted value itself
  if (directive[i] == '*') {
    ++arguments;
    ++i;
  } else if (readNumber(directive, i) > SafeFormat::kMaxFieldWidth) {
    return 0;
  }

  if (directive[i] == '.') {
    ++i;
    if (directive[i] == '*') {
      ++arguments;
      ++i;
    } else if (readNumber(directive, i) > SafeFormat::kMaxFieldWidth) {
      return 0;
    }
  }

  // hh h l ll j z t; a second h or l only after the same letter.
  if (directive[i] == 'h' || directive[i] == 'l') {
    const char letter = directive[i++];
    if (directive[i] == letter) ++i;
  } else if (isOneOf(directive[i], "jzt")) {
    ++i;
  }

  const char conversion = directive[i];
  if (!isOneOf(conversion, "diuoxX")) return 0;  // also a '$' after the number: a position
  const bool isSigned = conversion == 'd' || conversion == 'i';
  if (alternateForm && (isSigned || conversion == 'u')) return 0;
  if (grouping && !(isSigned || conversion == 'u')) return 0;
  return i + 1;
}

}  // namespace

SafeFormat::SafeFormat(const char* text) {
  if (text == nullptr) return;
  m_format.reserve(std::strlen(text) + 16);
  int argumentsRead = 0;
  size_t i = 0;
  while (text[i] != '\0') {
    if (text[i] != '%') {
      m_format += text[i++];
      continue;
    }
    if (text[i + 1] == '%') {
      m_format += "%%";
      i += 2;
      continue;
    }
    int arguments = 0;
    const size_t length = keptDirectiveLength(text + i, arguments);
    if (length != 0 && argumentsRead + arguments <= kArgumentCount) {
      m_format.append(text + i, length);
      argumentsRead += arguments;
      i += length;
    } else {
      // Only the '%' needs doubling: the rest of the directive holds no '%'
      // and is copied as ordinary text by the next rounds.
      m_format += "%%";
      ++i;
    }
  }
}
