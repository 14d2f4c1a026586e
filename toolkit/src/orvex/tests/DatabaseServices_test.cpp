// The database's services: global fields (also in files), routes,
// converters, plug-ins, the header registry, the application lock, event
// processing and the render-cache settings.

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/engines/SoComposeVec3f.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/fields/SoSFInt32.h>
#include <Orvex/fields/SoSFString.h>
#include <Orvex/fields/SoSFVec3f.h>
#include <Orvex/nodes/SoCone.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoSphere.h>
#include <Orvex/nodes/SoTranslation.h>
#include <Orvex/sensors/SoAlarmSensor.h>
#include <Orvex/sensors/SoOneShotSensor.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "ErrorCapture.h"
#include "TempFiles.h"
#include "TestSupport.h"

using orvextest::make;
using orvextest::readFromString;
using orvextest::TempDir;

namespace {

class DatabaseServicesTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
};

// Reads a whole text; null after a read error.
orvextest::Ref<SoSeparator> readText(const std::string& text) { return readFromString(text); }

}  // namespace

// ---- global fields -----------------------------------------------------------------

TEST_F(DatabaseServicesTest, GlobalFieldsAreCreatedFoundRenamedAndBoundToOneType) {
  SoField* speed = SoDB::createGlobalField("dbSpeed", SoSFFloat::getClassTypeId());
  ASSERT_NE(speed, nullptr);
  EXPECT_EQ(speed->getTypeId(), SoSFFloat::getClassTypeId());
  EXPECT_EQ(SoDB::getGlobalField("dbSpeed"), speed);
  // The same name and type: the same field; another type: none.
  EXPECT_EQ(SoDB::createGlobalField("dbSpeed", SoSFFloat::getClassTypeId()), speed);
  EXPECT_EQ(SoDB::createGlobalField("dbSpeed", SoSFInt32::getClassTypeId()), nullptr);
  EXPECT_EQ(SoDB::getGlobalField("dbSpeed"), speed);

  SoDB::renameGlobalField("dbSpeed", "dbVelocity");
  EXPECT_EQ(SoDB::getGlobalField("dbSpeed"), nullptr);
  EXPECT_EQ(SoDB::getGlobalField("dbVelocity"), speed);
  // An empty new name deletes the field.
  SoDB::renameGlobalField("dbVelocity", "");
  EXPECT_EQ(SoDB::getGlobalField("dbVelocity"), nullptr);
}

TEST_F(DatabaseServicesTest, GlobalFieldBlocksOfFilesSetGlobalFields) {
  auto root = readText(
      "#Orvex V1.0 ascii\n"
      "GlobalField { SFFloat dbFileSpeed 2.5 }\n"
      "Cube {}\n"
      "GlobalField { SFString dbFileTitle \"a scene\" }\n"
      "GlobalField { SFFloat dbFileSpeed 3.5 }\n"
      "Sphere {}\n");
  ASSERT_TRUE(root);
  ASSERT_EQ(root->getNumChildren(), 2);
  EXPECT_TRUE(root->getChild(0)->isOfType(SoCube::getClassTypeId()));
  EXPECT_TRUE(root->getChild(1)->isOfType(SoSphere::getClassTypeId()));
  auto* speed = dynamic_cast<SoSFFloat*>(SoDB::getGlobalField("dbFileSpeed"));
  ASSERT_NE(speed, nullptr);
  EXPECT_EQ(speed->getValue(), 3.5f);  // the later block sets the same field
  auto* title = dynamic_cast<SoSFString*>(SoDB::getGlobalField("dbFileTitle"));
  ASSERT_NE(title, nullptr);
  EXPECT_EQ(title->getValue(), "a scene");

  // Another type for a name in use, an unknown type, a bad value: read errors
  // that leave the field as it was.
  ErrorCapture<SoReadError> errors;
  EXPECT_FALSE(readText("#Orvex V1.0 ascii\nGlobalField { SFInt32 dbFileSpeed 7 }\n"));
  EXPECT_EQ(errors.count(), 1u);
  EXPECT_NE(errors.last().find("dbFileSpeed"), std::string::npos);
  EXPECT_FALSE(readText("#Orvex V1.0 ascii\nGlobalField { SFNoSuchType dbOther 1 }\n"));
  EXPECT_FALSE(readText("#Orvex V1.0 ascii\nGlobalField { SFFloat dbFileSpeed notANumber }\n"));
  EXPECT_EQ(errors.count(), 3u);
  EXPECT_EQ(speed->getValue(), 3.5f);
  EXPECT_EQ(SoDB::getGlobalField("dbOther"), nullptr);
}

TEST_F(DatabaseServicesTest, ReadNodeReadsOneNodeAtATime) {
  const std::string text = "#Orvex V1.0 ascii\nCube {}\nGlobalField { SFInt32 dbBetween 4 }\nCone {}\n";
  SoInput in;
  in.setBuffer(const_cast<char*>(text.data()), text.size());
  auto first = make(SoDB::readNode(&in));
  ASSERT_TRUE(first);
  EXPECT_TRUE(first->isOfType(SoCube::getClassTypeId()));
  auto second = make(SoDB::readNode(&in));
  ASSERT_TRUE(second);
  EXPECT_TRUE(second->isOfType(SoCone::getClassTypeId()));
  EXPECT_EQ(static_cast<SoSFInt32*>(SoDB::getGlobalField("dbBetween"))->getValue(), 4);
  EXPECT_EQ(SoDB::readNode(&in), nullptr);  // the end
  ErrorCapture<SoReadError> errors;
  const std::string bad = "#Orvex V1.0 ascii\nNoSuchNode {}\n";
  SoInput badIn;
  badIn.setBuffer(const_cast<char*>(bad.data()), bad.size());
  EXPECT_EQ(SoDB::readNode(&badIn), nullptr);
  EXPECT_EQ(errors.count(), 1u);
}

// ---- routes ------------------------------------------------------------------------

TEST_F(DatabaseServicesTest, RoutesPassChangesUntilRemoved) {
  auto from = make(new SoTranslation);
  auto to = make(new SoTranslation);
  from->translation.setValue(1, 2, 3);
  SoDB::createRoute(from.get(), "translation", to.get(), "translation");
  EXPECT_EQ(to->translation.getValue(), SbVec3f(1, 2, 3));  // taken at once
  from->translation.setValue(4, 5, 6);
  EXPECT_EQ(to->translation.getValue(), SbVec3f(4, 5, 6));

  // Between fields of other nodes and types: converted.
  auto sphere = make(new SoSphere);
  auto cube = make(new SoCube);
  SoDB::createRoute(sphere.get(), "radius", cube.get(), "width");
  sphere->radius.setValue(7.5f);
  EXPECT_EQ(cube->width.getValue(), 7.5f);

  SoDB::removeRoute(from.get(), "translation", to.get(), "translation");
  from->translation.setValue(7, 8, 9);
  EXPECT_EQ(to->translation.getValue(), SbVec3f(4, 5, 6));
  EXPECT_FALSE(to->translation.isConnected());
  // The other route is still there.
  sphere->radius.setValue(2.0f);
  EXPECT_EQ(cube->width.getValue(), 2.0f);
  SoDB::removeRoute(sphere.get(), "radius", cube.get(), "width");
  sphere->radius.setValue(3.0f);
  EXPECT_EQ(cube->width.getValue(), 2.0f);
}

TEST_F(DatabaseServicesTest, BadRoutesArePosted) {
  auto a = make(new SoTranslation);
  auto b = make(new SoTranslation);
  ErrorCapture<SoDebugError> errors;
  SoDB::createRoute(nullptr, "translation", b.get(), "translation");
  SoDB::createRoute(a.get(), "translation", nullptr, "translation");
  SoDB::createRoute(a.get(), "noSuchField", b.get(), "translation");
  SoDB::createRoute(a.get(), "translation", b.get(), "noSuchField");
  SoDB::createRoute(a.get(), nullptr, b.get(), "translation");
  SoDB::createRoute(a.get(), "translation", a.get(), "translation");
  EXPECT_EQ(errors.count(), 6u);
  EXPECT_NE(errors.records()[2].text.find("noSuchField"), std::string::npos);
  EXPECT_FALSE(b->translation.isConnected());
  EXPECT_FALSE(a->translation.isConnected());
  // Removing a route that was never made.
  SoDB::removeRoute(a.get(), "translation", b.get(), "translation");
  EXPECT_EQ(errors.count(), 7u);
}

// ---- converters --------------------------------------------------------------------

TEST_F(DatabaseServicesTest, ConverterRegistry) {
  const SoType sfFloat = SoSFFloat::getClassTypeId();
  const SoType sfVec3f = SoSFVec3f::getClassTypeId();
  const SoType compose = SoComposeVec3f::getClassTypeId();
  EXPECT_TRUE(SoDB::getConverter(sfFloat, sfVec3f).isBad());
  SoDB::addConverter(sfFloat, sfVec3f, compose);
  EXPECT_EQ(SoDB::getConverter(sfFloat, sfVec3f), compose);
  EXPECT_TRUE(SoDB::getConverter(sfVec3f, sfFloat).isBad());  // one direction only
  SoDB::removeConverter(sfFloat, sfVec3f);
  EXPECT_TRUE(SoDB::getConverter(sfFloat, sfVec3f).isBad());

  // Only field types, and only engines as converters.
  ErrorCapture<SoDebugError> errors;
  SoDB::addConverter(sfFloat, SoCube::getClassTypeId(), compose);
  SoDB::addConverter(sfFloat, sfVec3f, SoCube::getClassTypeId());
  SoDB::addConverter(sfFloat, sfVec3f, SoType::badType());
  EXPECT_EQ(errors.count(), 3u);
  EXPECT_TRUE(SoDB::getConverter(sfFloat, sfVec3f).isBad());
  EXPECT_TRUE(SoDB::getConverter(sfFloat, SoCube::getClassTypeId()).isBad());
}

// ---- plug-ins ----------------------------------------------------------------------

namespace {
int pluginLoads() {
  auto* loads = dynamic_cast<SoSFInt32*>(SoDB::getGlobalField("testPluginLoads"));
  return loads ? loads->getValue() : 0;
}
}  // namespace

TEST_F(DatabaseServicesTest, PluginsAreLoadedOnceAndRecordedByName) {
  ErrorCapture<SoDebugError> errors;
  const int before = pluginLoads();
  SoDB::addPlugin(ORVEX_TEST_PLUGIN);
  EXPECT_EQ(errors.count(), 0u) << errors.last();
  EXPECT_EQ(pluginLoads(), before + 1);
  SoDB::addPlugin(ORVEX_TEST_PLUGIN);  // recorded: nothing happens
  EXPECT_EQ(pluginLoads(), before + 1);
  SoDB::removePlugin(ORVEX_TEST_PLUGIN);
  EXPECT_EQ(errors.count(), 0u);
  SoDB::removePlugin(ORVEX_TEST_PLUGIN);  // no longer recorded
  EXPECT_EQ(errors.count(), 1u);

  // Missing files and files that are no shared objects: posted, never fatal.
  TempDir dir;
  SoDB::addPlugin(dir.file("missing-plugin.so").c_str());
  EXPECT_EQ(errors.count(), 2u);
  EXPECT_NE(errors.last().find("missing-plugin.so"), std::string::npos);
  SoDB::addPlugin(dir.write("text.so", "not a shared object").c_str());
  EXPECT_EQ(errors.count(), 3u);
  SoDB::addPlugin("");
  EXPECT_EQ(errors.count(), 4u);
  // A relative name is looked for through the directory list.
  std::filesystem::copy_file(ORVEX_TEST_PLUGIN, dir.file("relative-plugin.so"));
  SoInput::addDirectoryFirst(dir.path().c_str());
  SoDB::addPlugin("relative-plugin.so");
  SoInput::removeDirectory(dir.path().c_str());
  EXPECT_EQ(errors.count(), 4u) << errors.last();
  EXPECT_EQ(pluginLoads(), before + 2);  // a copy of its own
}

TEST_F(DatabaseServicesTest, PluginDirectoriesLoadEachSharedObject) {
  ErrorCapture<SoDebugError> errors;
  TempDir dir;
  std::filesystem::copy_file(ORVEX_TEST_PLUGIN, dir.file("a-plugin.so"));
  std::filesystem::copy_file(ORVEX_TEST_PLUGIN, dir.file("c-plugin.so"));
  dir.write("b-broken.so", "not a shared object");
  dir.write("notes.txt", "not a plug-in");
  const int before = pluginLoads();
  SoDB::addPluginsDirectory(dir.path().c_str());
  EXPECT_EQ(pluginLoads(), before + 2);
  ASSERT_EQ(errors.count(), 1u);  // the broken one
  EXPECT_NE(errors.last().find("b-broken.so"), std::string::npos);
  SoDB::removePluginsDirectory(dir.path().c_str());
  EXPECT_EQ(errors.count(), 1u);
  SoDB::removePluginsDirectory(dir.path().c_str());
  EXPECT_EQ(errors.count(), 2u);
  SoDB::addPluginsDirectory(dir.file("no-such-dir").c_str());
  EXPECT_EQ(errors.count(), 3u);
  // The plug-ins found there are recorded under their full names.
  SoDB::removePlugin(dir.file("a-plugin.so").c_str());
  EXPECT_EQ(errors.count(), 3u);
}

// ---- headers -----------------------------------------------------------------------

namespace {
struct HeaderLog {
  std::vector<std::string> events;
  SoInput* input = nullptr;
  size_t bytesAtPre = 0;
};
void preHeader(void* data, SoInput* in) {
  auto* log = static_cast<HeaderLog*>(data);
  log->events.push_back("pre");
  log->input = in;
  log->bytesAtPre = in->getNumBytesRead();
}
void postHeader(void* data, SoInput* in) {
  auto* log = static_cast<HeaderLog*>(data);
  log->events.push_back("post");
  log->input = in;
}
}  // namespace

TEST_F(DatabaseServicesTest, RegisteredHeadersRunTheirCallbacksAroundAReading) {
  const int headersBefore = SoDB::getNumHeaders();
  EXPECT_EQ(SoDB::getHeaderString(0), "#Orvex V1.0 ascii");
  EXPECT_EQ(SoDB::getHeaderString(1), "#Orvex V1.0 binary");
  EXPECT_EQ(SoDB::getHeaderString(headersBefore), "");
  EXPECT_EQ(SoDB::getHeaderString(-1), "");

  HeaderLog log;
  ASSERT_TRUE(SoDB::registerHeader("#Database Test Format 2.5", false, 2.5f, &preHeader, &postHeader, &log));
  EXPECT_EQ(SoDB::getNumHeaders(), headersBefore + 1);
  EXPECT_EQ(SoDB::getHeaderString(headersBefore), "#Database Test Format 2.5");
  EXPECT_TRUE(SoDB::isValidHeader("#Database Test Format 2.5"));
  // Not a header: longer than 80 characters, or not a comment.
  EXPECT_FALSE(SoDB::registerHeader(SbString(std::string(81, '#')), false, 1.0f));
  EXPECT_FALSE(SoDB::registerHeader("Database Test Format", false, 1.0f));

  TempDir dir;
  const std::string path = dir.write("custom.ovx", "#Database Test Format 2.5\nCube {}\nSphere {}\n");
  {
    SoInput in;
    ASSERT_TRUE(in.openFile(path.c_str()));
    // The pre callback ran on opening, before any object was read.
    ASSERT_EQ(log.events, std::vector<std::string>{"pre"});
    EXPECT_EQ(log.input, &in);
    EXPECT_EQ(log.bytesAtPre, std::strlen("#Database Test Format 2.5\n"));
    EXPECT_EQ(in.getHeader(), "#Database Test Format 2.5");
    EXPECT_EQ(in.getIVVersion(), 2.5f);
    auto root = make(SoDB::readAll(&in));
    ASSERT_TRUE(root);
    EXPECT_EQ(root->getNumChildren(), 2);
    EXPECT_EQ(log.events.size(), 1u);
    in.closeFile();
    // The post callback when the file is done with.
    EXPECT_EQ(log.events, (std::vector<std::string>{"pre", "post"}));
    EXPECT_EQ(log.input, &in);
  }
  EXPECT_EQ(log.events.size(), 2u);
}

namespace {
// Header callbacks that log which file they were called for: the data is
// the log, the input tells the file.
struct FileLog {
  std::vector<std::string> events;
};
void preFile(void* data, SoInput* in) {
  static_cast<FileLog*>(data)->events.push_back(std::string("pre ") +
                                                std::filesystem::path(in->getCurFileName()).filename().string());
}
void postFile(void* data, SoInput* in) {
  static_cast<FileLog*>(data)->events.push_back(std::string("post ") +
                                                std::filesystem::path(in->getCurFileName()).filename().string());
}
}  // namespace

TEST_F(DatabaseServicesTest, HeaderCallbacksBracketEachFileOfTheirHeader) {
  FileLog log;
  ASSERT_TRUE(SoDB::registerHeader("#Database Test Format 2.6", false, 2.6f, &preFile, &postFile, &log));
  // The registry hands the functions and their data back.
  bool isBinary = true;
  float version = 0;
  SoDBHeaderCB* pre = nullptr;
  SoDBHeaderCB* post = nullptr;
  void* data = nullptr;
  ASSERT_TRUE(SoDB::getHeaderData("#Database Test Format 2.6", isBinary, version, pre, post, data));
  EXPECT_FALSE(isBinary);
  EXPECT_EQ(version, 2.6f);
  EXPECT_EQ(pre, &preFile);
  EXPECT_EQ(post, &postFile);
  EXPECT_EQ(data, &log);

  TempDir dir;
  const std::string a = dir.write("a.ovx", "#Database Test Format 2.6\nCube {}\n");
  const std::string b = dir.write("b.ovx", "#Database Test Format 2.6\nSphere {}\n");
  const std::string plain = dir.write("plain.ovx", "#Orvex V1.0 ascii\nCone {}\n");
  {
    SoInput in;
    ASSERT_TRUE(in.openFile(a.c_str()));
    // Opening another file closes the first: its post before the next pre.
    ASSERT_TRUE(in.openFile(b.c_str()));
    EXPECT_EQ(log.events, (std::vector<std::string>{"pre a.ovx", "post a.ovx", "pre b.ovx"}));
    // A pushed file of that header is bracketed too, and its post comes once
    // it has been read to its end, while the file below it is still open.
    ASSERT_TRUE(in.pushFile(a.c_str()));
    EXPECT_EQ(log.events.back(), "pre a.ovx");
    auto first = make(SoDB::readNode(&in));
    ASSERT_TRUE(first);
    EXPECT_EQ(first->getTypeId(), SoCube::getClassTypeId());
    auto second = make(SoDB::readNode(&in));
    ASSERT_TRUE(second);
    EXPECT_EQ(second->getTypeId(), SoSphere::getClassTypeId());
    EXPECT_EQ(log.events, (std::vector<std::string>{"pre a.ovx", "post a.ovx", "pre b.ovx", "pre a.ovx",
                                                    "post a.ovx"}));
    // A file of another header calls none of them.
    ASSERT_TRUE(in.openFile(plain.c_str()));
    EXPECT_EQ(log.events.back(), "post b.ovx");
    const size_t count = log.events.size();
    auto cone = make(SoDB::readAll(&in));
    ASSERT_TRUE(cone);
    in.closeFile();
    EXPECT_EQ(log.events.size(), count);
  }
  EXPECT_EQ(log.events.size(), 6u);
}

namespace {
void closeOnPost(void* data, SoInput* in) {
  ++*static_cast<int*>(data);
  in->closeFile();
}
}  // namespace

TEST_F(DatabaseServicesTest, APostFunctionMayCloseTheInput) {
  int posts = 0;
  ASSERT_TRUE(SoDB::registerHeader("#Database Test Format 2.7", false, 2.7f, nullptr, &closeOnPost, &posts));
  TempDir dir;
  const std::string outer = dir.write("outer.ovx", "#Orvex V1.0 ascii\nCube {}\nSphere {}\n");
  const std::string inner = dir.write("inner.ovx", "#Database Test Format 2.7\nCone {}\n");
  SoInput in;
  ASSERT_TRUE(in.openFile(outer.c_str()));
  ASSERT_TRUE(in.pushFile(inner.c_str()));
  auto cone = make(SoDB::readNode(&in));
  ASSERT_TRUE(cone);
  EXPECT_EQ(cone->getTypeId(), SoCone::getClassTypeId());
  // Finishing the pushed file runs its post function, which closes
  // everything: the outer file's nodes are not read any more.
  SoNode* next = nullptr;
  SoDB::read(&in, next);
  EXPECT_EQ(next, nullptr);
  EXPECT_EQ(posts, 1);
  EXPECT_TRUE(in.eof());
  in.closeFile();
  EXPECT_EQ(posts, 1);
}

TEST_F(DatabaseServicesTest, IsValidHeader) {
  EXPECT_TRUE(SoDB::isValidHeader("#Orvex V1.0 ascii"));
  EXPECT_TRUE(SoDB::isValidHeader("#Orvex V1.0 ascii  \nSeparator {}"));
  EXPECT_TRUE(SoDB::isValidHeader("#Orvex V1.0 binary"));
  EXPECT_FALSE(SoDB::isValidHeader("#Orvex V1.0 asci"));
  EXPECT_FALSE(SoDB::isValidHeader("#Orvex V2.0 ascii"));
  EXPECT_FALSE(SoDB::isValidHeader(""));
  EXPECT_FALSE(SoDB::isValidHeader(nullptr));
}

// ---- the application lock -----------------------------------------------------------

TEST_F(DatabaseServicesTest, ReadersShareTheLockAndAWriterExcludesThem) {
  // Two readers hold the lock at the same time: each waits, holding it,
  // until the other is in.
  std::atomic<int> readersIn{0};
  std::atomic<bool> bothSeen[2] = {false, false};
  auto reader = [&](int index) {
    SoDB::readlock();
    ++readersIn;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (readersIn < 2 && std::chrono::steady_clock::now() < deadline) std::this_thread::yield();
    bothSeen[index] = readersIn == 2;
    SoDB::readunlock();
  };
  std::thread r0(reader, 0), r1(reader, 1);
  r0.join();
  r1.join();
  EXPECT_TRUE(bothSeen[0]);
  EXPECT_TRUE(bothSeen[1]);

  // A writer keeps a reader out until it unlocks.
  std::atomic<bool> readerGotIn{false};
  SoDB::writelock();
  std::thread blocked([&] {
    SoDB::readlock();
    readerGotIn = true;
    SoDB::readunlock();
  });
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  EXPECT_FALSE(readerGotIn);
  SoDB::writeunlock();
  blocked.join();
  EXPECT_TRUE(readerGotIn);

  // And a reader keeps a writer out.
  std::atomic<bool> writerGotIn{false};
  SoDB::readlock();
  std::thread writer([&] {
    SoDB::writelock();
    writerGotIn = true;
    SoDB::writeunlock();
  });
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  EXPECT_FALSE(writerGotIn);
  SoDB::readunlock();
  writer.join();
  EXPECT_TRUE(writerGotIn);
  EXPECT_TRUE(SoDB::isMultiThread());
}

// ---- event processing ----------------------------------------------------------------

namespace {
void countFiring(void* data, SoSensor*) { ++*static_cast<int*>(data); }
}  // namespace

TEST_F(DatabaseServicesTest, ProcessEventsFiresDelaySensorsAndDueTimers) {
  int delayFirings = 0, alarmFirings = 0, laterFirings = 0;
  SoOneShotSensor oneShot(&countFiring, &delayFirings);
  SoAlarmSensor due(&countFiring, &alarmFirings);
  SoAlarmSensor later(&countFiring, &laterFirings);
  oneShot.setPriority(100);  // not the immediate queue
  oneShot.schedule();
  due.setTime(SbTime::getTimeOfDay() - SbTime(1.0));
  due.schedule();
  later.setTimeFromNow(SbTime(3600.0));
  later.schedule();
  EXPECT_EQ(delayFirings, 0);
  EXPECT_EQ(alarmFirings, 0);
  SoDB::processEvents();
  EXPECT_EQ(delayFirings, 1);
  EXPECT_EQ(alarmFirings, 1);
  EXPECT_EQ(laterFirings, 0);
  EXPECT_FALSE(oneShot.isScheduled());
  EXPECT_FALSE(due.isScheduled());
  EXPECT_TRUE(later.isScheduled());
  SoDB::processEvents();  // nothing more is due
  EXPECT_EQ(delayFirings, 1);
  EXPECT_EQ(alarmFirings, 1);
  later.unschedule();
}

TEST_F(DatabaseServicesTest, TimeSettings) {
  const SbTime before = SbTime::getTimeOfDay();
  const SbTime now = SoDB::getCurrentTime();
  EXPECT_GE(now, before);
  EXPECT_LE(now, SbTime::getTimeOfDay());

  const SbTime timeout = SoDB::getDelaySensorTimeout();
  SoDB::setDelaySensorTimeout(SbTime(0.25));
  EXPECT_EQ(SoDB::getDelaySensorTimeout(), SbTime(0.25));
  SoDB::setDelaySensorTimeout(timeout);
  EXPECT_EQ(SoDB::getDelaySensorTimeout(), timeout);

  const SbTime interval = SoDB::getRealTimeInterval();
  SoDB::setRealTimeInterval(SbTime(0.5));
  EXPECT_EQ(SoDB::getRealTimeInterval(), SbTime(0.5));
  SoDB::setRealTimeInterval(interval);
  EXPECT_EQ(SoDB::getRealTimeInterval(), interval);
}

// ---- settings ------------------------------------------------------------------------

TEST_F(DatabaseServicesTest, RenderCacheAndTuningSettingsRoundTrip) {
  EXPECT_EQ(SoDB::getNumRenderCaches(), 2);
  EXPECT_EQ(SoDB::getRenderCacheMode(), SoDB::AUTORENDERCACHE);
  EXPECT_FALSE(SoDB::isPrioritizedChildrenCaching());
  EXPECT_TRUE(SoDB::getTuneLuxAllowed());

  SoDB::setNumRenderCaches(5);
  EXPECT_EQ(SoDB::getNumRenderCaches(), 5);
  SoDB::setNumRenderCaches(-3);
  EXPECT_EQ(SoDB::getNumRenderCaches(), 0);
  SoDB::setRenderCacheMode(SoDB::COMPILE);
  EXPECT_EQ(SoDB::getRenderCacheMode(), SoDB::COMPILE);
  SoDB::setRenderCacheMode(SoDB::COMPILEANDEXECUTE);
  EXPECT_EQ(SoDB::getRenderCacheMode(), SoDB::COMPILEANDEXECUTE);
  SoDB::setRenderCacheMode(static_cast<SoDB::RenderCacheModes>(42));  // not a mode: kept
  EXPECT_EQ(SoDB::getRenderCacheMode(), SoDB::COMPILEANDEXECUTE);
  SoDB::prioritizeChildrenCaching(true);
  EXPECT_TRUE(SoDB::isPrioritizedChildrenCaching());
  SoDB::setTuneLuxAllowed(false);
  EXPECT_FALSE(SoDB::getTuneLuxAllowed());

  SoDB::setNumRenderCaches(2);
  SoDB::setRenderCacheMode(SoDB::AUTORENDERCACHE);
  SoDB::prioritizeChildrenCaching(false);
  SoDB::setTuneLuxAllowed(true);
}
