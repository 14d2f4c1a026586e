#pragma once
// A Java string turned into a printf format that is safe to hand to the
// toolkit's variadic error functions.
//
// The toolkit's post(method, format, ...) functions format their message with
// vsnprintf. A Java caller only has a message, not arguments, so the message
// is passed as the format together with ORVEX_SAFE_FORMAT_ARGS, a fixed list
// of zero arguments:
//
//   const SafeFormat formatSafe(formatStrHelper.toUTFString());
//   SoDebugError::post(method, formatSafe.get(), ORVEX_SAFE_FORMAT_ARGS);
//
// The integer conversions of the message ("%d", "%5.3lx", "%*d", ...) are
// still formatted (each reads one of the zero arguments), and "%%" still
// prints one percent sign. Every other conversion — one that would read a
// string, a character or a floating value, write through a pointer (%n),
// use an argument position, or need more arguments than the list holds — is
// escaped and prints literally, so that no Java string can make the
// formatter read or write memory that was never passed. See SafeFormat.cpp
// for the exact rules.

#include <string>

#include "OrvexJavaExport.h"

// The arguments that go with SafeFormat::get(): kArgumentCount zeros of the
// widest integer type, so that any accepted conversion — whichever integer
// length it names — reads no more than one argument's storage.
#define ORVEX_SAFE_FORMAT_ARGS                                                                                       \
  0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, \
      0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL, 0LL

class ORVEXJAVA_API SafeFormat {
 public:
  // How many arguments ORVEX_SAFE_FORMAT_ARGS holds: the most arguments the
  // accepted conversions of one format may read (a '*' width or precision
  // reads one too).
  static constexpr int kArgumentCount = 32;
  // The largest width or precision kept. The formatter builds each field in
  // memory, so "%999999999d" would make it allocate and write a gigabyte of
  // padding; such a conversion is escaped instead.
  static constexpr int kMaxFieldWidth = 256;

  // Builds the safe format of the UTF-8 (or modified UTF-8) `text`; a null
  // text gives an empty format.
  explicit SafeFormat(const char* text);

  // The safe format, valid for the lifetime of this object. Pass it only
  // with ORVEX_SAFE_FORMAT_ARGS.
  const char* get() const { return m_format.c_str(); }

 private:
  std::string m_format;
};
