// The output's settings: precision, header, indentation, stage, file
// property, memory buffers and raw bytes.

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoSeparator.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "TempFiles.h"
#include "TestSupport.h"

using orvextest::make;
using orvextest::TempDir;

namespace {

class OutputServicesTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
};

// What a memory output holds.
std::string contents(const SoOutput& out) {
  void* buffer = nullptr;
  size_t size = 0;
  if (!out.getBuffer(buffer, size)) return "<no buffer>";
  return std::string(static_cast<const char*>(buffer), size);
}

}  // namespace

TEST_F(OutputServicesTest, PrecisionOfFloatsAndDoubles) {
  SoOutput out;
  out.setBuffer(nullptr, 0, nullptr);
  EXPECT_EQ(out.getFloatPrecision(), 0);
  out.write(0.1f);  // the shortest text that reads back
  out.write(' ');
  out.setFloatPrecision(3);
  EXPECT_EQ(out.getFloatPrecision(), 3);
  out.write(3.14159f);
  out.write(' ');
  out.setDoublePrecision(5);
  EXPECT_EQ(out.getDoublePrecision(), 5);
  out.write(2.718281828);
  out.write(' ');
  out.setDoublePrecision(0);
  out.write(0.25);
  EXPECT_EQ(contents(out), "0.1 3.14 2.7183 0.25");
  // Out of range: clamped to what the types hold.
  out.setFloatPrecision(-4);
  EXPECT_EQ(out.getFloatPrecision(), 0);
  out.setFloatPrecision(40);
  EXPECT_EQ(out.getFloatPrecision(), 9);
  out.setDoublePrecision(40);
  EXPECT_EQ(out.getDoublePrecision(), 17);
}

TEST_F(OutputServicesTest, HeaderStringsAreWrittenAndReset) {
  EXPECT_EQ(SoOutput::getDefaultASCIIHeader(), "#Orvex V1.0 ascii");
  EXPECT_EQ(SoOutput::getDefaultBinaryHeader(), "#Orvex V1.0 binary");
  SoOutput out;
  out.setBuffer(nullptr, 0, nullptr);
  out.setHeaderString("#Output Test Header 1.0");
  out.writeHeader();
  EXPECT_EQ(contents(out), "#Output Test Header 1.0\n\n");
  out.resetBuffer();
  out.resetHeaderString();
  out.writeHeader();
  EXPECT_EQ(contents(out), "#Orvex V1.0 ascii\n\n");
  out.resetBuffer();
  out.setBinary(true);
  out.writeHeader();
  EXPECT_EQ(contents(out), "#Orvex V1.0 binary\n");

  // A scene written under a registered header of the application's reads back.
  ASSERT_TRUE(SoDB::registerHeader("#Output Test Header 1.0", false, 1.0f));
  auto root = make(new SoSeparator);
  root->addChild(new SoCube);
  SoOutput text;
  text.setBuffer(nullptr, 0, nullptr);
  text.setHeaderString("#Output Test Header 1.0");
  SoWriteAction action(&text);
  action.apply(root.get());
  const std::string written = contents(text);
  EXPECT_EQ(written.rfind("#Output Test Header 1.0\n", 0), 0u);
  auto back = orvextest::readFromString(written);
  ASSERT_TRUE(back);
  EXPECT_TRUE(back->getChild(0)->isOfType(SoCube::getClassTypeId()));
}

TEST_F(OutputServicesTest, Indentation) {
  SoOutput out;
  out.setBuffer(nullptr, 0, nullptr);
  EXPECT_EQ(out.getIndentLevel(), 0);
  out.incrementIndent(2);
  EXPECT_EQ(out.getIndentLevel(), 2);
  out.indent();  // at the start of a line: 4 spaces a level
  out.write("a");
  out.indent();  // not at the start of a line: nothing
  out.write("\n");
  out.decrementIndent();
  EXPECT_EQ(out.getIndentLevel(), 1);
  out.indent();
  out.write("b\n");
  out.incrementIndent();
  EXPECT_EQ(out.getIndentLevel(), 2);
  out.decrementIndent(5);
  EXPECT_EQ(out.getIndentLevel(), 0);  // never below zero
  out.indent();
  out.write("c");
  EXPECT_EQ(contents(out), "        a\n    b\nc");
  // Binary output is not indented.
  SoOutput binary;
  binary.setBuffer(nullptr, 0, nullptr);
  binary.setBinary(true);
  binary.incrementIndent(3);
  binary.indent();
  EXPECT_EQ(binary.getBufferSize(), 0u);
}

TEST_F(OutputServicesTest, StageAndFilePropertyRoundTrip) {
  SoOutput out;
  EXPECT_EQ(out.getStage(), SoOutput::WRITE);
  out.setStage(SoOutput::COUNTREFS);
  EXPECT_EQ(out.getStage(), SoOutput::COUNTREFS);
  out.setStage(SoOutput::WRITE);
  EXPECT_EQ(out.getStage(), SoOutput::WRITE);
  EXPECT_FALSE(out.isWritingForScaleLux());

  EXPECT_EQ(out.getFileProperty(), SoOutput::DefaultProperty);
  out.setFileProperty(SoOutput::CompressedZlib);
  EXPECT_EQ(out.getFileProperty(), SoOutput::CompressedZlib);
  // Files are compressed then, and read back as they were.
  TempDir dir;
  const std::string path = dir.file("compressed.ovx");
  ASSERT_TRUE(out.openFile(path.c_str()));
  auto root = make(new SoSeparator);
  auto* cube = new SoCube;
  cube->width = 4.5f;
  root->addChild(cube);
  SoWriteAction action(&out);
  action.apply(root.get());
  out.closeFile();
  EXPECT_FALSE(out.hasWriteError());
  const std::string bytes = orvextest::readFileBytes(path);
  ASSERT_GE(bytes.size(), 2u);
  EXPECT_EQ(static_cast<unsigned char>(bytes[0]), 0x1f);
  EXPECT_EQ(static_cast<unsigned char>(bytes[1]), 0x8b);
  SoInput in;
  ASSERT_TRUE(in.openFile(path.c_str()));
  auto back = make(SoDB::readAll(&in));
  ASSERT_TRUE(back);
  ASSERT_EQ(back->getNumChildren(), 1);
  EXPECT_EQ(static_cast<SoCube*>(back->getChild(0))->width.getValue(), 4.5f);

  out.setFileProperty(SoOutput::DefaultProperty);
  const std::string plainPath = dir.file("plain.ovx");
  ASSERT_TRUE(out.openFile(plainPath.c_str()));
  out.writeHeader();
  out.closeFile();
  EXPECT_EQ(orvextest::readFileBytes(plainPath), "#Orvex V1.0 ascii\n\n");
}

TEST_F(OutputServicesTest, BufferSizeAndReset) {
  SoOutput out;
  out.setBuffer(nullptr, 0, nullptr);
  EXPECT_EQ(out.getBufferSize(), 0u);
  out.write("hello");
  EXPECT_EQ(out.getBufferSize(), 5u);
  out.resetBuffer();
  EXPECT_EQ(out.getBufferSize(), 0u);
  out.write("ab");
  EXPECT_EQ(out.getBufferSize(), 2u);
  EXPECT_EQ(contents(out), "ab");

  // A caller's buffer grown with realloc: the offset is kept across resets.
  void* block = std::malloc(4);
  ASSERT_NE(block, nullptr);
  static_cast<char*>(block)[0] = 'X';
  static_cast<char*>(block)[1] = 'Y';
  SoOutput user;
  user.setBuffer(block, 4, &std::realloc, 2);
  EXPECT_EQ(user.getBufferSize(), 2u);
  user.write("0123456789");
  EXPECT_EQ(user.getBufferSize(), 12u);
  EXPECT_EQ(contents(user), "XY0123456789");
  user.resetBuffer();
  EXPECT_EQ(user.getBufferSize(), 2u);
  user.write("z");
  EXPECT_EQ(contents(user), "XYz");
  void* grown = nullptr;
  size_t size = 0;
  ASSERT_TRUE(user.getBuffer(grown, size));
  std::free(grown);

  // Files have no buffer.
  TempDir dir;
  SoOutput file;
  ASSERT_TRUE(file.openFile(dir.file("f.ovx").c_str()));
  file.write("abc");
  EXPECT_EQ(file.getBufferSize(), 0u);
}

TEST_F(OutputServicesTest, RawBytesAndFlushing) {
  TempDir dir;
  const std::string path = dir.file("raw.txt");
  SoOutput out;
  ASSERT_TRUE(out.openFile(path.c_str()));
  out.setBinary(true);  // raw bytes stay raw in either format
  out.filePuts("abc");
  out.filePutc('d');
  out.filePuts(nullptr);
  out.flushFile();
  // On disk before the file is closed.
  EXPECT_EQ(orvextest::readFileBytes(path), "abcd");
  out.filePutc('\n');
  out.closeFile();
  EXPECT_EQ(orvextest::readFileBytes(path), "abcd\n");
}
