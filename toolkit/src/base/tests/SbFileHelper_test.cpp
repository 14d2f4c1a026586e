#include <Orvex/SbFileHelper.h>

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <string>

TEST(SbFileHelper, OpensFilesWithUnicodeNames) {
  char dirTemplate[] = "/tmp/orvex_file_XXXXXX";
  ASSERT_NE(mkdtemp(dirTemplate), nullptr);
  const SbString dir(dirTemplate);
  const SbString name = dir + SbString("/") + SbString(u"t\u00ebst_\u20ac_\U0001F600.txt");

  EXPECT_FALSE(SbFileHelper::exists(name));
  FILE* out = SbFileHelper::open(name, "w");
  ASSERT_NE(out, nullptr);
  std::fputs("content", out);
  EXPECT_EQ(SbFileHelper::close(out), 0);
  EXPECT_TRUE(SbFileHelper::exists(name));

  FILE* in = SbFileHelper::open(name, "r");
  ASSERT_NE(in, nullptr);
  char buffer[16] = {};
  ASSERT_NE(std::fgets(buffer, sizeof buffer, in), nullptr);
  EXPECT_STREQ(buffer, "content");
  SbFileHelper::close(in);

  EXPECT_EQ(std::remove(name.getString()), 0);
  EXPECT_EQ(rmdir(dirTemplate), 0);
}

TEST(SbFileHelper, FailuresAreReported) {
  EXPECT_EQ(SbFileHelper::open("/nonexistent_dir_orvex/x.txt", "r"), nullptr);
  EXPECT_EQ(SbFileHelper::open(SbString(), "r"), nullptr);
  EXPECT_EQ(SbFileHelper::close(nullptr), EOF);
  EXPECT_FALSE(SbFileHelper::exists(SbString()));
}

TEST(SbFileHelper, PathParts) {
  EXPECT_STREQ(SbFileHelper::getDirName("/a/b/c.ovx").getString(), "/a/b/");
  EXPECT_STREQ(SbFileHelper::getDirName("c.ovx").getString(), "");
  EXPECT_STREQ(SbFileHelper::getDirName("C:\\data\\c.ovx").getString(), "C:\\data\\");
  EXPECT_STREQ(SbFileHelper::getBaseName("/a/b/c.ovx").getString(), "c.ovx");
  EXPECT_STREQ(SbFileHelper::getBaseName("c.ovx").getString(), "c.ovx");
  EXPECT_TRUE(SbFileHelper::isAbsolute("/a"));
  EXPECT_TRUE(SbFileHelper::isAbsolute("C:/a"));
  EXPECT_FALSE(SbFileHelper::isAbsolute("a/b"));
  EXPECT_FALSE(SbFileHelper::isAbsolute(""));
}

TEST(SbFileHelper, CurrentDirectoryEndsWithSeparator) {
  const SbString cwd = SbFileHelper::getCurrentDirectory();
  ASSERT_FALSE(cwd.isEmpty());
  EXPECT_EQ(cwd.toStdString().back(), '/');
  EXPECT_TRUE(SbFileHelper::isAbsolute(cwd));
  EXPECT_TRUE(SbFileHelper::exists(cwd));
}
