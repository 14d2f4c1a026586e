// The input's services: pushed files, the directory search list, the state
// of the file being read, reading parameters and progress reports.

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/SoInputParameters.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/nodes/SoCone.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoSphere.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "ErrorCapture.h"
#include "TempFiles.h"
#include "TestSupport.h"

using orvextest::make;
using orvextest::TempDir;

namespace {

const char kHeader[] = "#Orvex V1.0 ascii\n";

class InputServicesTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
  // Tests that change the shared directory list put it back.
  void SetUp() override {
    for (int i = 0; i < SoInput::getNumDirectories(); ++i) m_directories.push_back(SoInput::getDirectory(i));
  }
  void TearDown() override {
    SoInput::clearDirectories();
    for (const SbString& dir : m_directories) SoInput::addDirectoryLast(dir);
  }

  static std::vector<std::string> directories() {
    std::vector<std::string> list;
    for (int i = 0; i < SoInput::getNumDirectories(); ++i) list.push_back(SoInput::getDirectory(i).toStdString());
    return list;
  }

 private:
  std::vector<SbString> m_directories;
};

}  // namespace

TEST_F(InputServicesTest, PushedFileIsReadThenTheRestOfTheCurrentOne) {
  TempDir dir;
  const std::string outer = dir.write("outer.ovx", std::string(kHeader) + "Cube {}\nSphere {}\n");
  const std::string inner = dir.write("inner.ovx", std::string(kHeader) + "Cone {}\n");
  SoInput in;
  ASSERT_TRUE(in.openFile(outer.c_str()));
  auto cube = make(SoDB::readNode(&in));
  ASSERT_TRUE(cube);
  EXPECT_TRUE(cube->isOfType(SoCube::getClassTypeId()));

  ASSERT_TRUE(in.pushFile(inner.c_str()));
  EXPECT_STREQ(in.getCurFileName(), inner.c_str());
  auto cone = make(SoDB::readNode(&in));
  ASSERT_TRUE(cone);
  EXPECT_TRUE(cone->isOfType(SoCone::getClassTypeId()));

  // The pushed file is done: reading goes on in the outer one.
  auto sphere = make(SoDB::readNode(&in));
  ASSERT_TRUE(sphere);
  EXPECT_TRUE(sphere->isOfType(SoSphere::getClassTypeId()));
  EXPECT_STREQ(in.getCurFileName(), outer.c_str());
  EXPECT_EQ(in.getCurStringFileName(), SbString(outer));
  EXPECT_EQ(SoDB::readNode(&in), nullptr);

  ErrorCapture<SoReadError> errors;
  EXPECT_FALSE(in.pushFile(dir.file("absent.ovx").c_str()));
  EXPECT_EQ(errors.count(), 1u);
}

TEST_F(InputServicesTest, RelativeNamesAreFoundThroughTheDirectoryList) {
  TempDir first, second;
  first.write("scene.ovx", std::string(kHeader) + "Cube {}\n");
  second.write("scene.ovx", std::string(kHeader) + "Sphere {}\n");
  second.write("only-second.ovx", std::string(kHeader) + "Cone {}\n");
  EXPECT_EQ(SoInput::findAbsolutePath(SbString("only-second.ovx")), SbString());

  SoInput::addDirectoryLast(second.path().c_str());
  SoInput::addDirectoryFirst(SbString(first.path()));
  EXPECT_EQ(SoInput::getDirectory(0), SbString(first.path()));
  EXPECT_EQ(directories().back(), second.path());
  // The first directory that has the file wins.
  EXPECT_EQ(SoInput::findAbsolutePath(SbString("scene.ovx")), SbString(first.file("scene.ovx")));
  EXPECT_EQ(SoInput::findAbsolutePath(SbString("only-second.ovx")), SbString(second.file("only-second.ovx")));
  EXPECT_EQ(SoInput::findAbsolutePath(SbString("nowhere.ovx")), SbString());
  // Absolute names are taken as they are.
  EXPECT_EQ(SoInput::findAbsolutePath(SbString(second.file("scene.ovx"))), SbString(second.file("scene.ovx")));

  SoInput in;
  ASSERT_TRUE(in.openFile("scene.ovx"));
  EXPECT_EQ(in.getCurStringFileName(), SbString(first.file("scene.ovx")));
  auto node = make(SoDB::readNode(&in));
  ASSERT_TRUE(node);
  EXPECT_TRUE(node->isOfType(SoCube::getClassTypeId()));

  SoInput::removeDirectory(first.path().c_str());
  EXPECT_EQ(SoInput::findAbsolutePath(SbString("scene.ovx")), SbString(second.file("scene.ovx")));
  SoInput::clearDirectories();
  EXPECT_EQ(SoInput::getNumDirectories(), 0);
  EXPECT_EQ(SoInput::findAbsolutePath(SbString("scene.ovx")), SbString());
  ErrorCapture<SoReadError> errors;
  EXPECT_FALSE(in.openFile("scene.ovx"));
  EXPECT_EQ(errors.count(), 1u);
}

TEST_F(InputServicesTest, EnvironmentVariablesAddDirectories) {
  SoInput::clearDirectories();
  setenv("ORVEX_INPUT_TEST_DIRS", "/a:/b\t/c /d", 1);
  SoInput::addEnvDirectoriesFirst("ORVEX_INPUT_TEST_DIRS");
  EXPECT_EQ(directories(), (std::vector<std::string>{"/a", "/b", "/c", "/d"}));
  // Other separators; the variable's order is kept in front as at the end.
  setenv("ORVEX_INPUT_TEST_MORE", "/x;/y", 1);
  SoInput::addEnvDirectoriesFirst("ORVEX_INPUT_TEST_MORE", ";");
  EXPECT_EQ(directories(), (std::vector<std::string>{"/x", "/y", "/a", "/b", "/c", "/d"}));
  setenv("ORVEX_INPUT_TEST_LAST", "/p,/q::/r", 1);
  SoInput::addEnvDirectoriesLast(SbString("ORVEX_INPUT_TEST_LAST"), SbString(","));
  EXPECT_EQ(directories(), (std::vector<std::string>{"/x", "/y", "/a", "/b", "/c", "/d", "/p", "/q::/r"}));
  // A directory added again moves; an unset variable adds nothing.
  SoInput::addEnvDirectoriesLast("ORVEX_INPUT_TEST_MORE", ";");
  EXPECT_EQ(directories(), (std::vector<std::string>{"/a", "/b", "/c", "/d", "/p", "/q::/r", "/x", "/y"}));
  unsetenv("ORVEX_INPUT_TEST_UNSET");
  SoInput::addEnvDirectoriesLast("ORVEX_INPUT_TEST_UNSET");
  EXPECT_EQ(SoInput::getNumDirectories(), 8);
  unsetenv("ORVEX_INPUT_TEST_DIRS");
  unsetenv("ORVEX_INPUT_TEST_MORE");
  unsetenv("ORVEX_INPUT_TEST_LAST");

  // And the files in them are found.
  TempDir dir;
  dir.write("env.ovx", std::string(kHeader) + "Cone {}\n");
  setenv("ORVEX_INPUT_TEST_FOUND", ("/nonexistent:" + dir.path()).c_str(), 1);
  SoInput::addEnvDirectoriesLast("ORVEX_INPUT_TEST_FOUND");
  EXPECT_EQ(SoInput::findAbsolutePath(SbString("env.ovx")), SbString(dir.file("env.ovx")));
  unsetenv("ORVEX_INPUT_TEST_FOUND");
}

TEST_F(InputServicesTest, StateOfTheFileAfterAReading) {
  const std::string text = std::string(kHeader) + "Cube { width 2 }\nSphere {}\n   \n";
  SoInput in;
  in.setBuffer(const_cast<char*>(text.data()), text.size());
  EXPECT_TRUE(in.isValidBuffer());
  EXPECT_TRUE(in.isValidFile());
  EXPECT_EQ(in.getHeader(), "#Orvex V1.0 ascii");
  EXPECT_EQ(in.getIVVersion(), 1.0f);
  EXPECT_FALSE(in.isBinary());
  EXPECT_EQ(in.getNumBytesRead(), std::strlen(kHeader));
  EXPECT_EQ(in.getCurFileType(), SoInput::Orvexa);
  auto root = make(SoDB::readAll(&in));
  ASSERT_TRUE(root);
  EXPECT_EQ(root->getNumChildren(), 2);
  EXPECT_EQ(in.getNumBytesRead(), text.size());
  in.setCurFileType(SoInput::DXF);
  EXPECT_EQ(in.getCurFileType(), SoInput::DXF);

  // A buffer without a header is valid text but no valid file.
  const std::string bare = "Cube {}\n";
  SoInput bareIn;
  bareIn.setBuffer(const_cast<char*>(bare.data()), bare.size());
  EXPECT_TRUE(bareIn.isValidBuffer());
  EXPECT_FALSE(bareIn.isValidFile());
  EXPECT_EQ(bareIn.getHeader(), "");

  // A file: its name, and the binary header's version.
  TempDir dir;
  const std::string path = dir.write("binary.ovx", "#Orvex V1.0 binary\n");
  SoInput fileIn;
  ASSERT_TRUE(fileIn.openFile(path.c_str()));
  EXPECT_STREQ(fileIn.getCurFileName(), path.c_str());
  EXPECT_EQ(fileIn.getHeader(), "#Orvex V1.0 binary");
  EXPECT_EQ(fileIn.getIVVersion(), 1.0f);
  EXPECT_TRUE(fileIn.isBinary());
  EXPECT_TRUE(fileIn.isValidFile());
}

TEST_F(InputServicesTest, InputParametersReplaceTheInputsOwnLimits) {
  SoInputParameters parameters;
  EXPECT_EQ(parameters.getMaxInputBytes(), size_t(1) << 30);
  EXPECT_EQ(parameters.getMaxInflatedBytes(), size_t(1) << 30);
  TempDir dir;
  const std::string path = dir.write("sized.ovx", std::string(kHeader) + "Cube {}\n" + std::string(200, ' '));

  SoInput in;
  EXPECT_EQ(in.getInputParameters(), nullptr);
  in.setMaxInputBytes(100000);
  parameters.setMaxInputBytes(64);
  parameters.setMaxInflatedBytes(128);
  in.setInputParameters(&parameters);
  EXPECT_EQ(in.getInputParameters(), &parameters);
  EXPECT_EQ(in.getMaxInputBytes(), 64u);
  EXPECT_EQ(in.getMaxInflatedBytes(), 128u);
  {
    ErrorCapture<SoReadError> errors;
    EXPECT_FALSE(in.openFile(path.c_str()));
    ASSERT_EQ(errors.count(), 1u);
    EXPECT_NE(errors.last().find("64 bytes"), std::string::npos);
  }
  // Changed parameters apply to the next opening.
  parameters.setMaxInputBytes(1000);
  EXPECT_TRUE(in.openFile(path.c_str()));
  // Without them the input's own limits are back, and its setters still work.
  in.setInputParameters(nullptr);
  EXPECT_EQ(in.getMaxInputBytes(), 100000u);
  in.setMaxInputBytes(10);
  EXPECT_EQ(in.getMaxInputBytes(), 10u);
  ErrorCapture<SoReadError> errors;
  EXPECT_FALSE(in.openFile(path.c_str()));
  EXPECT_EQ(errors.count(), 1u);
}

namespace {

// Records the progress a reading reports.
class ProgressInput : public SoInput {
 public:
  std::vector<double> percentages;
  void updateReadPercent(double readPercentage) override { percentages.push_back(readPercentage); }
};

void expectProgressTo100(const std::vector<double>& values, size_t atLeast) {
  ASSERT_GE(values.size(), atLeast);
  EXPECT_LE(values.size(), 100u);
  for (size_t i = 1; i < values.size(); ++i) {
    EXPECT_LT(values[i - 1], values[i]) << "at " << i;
    // At most once per whole percent.
    EXPECT_LT(std::floor(values[i - 1]), std::floor(values[i])) << "at " << i;
  }
  EXPECT_GT(values.front(), 0.0);
  EXPECT_EQ(values.back(), 100.0);
}

}  // namespace

TEST_F(InputServicesTest, ReadingReportsItsProgress) {
  std::string text = kHeader;
  for (int i = 0; i < 400; ++i) text += "Cube { width " + std::to_string(i) + " }\n";
  TempDir dir;
  const std::string path = dir.write("progress.ovx", text);
  ProgressInput in;
  ASSERT_TRUE(in.openFile(path.c_str()));
  auto root = make(SoDB::readAll(&in));
  ASSERT_TRUE(root);
  EXPECT_EQ(root->getNumChildren(), 400);
  // Each node is a quarter of a percent: every percent is passed.
  expectProgressTo100(in.percentages, 95);

  // A buffer holding one large node: its values are parsed in bulk, so the
  // reports may come in larger steps, but they still end at 100.
  std::string coordinates = std::string(kHeader) + "Coordinate3 { point [";
  for (int i = 0; i < 2000; ++i) coordinates += std::to_string(i) + " 0 0,\n";
  coordinates += "] }\n";
  ProgressInput bufferIn;
  bufferIn.setBuffer(const_cast<char*>(coordinates.data()), coordinates.size());
  auto single = make(SoDB::readAll(&bufferIn));
  ASSERT_TRUE(single);
  expectProgressTo100(bufferIn.percentages, 1);

  // The next file starts again from zero.
  in.percentages.clear();
  ASSERT_TRUE(in.openFile(path.c_str()));
  auto again = make(SoDB::readAll(&in));
  expectProgressTo100(in.percentages, 95);
}
