#include <Orvex/sensors/SoFileSensor.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <unistd.h>

#include "SensorTestSupport.h"

namespace fs = std::filesystem;

namespace {

// Records the file each firing reported.
struct FileLog {
  std::vector<std::string> names;
  static void run(void* data, SoSensor* s) {
    static_cast<FileLog*>(data)->names.push_back(static_cast<SoFileSensor*>(s)->getFilename().toStdString());
  }
};

class FileSensor : public SensorFixture {
 protected:
  void SetUp() override {
    SensorFixture::SetUp();
    dir = fs::temp_directory_path() / ("orvex-filesensor-" + std::to_string(::getpid()) + "-" +
                                       ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(dir);
    fs::create_directories(dir);
  }
  void TearDown() override {
    fs::remove_all(dir);
    SensorFixture::TearDown();
  }
  std::string path(const char* name) const { return (dir / name).string(); }
  static void write(const std::string& file, const std::string& text) { std::ofstream(file) << text; }
  // Moves the modification time, so that a rewrite within the file system's
  // time resolution is still seen as a change.
  static void age(const std::string& file, int seconds) {
    fs::last_write_time(file, fs::last_write_time(file) - std::chrono::seconds(seconds));
  }
  // A sensor that polls at every processing of the timer queue.
  void pollEveryPass(SoFileSensor& sensor) {
    sensor.setInterval(SbTime::zero());
    sensor.schedule();
  }

  fs::path dir;
  FileLog log;
};

TEST_F(FileSensor, NoticesAModifiedFileOnce) {
  const std::string file = path("watched.txt");
  write(file, "one");
  SoFileSensor sensor(&FileLog::run, &log);
  EXPECT_EQ(sensor.getInterval(), SbTime(1.0));  // polls once a second unless told otherwise
  EXPECT_TRUE(sensor.getFilename().isEmpty());
  sensor.addFile(file.c_str());
  EXPECT_EQ(sensor.getNumFiles(), 1);
  pollEveryPass(sensor);

  manager->processTimerQueue();
  EXPECT_TRUE(log.names.empty());  // unchanged since it was added

  age(file, 10);  // same size, other modification time
  manager->processTimerQueue();
  ASSERT_EQ(log.names.size(), 1u);
  EXPECT_EQ(log.names[0], file);
  EXPECT_EQ(sensor.getFilename().toStdString(), file);

  manager->processTimerQueue();
  EXPECT_EQ(log.names.size(), 1u);  // seen once

  write(file, "a longer text");
  manager->processTimerQueue();
  EXPECT_EQ(log.names.size(), 2u);
}

TEST_F(FileSensor, NoticesCreationAndRemoval) {
  const std::string file = path("later.txt");
  SoFileSensor sensor(&FileLog::run, &log);
  sensor.addFile(file.c_str());  // does not exist yet
  pollEveryPass(sensor);
  manager->processTimerQueue();
  EXPECT_TRUE(log.names.empty());
  write(file, "now here");
  manager->processTimerQueue();
  EXPECT_EQ(log.names.size(), 1u);
  fs::remove(file);
  manager->processTimerQueue();
  EXPECT_EQ(log.names.size(), 2u);
  manager->processTimerQueue();
  EXPECT_EQ(log.names.size(), 2u);
}

TEST_F(FileSensor, ReportsEveryChangedFileInTheOrderAdded) {
  const std::string a = path("a.txt"), b = path("b.txt"), c = path("c.txt");
  for (const auto& f : {a, b, c}) write(f, "x");
  SoFileSensor sensor(&FileLog::run, &log);
  sensor.addFile(c.c_str());
  sensor.addFile(a.c_str());
  sensor.addFile(b.c_str());
  sensor.addFile(a.c_str());  // once only
  EXPECT_EQ(sensor.getNumFiles(), 3);
  pollEveryPass(sensor);
  write(a, "changed a");
  write(c, "changed c");
  manager->processTimerQueue();
  EXPECT_EQ(log.names, (std::vector<std::string>{c, a}));
}

TEST_F(FileSensor, RemovedFilesAreNoLongerWatched) {
  const std::string a = path("a.txt"), b = path("b.txt");
  write(a, "x");
  write(b, "x");
  SoFileSensor sensor(&FileLog::run, &log);
  sensor.addFile(a.c_str());
  sensor.addFile(b.c_str());
  pollEveryPass(sensor);
  sensor.removeFile(a.c_str());
  write(a, "changed a");
  manager->processTimerQueue();
  EXPECT_TRUE(log.names.empty());
  write(b, "changed b");
  manager->processTimerQueue();
  EXPECT_EQ(log.names, std::vector<std::string>{b});
  sensor.clearFiles();
  EXPECT_EQ(sensor.getNumFiles(), 0);
  write(b, "changed b again");
  manager->processTimerQueue();
  EXPECT_EQ(log.names.size(), 1u);
}

TEST_F(FileSensor, FollowsItsIntervalLikeATimer) {
  const std::string file = path("slow.txt");
  write(file, "x");
  SoFileSensor sensor(&FileLog::run, &log);
  sensor.addFile(file.c_str());
  sensor.setInterval(SbTime(30.0));
  sensor.schedule();
  write(file, "changed");
  manager->processTimerQueue();
  EXPECT_TRUE(log.names.empty());  // the next look is 30 s away
  EXPECT_TRUE(sensor.isScheduled());
}

TEST_F(FileSensor, TheFunctionMayDeleteTheSensor) {
  const std::string a = path("a.txt"), b = path("b.txt");
  write(a, "x");
  write(b, "x");
  struct Owner {
    std::unique_ptr<SoFileSensor> sensor;
    int calls = 0;
  } owner;
  owner.sensor = std::make_unique<SoFileSensor>(
      [](void* data, SoSensor*) {
        auto* o = static_cast<Owner*>(data);
        ++o->calls;
        o->sensor.reset();
      },
      &owner);
  owner.sensor->addFile(a.c_str());
  owner.sensor->addFile(b.c_str());
  pollEveryPass(*owner.sensor);
  write(a, "changed a");
  write(b, "changed b");
  manager->processTimerQueue();
  EXPECT_EQ(owner.calls, 1);  // the second change is not reported by a deleted sensor
  EXPECT_FALSE(timerPending());
}

}  // namespace
