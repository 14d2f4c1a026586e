#include <Orvex/SbName.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

TEST(SbName, SameTextSharesStorage) {
  SbName a("Separator");
  SbName b(std::string("Separator"));
  SbName c(SbString("Separator"));
  EXPECT_EQ(a.getString(), b.getString());
  EXPECT_EQ(a.getString(), c.getString());
  EXPECT_TRUE(a == b);
  EXPECT_FALSE(a == SbName("Separator2"));
  EXPECT_TRUE(a == "Separator");
  EXPECT_TRUE(a != "Other");
  EXPECT_EQ(a.getLength(), 9);
}

TEST(SbName, EmptyNames) {
  SbName none;
  EXPECT_TRUE(!none);
  EXPECT_EQ(none, SbName(""));
  EXPECT_EQ(none, SbName(static_cast<const char*>(nullptr)));
  EXPECT_FALSE(!SbName("x"));
}

TEST(SbName, TextOutlivesItsSource) {
  const char* text;
  {
    std::string source = "transient_name_text";
    text = SbName(source).getString();
    source.assign("overwritten________");
  }
  EXPECT_STREQ(text, "transient_name_text");
  EXPECT_EQ(SbName("transient_name_text").getString(), text);
}

TEST(SbName, IdentityHoldsAcrossThreads) {
  constexpr int kThreads = 8;
  constexpr int kNames = 2000;
  std::vector<std::vector<const char*>> seen(kThreads, std::vector<const char*>(kNames));
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&seen, t] {
      // Each thread walks the names from a different start, odd ones backwards.
      for (int i = 0; i < kNames; ++i) {
        const int rotated = (i + t * 250) % kNames;
        const int n = t % 2 ? kNames - 1 - rotated : rotated;
        seen[t][n] = SbName(("threaded_" + std::to_string(n)).c_str()).getString();
      }
    });
  }
  for (auto& th : threads) th.join();
  for (int n = 0; n < kNames; ++n) {
    ASSERT_STREQ(seen[0][n], ("threaded_" + std::to_string(n)).c_str());
    for (int t = 1; t < kThreads; ++t) ASSERT_EQ(seen[t][n], seen[0][n]) << "name " << n;
  }
}

TEST(SbName, IdentifierCharacters) {
  EXPECT_TRUE(SbName::isIdentStartChar('a'));
  EXPECT_TRUE(SbName::isIdentStartChar('_'));
  EXPECT_FALSE(SbName::isIdentStartChar('1'));
  EXPECT_TRUE(SbName::isIdentChar('1'));
  EXPECT_FALSE(SbName::isIdentChar('-'));
  EXPECT_FALSE(SbName::isBaseNameStartChar('7'));
  EXPECT_TRUE(SbName::isBaseNameChar('7'));
  EXPECT_TRUE(SbName::isBaseNameChar('-'));
  for (char c : std::string(" \t\"'+.\\{}[],#")) EXPECT_FALSE(SbName::isBaseNameChar(c)) << c;
}

TEST(SbName, HashUsesIdentity) {
  std::hash<SbName> h;
  EXPECT_EQ(h(SbName("hashme")), h(SbName(std::string("hashme"))));
}
