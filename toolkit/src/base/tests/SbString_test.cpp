#include <Orvex/SbString.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace {

std::u16string utf16Of(const SbString& s) { return std::u16string(s.toUtf16()); }

// UTF-16 in, UTF-16 out, with the UTF-8 bytes and the length in between.
void expectRoundTrip(const std::u16string& text, const std::string& utf8) {
  SbString s(text.data(), text.size());
  EXPECT_EQ(s.toStdString(), utf8);
  EXPECT_EQ(s.getLength(), static_cast<int>(text.size()));
  EXPECT_EQ(std::u16string(s.toUtf16(), text.size()), text);
  // Rebuilt from its own UTF-8 the string decodes to the same units.
  SbString again(s.getString());
  EXPECT_EQ(std::u16string(again.toUtf16(), text.size()), text);
}

}  // namespace

TEST(SbStringUtf16, BmpTextRoundTrips) {
  expectRoundTrip(u"Hello", "Hello");
  expectRoundTrip(u"Gr\u00fc\u00dfe \u20ac", "Gr\xC3\xBC\xC3\x9F" "e \xE2\x82\xAC");
  expectRoundTrip(u"\u65e5\u672c", "\xE6\x97\xA5\xE6\x9C\xAC");
}

TEST(SbStringUtf16, SurrogatePairBecomesFourBytes) {
  expectRoundTrip(u"a\U0001F600b", "a\xF0\x9F\x98\x80" "b");
  expectRoundTrip(u"\U00010000\U0010FFFF", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
}

TEST(SbStringUtf16, LoneSurrogatesKeepTheirThreeByteForm) {
  const std::u16string highAtEnd{u'x', char16_t(0xD800)};
  expectRoundTrip(highAtEnd, "x\xED\xA0\x80");
  const std::u16string lowAtStart{char16_t(0xDC00), u'y'};
  expectRoundTrip(lowAtStart, "\xED\xB0\x80y");
  const std::u16string highThenLetter{char16_t(0xDBFF), u'z'};
  expectRoundTrip(highThenLetter, "\xED\xAF\xBFz");
  const std::u16string reversedPair{char16_t(0xDC00), char16_t(0xD800)};
  expectRoundTrip(reversedPair, "\xED\xB0\x80\xED\xA0\x80");
}

TEST(SbStringUtf16, EveryBmpUnitRoundTrips) {
  for (uint32_t u = 1; u <= 0xFFFF; ++u) {
    const char16_t unit[2] = {static_cast<char16_t>(u), 0};
    SbString s(unit);
    ASSERT_EQ(s.getLength(), 1) << "unit " << u;
    ASSERT_EQ(s.toUtf16()[0], unit[0]) << "unit " << u;
    ASSERT_EQ(s.toUtf16()[1], 0) << "unit " << u;
  }
}

TEST(SbStringUtf16, EmptyAndNullInputs) {
  const char16_t empty[1] = {0};
  SbString fromEmpty(empty);
  EXPECT_TRUE(fromEmpty.isEmpty());
  EXPECT_EQ(fromEmpty.getLength(), 0);
  EXPECT_EQ(fromEmpty.toUtf16()[0], 0);
  EXPECT_TRUE(SbString(static_cast<const SbWChar*>(nullptr)).isEmpty());
  EXPECT_TRUE(SbString(static_cast<const char*>(nullptr)).isEmpty());
  EXPECT_STREQ(SbString().getString(), "");
}

TEST(SbStringUtf16, EmbeddedNulCountsAsOneUnit) {
  const char16_t text[3] = {u'a', 0, u'b'};
  SbString s(text, 3);
  EXPECT_EQ(s.getLength(), 3);
  EXPECT_EQ(s.getSize(), 3u);
  EXPECT_EQ(std::u16string(s.toUtf16(), 3), std::u16string(text, 3));
}

TEST(SbStringUtf8, InvalidBytesBecomeReplacementCharacters) {
  SbString s("a\xFF" "b\xC3");  // stray byte and a truncated sequence
  EXPECT_EQ(utf16Of(s), (std::u16string{u'a', 0xFFFD, u'b', 0xFFFD}));
  EXPECT_EQ(s.getLength(), 4);
  SbString overlong("\xE0\x80\x80");  // overlong form of NUL
  EXPECT_EQ(overlong.getLength(), 3);
}

TEST(SbStringUtf8, ModifiedUtf8NulIsDecoded) {
  SbString s("a\xC0\x80" "b");
  EXPECT_EQ(s.getLength(), 3);
  EXPECT_EQ(std::u16string(s.toUtf16(), 3), (std::u16string{u'a', 0, u'b'}));
}

TEST(SbStringUtf16, CacheFollowsChanges) {
  SbString s("ab");
  EXPECT_EQ(utf16Of(s), u"ab");
  s += "\xE2\x82\xAC";
  EXPECT_EQ(utf16Of(s), u"ab\u20ac");
  EXPECT_EQ(s.getLength(), 3);
  s = "z";
  EXPECT_EQ(utf16Of(s), u"z");
  s.deleteSubString(0);
  EXPECT_EQ(utf16Of(s), u"");
}

TEST(SbStringUtf16, ConcurrentFirstConversionsAgree) {
  for (int round = 0; round < 50; ++round) {
    const SbString s(u"concurrent \U0001F600 text");
    std::vector<const SbWChar*> seen(8);
    std::vector<std::thread> threads;
    for (int t = 0; t < 8; ++t) threads.emplace_back([&, t] { seen[t] = s.toUtf16(); });
    for (auto& th : threads) th.join();
    for (const SbWChar* p : seen) {
      EXPECT_EQ(p, seen[0]);  // one cache survives
      EXPECT_EQ(std::u16string(p), u"concurrent \U0001F600 text");
    }
  }
}

TEST(SbStringBasics, CopyMoveAndCompare) {
  SbString a(u"\u00e9t\u00e9");
  a.toUtf16();
  SbString copy(a);
  EXPECT_EQ(copy, a);
  EXPECT_EQ(utf16Of(copy), u"\u00e9t\u00e9");
  SbString moved(std::move(copy));
  EXPECT_EQ(utf16Of(moved), u"\u00e9t\u00e9");
  EXPECT_TRUE(copy.isEmpty());  // NOLINT: moved-from state is defined as empty
  SbString assigned;
  assigned = moved;
  EXPECT_TRUE(assigned == "\xC3\xA9t\xC3\xA9");
  EXPECT_TRUE(SbString("") == nullptr);
  EXPECT_TRUE(SbString("a") < SbString("b"));
  EXPECT_EQ(SbString("same").hash(), SbString::hash("same"));
  EXPECT_NE(SbString("same").hash(), SbString("other").hash());
}

TEST(SbStringBasics, FormattingAndSubstrings) {
  EXPECT_STREQ(SbString::sprintf("%d-%s-%.1f", 42, "x", 1.5).getString(), "42-x-1.5");
  EXPECT_STREQ(SbString(-17).getString(), "-17");
  SbString s("hello world");
  EXPECT_STREQ(s.getSubString(6).getString(), "world");
  EXPECT_STREQ(s.getSubString(0, 4).getString(), "hello");
  EXPECT_STREQ(SbString("hello world", 2, 4).getString(), "llo");
  EXPECT_EQ(s.find("world"), 6);
  EXPECT_EQ(s.find("absent"), -1);
  EXPECT_TRUE(s.contains("lo w"));
  s.deleteSubString(5, 10);
  EXPECT_STREQ(s.getString(), "hello");
  EXPECT_STREQ((SbString("a") + SbString("b")).getString(), "ab");
  s += '!';
  EXPECT_STREQ(s.getString(), "hello!");
  s.makeEmpty();
  EXPECT_TRUE(!s);
}
