// Writing that fails (a full device, a failing close) is reported through
// SoOutput::hasWriteError() and a debug error, never lost silently.

#include <Orvex/SoDB.h>
#include <Orvex/SoOutput.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoSeparator.h>

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "ErrorCapture.h"
#include "TestSupport.h"

namespace {

class WriteErrorsTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
  void SetUp() override {
    if (access("/dev/full", W_OK) != 0) GTEST_SKIP() << "no /dev/full";
    m_scene = orvextest::Ref<SoSeparator>(new SoSeparator);
    m_scene->addChild(new SoCube);
  }
  void write(SoOutput& out) {
    SoWriteAction action(&out);
    action.apply(m_scene.get());
  }
  orvextest::Ref<SoSeparator> m_scene;
};

}  // namespace

TEST_F(WriteErrorsTest, AFileThatCannotBeWrittenIsReported) {
  for (const bool compressed : {false, true}) {
    ErrorCapture<SoDebugError> errors;
    SoOutput out;
    if (compressed) out.setFileProperty(SoOutput::CompressedZlib);
    ASSERT_TRUE(out.openFile("/dev/full"));
    write(out);
    out.closeFile();
    EXPECT_TRUE(out.hasWriteError()) << (compressed ? "compressed" : "plain");
    ASSERT_EQ(errors.count(), 1u) << (compressed ? "compressed" : "plain");
    EXPECT_NE(errors.last().find("Writing failed"), std::string::npos) << errors.last();
  }
}

TEST_F(WriteErrorsTest, AFilePointerThatCannotBeWrittenIsReported) {
  FILE* fp = std::fopen("/dev/full", "wb");
  ASSERT_NE(fp, nullptr);
  ErrorCapture<SoDebugError> errors;
  SoOutput out;
  out.setFilePointer(fp);
  write(out);
  out.flushFile();
  EXPECT_TRUE(out.hasWriteError());
  EXPECT_EQ(errors.count(), 1u);
  // A new target starts without the error.
  out.setBuffer(nullptr, 0, nullptr);
  EXPECT_FALSE(out.hasWriteError());
  std::fclose(fp);
}

TEST_F(WriteErrorsTest, AWritableFileHasNoError) {
  char name[] = "/tmp/orvex-writeerrors-XXXXXX";
  const int fd = mkstemp(name);
  ASSERT_GE(fd, 0);
  close(fd);
  ErrorCapture<SoDebugError> errors;
  SoOutput out;
  ASSERT_TRUE(out.openFile(name));
  write(out);
  out.closeFile();
  EXPECT_FALSE(out.hasWriteError());
  EXPECT_EQ(errors.count(), 0u);
  SoInput in;
  ASSERT_TRUE(in.openFile(name));
  orvextest::Ref<SoSeparator> back(SoDB::readAll(&in));
  ASSERT_TRUE(back);
  EXPECT_EQ(back->getNumChildren(), 1);
  std::remove(name);
}
