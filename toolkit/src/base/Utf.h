#pragma once
// Conversions between the UTF-8 storage of SbString and UTF-16 code units.
//
// The UTF-8 side is "generalised": a UTF-16 surrogate that has no partner is
// written as the 3-byte sequence of its code point (ED A0 80 .. ED BF BF) and
// read back as that same code unit, so that every sequence of 16-bit units,
// valid Unicode or not, survives a round trip.

#include <cstddef>
#include <string>

namespace orvex::utf {

// Appends the UTF-8 form of `count` UTF-16 code units.
void appendUtf16(std::string& out, const char16_t* units, size_t count);

// The UTF-16 code units of a (generalised) UTF-8 byte string. Bytes that do
// not form a sequence become U+FFFD each; the modified-UTF-8 NUL (C0 80) is
// read as U+0000.
std::u16string toUtf16(const std::string& utf8);

// Number of UTF-16 code units toUtf16() would produce.
size_t utf16Length(const std::string& utf8);

}  // namespace orvex::utf
