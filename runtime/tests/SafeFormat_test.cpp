// SafeFormat against hostile message texts: what the C library's formatter
// prints for the safe format with the fixed zero arguments, exactly as the
// toolkit's error functions receive them.

#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "SafeFormat.h"

namespace {

// What snprintf prints for the safe format of `text`.
std::string printed(const char* text) {
  const SafeFormat format(text);
  std::vector<char> buffer(4096);
  const int length = std::snprintf(buffer.data(), buffer.size(), format.get(), ORVEX_SAFE_FORMAT_ARGS);
  EXPECT_GE(length, 0) << "format of \"" << text << "\": " << format.get();
  EXPECT_LT(length, static_cast<int>(buffer.size())) << text;
  return std::string(buffer.data(), length < 0 ? 0 : static_cast<size_t>(length));
}

std::string repeated(const std::string& piece, int times) {
  std::string result;
  for (int i = 0; i < times; ++i) result += piece;
  return result;
}

TEST(SafeFormat, PlainTextAndUtf8PassUnchanged) {
  EXPECT_STREQ(SafeFormat("plain text").get(), "plain text");
  EXPECT_EQ(printed("gr\xC3\xB6\xC3\x9F" "e \xE2\x82\xAC"), "gr\xC3\xB6\xC3\x9F" "e \xE2\x82\xAC");
  // The virtual machine's encoded NUL is two ordinary bytes.
  EXPECT_EQ(printed("a\xC0\x80" "b"), "a\xC0\x80" "b");
  EXPECT_EQ(printed(""), "");
}

TEST(SafeFormat, NullTextGivesAnEmptyFormat) {
  const SafeFormat format(nullptr);
  ASSERT_NE(format.get(), nullptr);
  EXPECT_STREQ(format.get(), "");
}

TEST(SafeFormat, IntegerConversionsAreStillFormatted) {
  EXPECT_EQ(printed("%d"), "0");
  EXPECT_EQ(printed("value %d%%"), "value 0%");
  EXPECT_EQ(printed("%i %u %o %x %X"), "0 0 0 0 0");
  EXPECT_EQ(printed("%hhd %hd %ld %lld %jd %zd %td %hhu %lx %llX %zo %jx %tu"), "0 0 0 0 0 0 0 0 0 0 0 0 0");
  EXPECT_EQ(printed("[%5d|%-5d|%05d|%+d|% d]"), "[    0|0    |00000|+0| 0]");
  EXPECT_EQ(printed("[%.3d|%8.4lx|%#o|%#x|%#5X|%'d]"), "[000|    0000|0|0|    0|0]");
  EXPECT_EQ(printed("%-+ 0'5.3lld|"), "+000 |");
  // A safe format keeps its text as it was.
  EXPECT_STREQ(SafeFormat("x=%5.2ld y=%#x %% z=%'u").get(), "x=%5.2ld y=%#x %% z=%'u");
}

TEST(SafeFormat, StarWidthAndPrecisionReadAZero) {
  EXPECT_EQ(printed("[%*d]"), "[0]");
  EXPECT_EQ(printed("[%-*d]"), "[0]");
  // Precision 0 of the value 0 prints no digit at all.
  EXPECT_EQ(printed("[%.*d]"), "[]");
  EXPECT_EQ(printed("[%*.*x]"), "[]");
}

TEST(SafeFormat, PointerCharacterAndWritingConversionsPrintLiterally) {
  for (const char* text : {"%s", "%n", "%p", "%c", "%C", "%S", "%ls", "%lc", "%hhn", "%lln", "%5s", "%-20.3s", "%m",
                           "%b", "%B", "%k", "%w", "%y", "%Z", "%v"}) {
    EXPECT_EQ(printed(text), text) << SafeFormat(text).get();
  }
  EXPECT_EQ(printed("SoFoo::bar: file %s not found (%n bytes)"), "SoFoo::bar: file %s not found (%n bytes)");
}

TEST(SafeFormat, FloatingConversionsPrintLiterally) {
  for (const char* text : {"%f", "%F", "%e", "%E", "%g", "%G", "%a", "%A", "%Lf", "%.3f", "%10.2e", "%lf", "%qd",
                           "%Ld", "%Zd", "%I64d", "%Id"}) {
    EXPECT_EQ(printed(text), text) << SafeFormat(text).get();
  }
}

TEST(SafeFormat, PositionalArgumentsPrintLiterally) {
  for (const char* text : {"%1$s", "%1$d", "%2$x", "%*1$d", "%.*1$d", "%1$*2$d"}) {
    EXPECT_EQ(printed(text), text) << SafeFormat(text).get();
  }
  // One positional directive does not change how the others are handled.
  EXPECT_EQ(printed("%d %1$d %d"), "0 %1$d 0");
}

TEST(SafeFormat, StarConversionsOfPointersPrintLiterally) {
  EXPECT_EQ(printed("%*s|%.*s|%*.*s"), "%*s|%.*s|%*.*s");
}

TEST(SafeFormat, UndefinedFlagCombinationsPrintLiterally) {
  // '#' is undefined for signed and unsigned decimal, ''' for octal and hex.
  EXPECT_EQ(printed("%-+ 0#'5.3lld"), "%-+ 0#'5.3lld");
  EXPECT_EQ(printed("%#d %#u %'x %'o"), "%#d %#u %'x %'o");
}

TEST(SafeFormat, MalformedLengthModifiersPrintLiterally) {
  for (const char* text : {"%hld", "%lhd", "%lllld", "%hhhd", "%jjd", "%zzd", "%l"}) {
    EXPECT_EQ(printed(text), text) << SafeFormat(text).get();
  }
}

TEST(SafeFormat, IncompleteDirectivesPrintLiterally) {
  for (const char* text : {"%", "100%", "%-", "%5", "%.", "%.3", "%*", "%#", "%'", "%h", "%hh", "%ll"}) {
    EXPECT_EQ(printed(text), text) << SafeFormat(text).get();
  }
  EXPECT_EQ(printed("%ld%"), "0%");
}

TEST(SafeFormat, PercentSignsAroundEscapesPairUp) {
  EXPECT_EQ(printed("%%"), "%");
  EXPECT_EQ(printed("%%s"), "%s");
  EXPECT_EQ(printed("%%%s"), "%%s");
  EXPECT_EQ(printed("%%%d"), "%0");
  EXPECT_EQ(printed("%5%"), "%5%");
}

TEST(SafeFormat, ConversionsBeyondTheArgumentListPrintLiterally) {
  EXPECT_EQ(SafeFormat::kArgumentCount, 32);
  EXPECT_EQ(printed(repeated("%d", 100).c_str()), repeated("0", 32) + repeated("%d", 68));
  // A '*' reads one more argument: sixteen "%*d" use them all.
  EXPECT_EQ(printed(repeated("%*d", 17).c_str()), repeated("0", 16) + "%*d");
  // A directive that does not fit leaves the remaining arguments to later ones.
  EXPECT_EQ(printed((repeated("%d", 31) + "%*d%d%d").c_str()), repeated("0", 31) + "%*d0%d");
  // Escaped directives read nothing.
  EXPECT_EQ(printed((repeated("%s", 40) + repeated("%x", 32)).c_str()), repeated("%s", 40) + repeated("0", 32));
}

TEST(SafeFormat, WidthsAndPrecisionsBeyondTheBoundPrintLiterally) {
  EXPECT_EQ(SafeFormat::kMaxFieldWidth, 256);
  EXPECT_EQ(printed("%256d"), std::string(255, ' ') + "0");
  EXPECT_EQ(printed("%.256d"), std::string(256, '0'));
  EXPECT_EQ(printed("%0256x"), std::string(256, '0'));
  for (const char* text : {"%257d", "%.257d", "%999999999d", "%.999999999d", "%2147483648d", "%99999999999999999999d",
                           "%-1000000lld", "%5.999999999u"}) {
    EXPECT_EQ(printed(text), text) << SafeFormat(text).get();
  }
  // Leading zeros of a precision do not make it large.
  EXPECT_EQ(printed("%.0000000000000000000003d"), "000");
}

// Random texts over the characters that matter to the formatter: the
// formatter never fails on a safe format, and a safe format is its own safe
// format (its directives are all accepted ones, its other '%' all paired).
TEST(SafeFormat, RandomTextsGiveStableFormatsThatPrint) {
  const std::string alphabet = "%%%%dixXounspcCSfeEgaALqjztlh*.$0123456789-+ #'Z";
  std::mt19937 random(20240611u);
  std::uniform_int_distribution<size_t> pick(0, alphabet.size() - 1);
  std::uniform_int_distribution<int> length(0, 120);
  std::vector<char> buffer(64 * 1024);
  for (int round = 0; round < 20000; ++round) {
    std::string text;
    for (int n = length(random); n > 0; --n) text += alphabet[pick(random)];
    const SafeFormat format(text.c_str());
    ASSERT_STREQ(SafeFormat(format.get()).get(), format.get()) << "text: " << text;
    const int printedLength = std::snprintf(buffer.data(), buffer.size(), format.get(), ORVEX_SAFE_FORMAT_ARGS);
    ASSERT_GE(printedLength, 0) << "text: " << text;
    // Every field is at most kMaxFieldWidth wide, and each conversion of 0
    // prints at most one digit or sign beyond it.
    const int bound = static_cast<int>(text.size()) + SafeFormat::kArgumentCount * (SafeFormat::kMaxFieldWidth + 2);
    ASSERT_LE(printedLength, bound) << "text: " << text;
  }
}

}  // namespace
