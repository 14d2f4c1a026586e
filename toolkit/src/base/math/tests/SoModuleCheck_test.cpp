#include <Orvex/errors/SoDebugError.h>
#include <Orvex/misc/SoModuleCheck.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {
std::vector<std::string> g_posted;
void collect(const SoError* error, void*) { g_posted.push_back(error->getDebugString().getString()); }
}  // namespace

TEST(SoModuleCheck, RegistersListsAndUnregisters) {
  const int before = SoModuleCheck::getNumRecords();
  {
    SoModuleCheck a("testmodule", "com.example.A");
    SoModuleCheck b("testmodule", "com.example.B");
    SoModuleCheck c("othermodule", "com.example.C");
    EXPECT_EQ(SoModuleCheck::getNumRecords(), before + 3);
    EXPECT_EQ(SoModuleCheck::getNumRecords("testmodule"), 2);
    EXPECT_TRUE(SoModuleCheck::isRegistered("com.example.B"));
    const auto records = SoModuleCheck::getRecords();
    ASSERT_GE(records.size(), 3u);
    EXPECT_EQ(records[records.size() - 3].className, "com.example.A");  // registration order
    EXPECT_EQ(records.back().interfaceVersion, SoModuleCheck::getInterfaceVersion());
  }
  EXPECT_EQ(SoModuleCheck::getNumRecords(), before);
  EXPECT_FALSE(SoModuleCheck::isRegistered("com.example.B"));
}

TEST(SoModuleCheck, CheckReportsOnlyMismatchedVersions) {
  SoError::initClasses();
  SoDebugError::setHandlerCallback(collect, nullptr);
  g_posted.clear();
  SoModuleCheck good("testmodule", "com.example.Good");
  SoModuleCheck bad("testmodule", "com.example.Old", ORVEX_INTERFACE_VERSION + 7);
  EXPECT_EQ(SoModuleCheck::check(), 1);
  ASSERT_EQ(g_posted.size(), 1u);
  EXPECT_NE(g_posted[0].find("com.example.Old"), std::string::npos);
  SoDebugError::setHandlerCallback(SoError::defaultHandlerCB, nullptr);
}
