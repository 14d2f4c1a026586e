#include <Orvex/SoPreferences.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

namespace {

// Each test uses its own names; the fixture clears them from both sources.
class SoPreferencesTest : public ::testing::Test {
 protected:
  void TearDown() override {
    for (const char* name : kNames) {
      SoPreferences::setValue(name, nullptr);
      unsetenv(name);
    }
  }
  static constexpr const char* kNames[] = {"ORVEX_TEST_PREF_A", "ORVEX_TEST_PREF_B", "ORVEX_TEST_PREF_C"};
};

}  // namespace

TEST_F(SoPreferencesTest, DefaultWhenNothingIsSet) {
  EXPECT_EQ(SoPreferences::getValue("ORVEX_TEST_PREF_A"), nullptr);
  EXPECT_TRUE(SoPreferences::getBool("ORVEX_TEST_PREF_A", true));
  EXPECT_FALSE(SoPreferences::getBool("ORVEX_TEST_PREF_A", false));
  EXPECT_EQ(SoPreferences::getInt("ORVEX_TEST_PREF_A", 17), 17);
  EXPECT_FLOAT_EQ(SoPreferences::getFloat("ORVEX_TEST_PREF_A", 2.5f), 2.5f);
  EXPECT_DOUBLE_EQ(SoPreferences::getDouble("ORVEX_TEST_PREF_A", 0.25), 0.25);
  EXPECT_STREQ(SoPreferences::getString("ORVEX_TEST_PREF_A", "dflt").getString(), "dflt");
  EXPECT_EQ(SoPreferences::getValue(nullptr), nullptr);
}

TEST_F(SoPreferencesTest, EnvironmentWinsOverDefault) {
  setenv("ORVEX_TEST_PREF_A", "0", 1);
  setenv("ORVEX_TEST_PREF_B", "-42", 1);
  EXPECT_FALSE(SoPreferences::getBool("ORVEX_TEST_PREF_A", true));
  EXPECT_EQ(SoPreferences::getInt("ORVEX_TEST_PREF_B", 1), -42);
  EXPECT_STREQ(SoPreferences::getValue("ORVEX_TEST_PREF_B"), "-42");
}

TEST_F(SoPreferencesTest, SetValueWinsOverEnvironmentAndLeavesItAlone) {
  setenv("ORVEX_TEST_PREF_A", "FALSE", 1);
  SoPreferences::setValue("ORVEX_TEST_PREF_A", "TRUE");
  EXPECT_TRUE(SoPreferences::getBool("ORVEX_TEST_PREF_A", false));
  EXPECT_STREQ(std::getenv("ORVEX_TEST_PREF_A"), "FALSE");
  // Clearing the set value lets the environment through again.
  SoPreferences::setValue("ORVEX_TEST_PREF_A", nullptr);
  EXPECT_FALSE(SoPreferences::getBool("ORVEX_TEST_PREF_A", true));
}

TEST_F(SoPreferencesTest, ReturnedTextStaysValid) {
  SoPreferences::setValue("ORVEX_TEST_PREF_A", "first value");
  const char* first = SoPreferences::getValue("ORVEX_TEST_PREF_A");
  SoPreferences::setValue("ORVEX_TEST_PREF_A", "second value");
  setenv("ORVEX_TEST_PREF_B", "from env", 1);
  const char* env = SoPreferences::getValue("ORVEX_TEST_PREF_B");
  setenv("ORVEX_TEST_PREF_B", "changed env", 1);
  EXPECT_STREQ(first, "first value");
  EXPECT_STREQ(env, "from env");
  EXPECT_STREQ(SoPreferences::getValue("ORVEX_TEST_PREF_A"), "second value");
  EXPECT_STREQ(SoPreferences::getValue("ORVEX_TEST_PREF_B"), "changed env");
}

TEST_F(SoPreferencesTest, BooleanWords) {
  for (const char* yes : {"1", "TRUE", "true", "On", "yes"}) {
    SoPreferences::setValue("ORVEX_TEST_PREF_C", yes);
    EXPECT_TRUE(SoPreferences::getBool("ORVEX_TEST_PREF_C", false)) << yes;
  }
  for (const char* no : {"0", "FALSE", "false", "off", "No"}) {
    SoPreferences::setValue("ORVEX_TEST_PREF_C", no);
    EXPECT_FALSE(SoPreferences::getBool("ORVEX_TEST_PREF_C", true)) << no;
  }
  for (const char* other : {"", "maybe", "2"}) {
    SoPreferences::setValue("ORVEX_TEST_PREF_C", other);
    EXPECT_TRUE(SoPreferences::getBool("ORVEX_TEST_PREF_C", true)) << other;
    EXPECT_FALSE(SoPreferences::getBool("ORVEX_TEST_PREF_C", false)) << other;
  }
}

TEST_F(SoPreferencesTest, MalformedNumbersGiveTheDefault) {
  for (const char* bad : {"12abc", "", "abc", "99999999999999999999"}) {
    SoPreferences::setValue("ORVEX_TEST_PREF_C", bad);
    EXPECT_EQ(SoPreferences::getInt("ORVEX_TEST_PREF_C", 5), 5) << bad;
  }
  SoPreferences::setValue("ORVEX_TEST_PREF_C", "1.5x");
  EXPECT_DOUBLE_EQ(SoPreferences::getDouble("ORVEX_TEST_PREF_C", 9.0), 9.0);
  SoPreferences::setValue("ORVEX_TEST_PREF_C", "010");
  EXPECT_EQ(SoPreferences::getInt("ORVEX_TEST_PREF_C", 5), 10);  // decimal, not octal
}

TEST_F(SoPreferencesTest, TypedSettersReadBack) {
  SoPreferences::setBool("ORVEX_TEST_PREF_A", false);
  EXPECT_FALSE(SoPreferences::getBool("ORVEX_TEST_PREF_A", true));
  SoPreferences::setInt("ORVEX_TEST_PREF_A", -7);
  EXPECT_EQ(SoPreferences::getInt("ORVEX_TEST_PREF_A", 0), -7);
  SoPreferences::setFloat("ORVEX_TEST_PREF_B", 0.1f);
  EXPECT_EQ(SoPreferences::getFloat("ORVEX_TEST_PREF_B", 0.0f), 0.1f);
  SoPreferences::setDouble("ORVEX_TEST_PREF_B", 0.1);
  EXPECT_EQ(SoPreferences::getDouble("ORVEX_TEST_PREF_B", 0.0), 0.1);
  SoPreferences::setString("ORVEX_TEST_PREF_C", SbString(u"\u00e9t\u00e9"));
  EXPECT_EQ(SoPreferences::getString("ORVEX_TEST_PREF_C", ""), SbString("\xC3\xA9t\xC3\xA9"));
}
