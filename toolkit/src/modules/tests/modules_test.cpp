#include <ImageLux/SoImageLux.h>
#include <MeshLux/PoMeshLux.h>
#include <Orvex/SoDB.h>
#include <Orvex/SoInteraction.h>
#include <Orvex/fields/SoSFTime.h>
#include <Orvex/gui/SoGui.h>
#include <Orvex/nodekits/SoNodeKit.h>
#include <Orvex/sensors/SoTimerSensor.h>
#include <RemoteLux/RemoteLuxClient.h>
#include <ScaleLux/SoScaleLux.h>
#include <VolumeLux/SoVolumeRendering.h>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

struct Module {
  const char* name;
  void (*init)();
  bool (*isInitialized)();
  void (*finish)();
};

const Module kModules[] = {
    {"SoNodeKit", &SoNodeKit::init, &SoNodeKit::isInitialized, &SoNodeKit::finish},
    {"SoInteraction", &SoInteraction::init, &SoInteraction::isInitialized, &SoInteraction::finish},
    {"SoGui", &SoGui::init, &SoGui::isInitialized, &SoGui::finish},
    {"SoScaleLux", &SoScaleLux::init, &SoScaleLux::isInitialized, &SoScaleLux::finish},
    {"PoMeshLux", &PoMeshLux::init, &PoMeshLux::isInitialized, &PoMeshLux::finish},
    {"SoVolumeRendering", &SoVolumeRendering::init, &SoVolumeRendering::isInitialized, &SoVolumeRendering::finish},
    {"SoImageLux", &SoImageLux::init, &SoImageLux::isInitialized, &SoImageLux::finish},
    {"RemoteLuxClient", &RemoteLuxClient::init, &RemoteLuxClient::isInitialized, &RemoteLuxClient::finish},
};

bool anyModuleUp() {
  for (const Module& m : kModules)
    if (m.isInitialized()) return true;
  return false;
}

// Every test starts and ends with all modules down (the database stays up
// once initialised; it has no finish).
class ModulesTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_FALSE(anyModuleUp()); }
  void TearDown() override { EXPECT_FALSE(anyModuleUp()); }
};

}  // namespace

TEST_F(ModulesTest, EachModuleBringsUpTheDatabase) {
  for (const Module& m : kModules) {
    m.init();
    EXPECT_TRUE(m.isInitialized()) << m.name;
    EXPECT_TRUE(SoDB::isInitialized()) << m.name;
    EXPECT_NE(SoDB::getSensorManager(), nullptr) << m.name;
    m.finish();
    EXPECT_FALSE(m.isInitialized()) << m.name;
  }
}

TEST_F(ModulesTest, InitIsIdempotentAndFinishBalancesIt) {
  for (const Module& m : kModules) {
    m.init();
    m.init();
    m.finish();
    EXPECT_TRUE(m.isInitialized()) << m.name << ": one init still open";
    m.finish();
    EXPECT_FALSE(m.isInitialized()) << m.name;
    m.finish();  // an extra finish is harmless
    EXPECT_FALSE(m.isInitialized()) << m.name;
    m.init();
    EXPECT_TRUE(m.isInitialized()) << m.name << ": can come up again";
    m.finish();
  }
}

TEST_F(ModulesTest, InteractionBringsUpNodeKits) {
  SoInteraction::init();
  EXPECT_TRUE(SoNodeKit::isInitialized());
  SoInteraction::finish();
  EXPECT_FALSE(SoNodeKit::isInitialized());
}

TEST_F(ModulesTest, DependenciesStayWhileSomeoneStillNeedsThem) {
  SoNodeKit::init();
  SoInteraction::init();
  SoInteraction::finish();
  EXPECT_TRUE(SoNodeKit::isInitialized());  // its own init is still open
  SoNodeKit::finish();
}

TEST_F(ModulesTest, ImageLuxBuildsOnVolumeRendering) {
  SoImageLux::init();
  EXPECT_TRUE(SoVolumeRendering::isInitialized());
  EXPECT_TRUE(SoInteraction::isInitialized());
  EXPECT_TRUE(SoNodeKit::isInitialized());
  EXPECT_FALSE(SoGui::isInitialized());
  SoImageLux::finish();
  EXPECT_FALSE(SoVolumeRendering::isInitialized());
  EXPECT_FALSE(SoNodeKit::isInitialized());
}

TEST_F(ModulesTest, GuiAndMeshLuxDependencies) {
  SoGui::init();
  EXPECT_TRUE(SoInteraction::isInitialized());
  PoMeshLux::init();
  SoGui::finish();
  EXPECT_FALSE(SoInteraction::isInitialized());
  EXPECT_TRUE(SoNodeKit::isInitialized());  // still held by MeshLux
  PoMeshLux::finish();
}

// The start-up order of the Java binding: ScaleLux first, which must leave
// the "realTime" field ready to be taken over, then everything else.
TEST_F(ModulesTest, HostStartupSequence) {
  SoScaleLux::init();
  auto* realTime = dynamic_cast<SoSFTime*>(SoDB::getGlobalField("realTime"));
  ASSERT_NE(realTime, nullptr);
  SoDB::enableRealTimeSensor(false);
  SoDB::getRealTimeSensor()->setFunction(nullptr);
  SbTime start;
  start.setMsecValue(4000000000u);
  realTime->setValue(start);
  realTime->enableNotify(true);
  for (auto init : {&SoNodeKit::init, &SoInteraction::init, &SoGui::init, &PoMeshLux::init,
                    &SoVolumeRendering::init, &RemoteLuxClient::init, &SoImageLux::init})
    init();
  for (const Module& m : kModules) EXPECT_TRUE(m.isInitialized()) << m.name;
  EXPECT_EQ(realTime->getValue().getMsecValue(), 4000000000u);  // modules leave the clock alone

  SoDB::restoreRealTimeSensorCB();
  SoDB::enableRealTimeSensor(true);
  for (auto finish : {&SoImageLux::finish, &RemoteLuxClient::finish, &SoVolumeRendering::finish,
                      &PoMeshLux::finish, &SoGui::finish, &SoInteraction::finish, &SoNodeKit::finish,
                      &SoScaleLux::finish})
    finish();
}

TEST_F(ModulesTest, ConcurrentInitCountsEveryCall) {
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([] {
      for (int i = 0; i < 100; ++i) SoImageLux::init();
    });
  for (auto& th : threads) th.join();
  for (int i = 0; i < 399; ++i) SoImageLux::finish();
  EXPECT_TRUE(SoImageLux::isInitialized());
  EXPECT_TRUE(SoVolumeRendering::isInitialized());
  SoImageLux::finish();
  EXPECT_FALSE(SoImageLux::isInitialized());
  EXPECT_FALSE(SoVolumeRendering::isInitialized());
}
