// Buffer objects in main memory, and images whose pixels come from one.

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/devices/SoCpuBufferObject.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/fields/SoSFImage.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoUnknownNode.h>
#include <Orvex/sensors/SoFieldSensor.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "ErrorCapture.h"
#include "TempFiles.h"
#include "TestSupport.h"

using orvextest::make;
using orvextest::Ref;
using orvextest::TempDir;

namespace {

class BufferObjectsTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
};

Ref<SoCpuBufferObject> newBuffer(size_t size) {
  auto buffer = make(new SoCpuBufferObject);
  buffer->setSize(size);
  return buffer;
}

// The bytes of a buffer, read through a mapping.
std::vector<unsigned char> bytesOf(SoBufferObject* buffer) {
  const auto* data = static_cast<const unsigned char*>(buffer->map(SoBufferObject::READ_ONLY));
  std::vector<unsigned char> bytes(data, data + buffer->getSize());
  buffer->unmap();
  return bytes;
}

}  // namespace

TEST_F(BufferObjectsTest, TypesAreRegistered) {
  EXPECT_EQ(SoType::fromName("SoCpuBufferObject"), SoCpuBufferObject::getClassTypeId());
  EXPECT_TRUE(SoCpuBufferObject::getClassTypeId().isDerivedFrom(SoBufferObject::getClassTypeId()));
  EXPECT_TRUE(SoBufferObject::getClassTypeId().isDerivedFrom(SoTypedObject::getClassTypeId()));
  EXPECT_FALSE(SoBufferObject::getClassTypeId().canCreateInstance());
  auto made = make(static_cast<SoBufferObject*>(SoCpuBufferObject::getClassTypeId().createInstance()));
  ASSERT_TRUE(made);
  EXPECT_EQ(made->getTypeId(), SoCpuBufferObject::getClassTypeId());
  EXPECT_EQ(made->getSize(), 0u);
}

TEST_F(BufferObjectsTest, SizeMapAndUnmap) {
  auto buffer = make(new SoCpuBufferObject);
  EXPECT_EQ(buffer->getSize(), 0u);
  EXPECT_FALSE(buffer->isMapped());
  ASSERT_TRUE(buffer->setSize(16));
  EXPECT_EQ(buffer->getSize(), 16u);
  EXPECT_EQ(bytesOf(buffer.get()), std::vector<unsigned char>(16, 0));  // new bytes are zero

  auto* data = static_cast<unsigned char*>(buffer->map(SoBufferObject::READ_WRITE));
  ASSERT_NE(data, nullptr);
  EXPECT_TRUE(buffer->isMapped());
  for (int i = 0; i < 16; ++i) data[i] = static_cast<unsigned char>(i + 1);
  // Mappings nest; while any is open the size is fixed.
  auto* again = static_cast<unsigned char*>(buffer->map(SoBufferObject::READ_ONLY));
  EXPECT_EQ(again, data);
  ErrorCapture<SoDebugError> errors;
  EXPECT_FALSE(buffer->setSize(64));
  buffer->clearInstance();
  EXPECT_EQ(errors.count(), 2u);
  EXPECT_EQ(buffer->getSize(), 16u);
  buffer->unmap();
  EXPECT_TRUE(buffer->isMapped());
  buffer->unmap();
  EXPECT_FALSE(buffer->isMapped());
  buffer->unmap();  // one too many
  EXPECT_EQ(errors.count(), 3u);

  // Growing keeps the content and adds zeros; shrinking cuts.
  ASSERT_TRUE(buffer->setSize(20));
  std::vector<unsigned char> expected;
  for (int i = 0; i < 16; ++i) expected.push_back(static_cast<unsigned char>(i + 1));
  expected.resize(20, 0);
  EXPECT_EQ(bytesOf(buffer.get()), expected);
  ASSERT_TRUE(buffer->setSize(4));
  EXPECT_EQ(bytesOf(buffer.get()), (std::vector<unsigned char>{1, 2, 3, 4}));

  buffer->clearInstance();
  EXPECT_EQ(buffer->getSize(), 0u);
  EXPECT_EQ(buffer->map(SoBufferObject::SET), nullptr);  // empty
  buffer->unmap();
  EXPECT_EQ(errors.count(), 3u);
}

TEST_F(BufferObjectsTest, MemcpyAndMemset) {
  auto source = newBuffer(8);
  auto* s = static_cast<unsigned char*>(source->map(SoBufferObject::SET));
  for (int i = 0; i < 8; ++i) s[i] = static_cast<unsigned char>(10 + i);
  source->unmap();

  auto dest = newBuffer(10);
  EXPECT_TRUE(dest->memcpy(source.get()));  // all of it, at the start
  EXPECT_EQ(bytesOf(dest.get()), (std::vector<unsigned char>{10, 11, 12, 13, 14, 15, 16, 17, 0, 0}));
  EXPECT_TRUE(dest->memcpy(source.get(), 7, 5, 3));
  EXPECT_EQ(bytesOf(dest.get()), (std::vector<unsigned char>{10, 11, 12, 13, 14, 15, 16, 15, 16, 17}));
  // Within one buffer, overlapping.
  EXPECT_TRUE(dest->memcpy(dest.get(), 1, 0, 4));
  EXPECT_EQ(bytesOf(dest.get()), (std::vector<unsigned char>{10, 10, 11, 12, 13, 15, 16, 15, 16, 17}));

  ErrorCapture<SoDebugError> errors;
  EXPECT_FALSE(dest->memcpy(source.get(), 5));        // 8 bytes do not fit after 5
  EXPECT_FALSE(dest->memcpy(source.get(), 0, 9));     // past the source
  EXPECT_FALSE(dest->memcpy(source.get(), 0, 4, 5));  // more than the source has
  EXPECT_FALSE(dest->memcpy(nullptr));
  EXPECT_EQ(errors.count(), 4u);
  EXPECT_EQ(bytesOf(dest.get()), (std::vector<unsigned char>{10, 10, 11, 12, 13, 15, 16, 15, 16, 17}));
  EXPECT_FALSE(source->isMapped());
  EXPECT_FALSE(dest->isMapped());

  const unsigned char seven = 7;
  EXPECT_TRUE(dest->memset(&seven));
  EXPECT_EQ(bytesOf(dest.get()), std::vector<unsigned char>(10, 7));
  const unsigned char zero = 0;
  EXPECT_TRUE(dest->memset(&zero, 1, 8));
  EXPECT_EQ(bytesOf(dest.get()), (std::vector<unsigned char>{7, 7, 7, 7, 7, 7, 7, 7, 0, 0}));
  // Wider values, counted in values.
  auto words = newBuffer(16);
  const uint32_t pattern = 0xA1B2C3D4u;
  EXPECT_TRUE(words->memset(&pattern, 4, 1, 2));
  const auto* w = static_cast<const uint32_t*>(words->map(SoBufferObject::READ_ONLY));
  EXPECT_EQ(w[0], 0u);
  EXPECT_EQ(w[1], pattern);
  EXPECT_EQ(w[2], pattern);
  EXPECT_EQ(w[3], 0u);
  words->unmap();
  EXPECT_FALSE(words->memset(&pattern, 4, 3, 2));  // past the end
  EXPECT_FALSE(words->memset(nullptr));
  EXPECT_EQ(errors.count(), 6u);
}

TEST_F(BufferObjectsTest, CallersMemoryIsUsedAndNotOwned) {
  unsigned char memory[6] = {1, 2, 3, 4, 5, 6};
  auto buffer = make(new SoCpuBufferObject(memory, sizeof memory));
  EXPECT_TRUE(buffer->isUserBuffer());
  EXPECT_EQ(buffer->getSize(), 6u);
  auto* data = static_cast<unsigned char*>(buffer->map(SoBufferObject::READ_WRITE));
  EXPECT_EQ(data, memory);
  data[0] = 42;
  buffer->unmap();
  EXPECT_EQ(memory[0], 42);

  // Resizing moves the content into memory of the buffer's own.
  ASSERT_TRUE(buffer->setSize(8));
  EXPECT_FALSE(buffer->isUserBuffer());
  EXPECT_EQ(bytesOf(buffer.get()), (std::vector<unsigned char>{42, 2, 3, 4, 5, 6, 0, 0}));
  auto* own = static_cast<unsigned char*>(buffer->map(SoBufferObject::READ_WRITE));
  EXPECT_NE(own, memory);
  own[1] = 99;
  buffer->unmap();
  EXPECT_EQ(memory[1], 2);

  buffer->setBuffer(memory + 2, 3);
  EXPECT_EQ(bytesOf(buffer.get()), (std::vector<unsigned char>{3, 4, 5}));
  buffer->setBuffer(nullptr, 3);
  EXPECT_EQ(buffer->getSize(), 0u);

  // A new instance is of the same kind, empty, and unreferenced.
  auto other = make(buffer->createInstance());
  EXPECT_EQ(other->getTypeId(), SoCpuBufferObject::getClassTypeId());
  EXPECT_EQ(other->getSize(), 0u);
  EXPECT_EQ(other->getRefCount(), 1);
}

// ---- images from buffer objects ----------------------------------------------------------

namespace {

// A 3 x 2 RGB image in a buffer.
Ref<SoCpuBufferObject> imageBuffer() {
  auto buffer = newBuffer(18);
  auto* p = static_cast<unsigned char*>(buffer->map(SoBufferObject::SET));
  for (int i = 0; i < 18; ++i) p[i] = static_cast<unsigned char>(i * 10);
  buffer->unmap();
  return buffer;
}

void countChange(void* data, SoSensor*) { ++*static_cast<int*>(data); }

}  // namespace

TEST_F(BufferObjectsTest, ImageCopiesABufferObject) {
  auto buffer = imageBuffer();
  SoSFImage image;
  int changes = 0;
  SoFieldSensor sensor(&countChange, &changes);
  sensor.setPriority(0);
  sensor.attach(&image);
  image.setValue(SbVec2i32(3, 2), 3, buffer.get());
  EXPECT_EQ(changes, 1);
  SbVec2i32 size;
  int nc = 0;
  const unsigned char* pixels = image.getValue(size, nc);
  EXPECT_EQ(size, SbVec2i32(3, 2));
  EXPECT_EQ(nc, 3);
  EXPECT_EQ(image.getDataType(), SoSFImage::UNSIGNED_BYTE);
  EXPECT_EQ(std::vector<unsigned char>(pixels, pixels + 18), bytesOf(buffer.get()));
  // A copy: the buffer is free again and its later changes do not show.
  EXPECT_FALSE(buffer->isMapped());
  EXPECT_EQ(buffer->getRefCount(), 1);
  const unsigned char nine = 9;
  buffer->memset(&nine);
  EXPECT_EQ(image.getValue(size, nc)[0], 0);
  sensor.detach();
}

TEST_F(BufferObjectsTest, ImageReferencesABufferObjectUntilItsNextValue) {
  auto buffer = imageBuffer();
  SoSFImage image;
  image.setValue(SbVec2i32(3, 2), 3, buffer.get(), SoSFImage::NO_COPY);
  SbVec2i32 size;
  int nc = 0;
  const unsigned char* pixels = image.getValue(size, nc);
  const void* mapped = buffer->map(SoBufferObject::READ_ONLY);
  buffer->unmap();
  EXPECT_EQ(pixels, mapped);  // the buffer's own memory
  EXPECT_EQ(buffer->getRefCount(), 2);
  EXPECT_TRUE(buffer->isMapped());
  {
    ErrorCapture<SoDebugError> errors;
    EXPECT_FALSE(buffer->setSize(4));  // held by the image
    EXPECT_EQ(errors.count(), 1u);
  }
  // The same buffer again: still one reference and one mapping for the image.
  image.setValue(SbVec2i32(3, 2), 3, buffer.get(), SoSFImage::NO_COPY);
  EXPECT_EQ(buffer->getRefCount(), 2);
  image.setValue(SbVec2i32(1, 1), 3, pixels, SoSFImage::COPY);
  EXPECT_EQ(buffer->getRefCount(), 1);
  EXPECT_FALSE(buffer->isMapped());

  // Editing copies the pixels first and lets the buffer go.
  image.setValue(SbVec2i32(3, 2), 3, buffer.get(), SoSFImage::NO_COPY);
  unsigned char* editable = image.startEditing(size, nc);
  EXPECT_NE(editable, mapped);
  image.finishEditing();
  EXPECT_EQ(buffer->getRefCount(), 1);
  EXPECT_FALSE(buffer->isMapped());

  // A field that dies lets its buffer go too.
  {
    SoSFImage temporary;
    temporary.setValue(SbVec2i32(3, 2), 3, buffer.get(), SoSFImage::NO_COPY);
    EXPECT_EQ(buffer->getRefCount(), 2);
  }
  EXPECT_EQ(buffer->getRefCount(), 1);
  EXPECT_FALSE(buffer->isMapped());

  // Too small or missing: posted, and the value stays.
  ErrorCapture<SoDebugError> errors;
  image.setValue(SbVec2i32(4, 2), 3, buffer.get());
  image.setValue(SbVec2i32(1, 1), 1, static_cast<SoBufferObject*>(nullptr));
  EXPECT_EQ(errors.count(), 2u);
  EXPECT_EQ(image.getSize(), SbVec2i32(3, 2));
}

TEST_F(BufferObjectsTest, ImageFromABufferObjectIsWrittenAndReadBack) {
  auto buffer = imageBuffer();
  auto holder = make(new SoUnknownNode);
  holder->setClassName("ImageHolder");
  ASSERT_TRUE(holder->addField(SoSFImage::getClassTypeId(), "image"));
  auto* image = static_cast<SoSFImage*>(holder->getField("image"));
  image->setValue(SbVec2i32(3, 2), 3, buffer.get(), SoSFImage::NO_COPY);
  auto root = make(new SoSeparator);
  root->addChild(holder.get());

  TempDir dir;
  for (const bool binary : {false, true}) {
    const std::string path = dir.file(binary ? "image.ovb" : "image.ovx");
    {
      SoOutput out;
      ASSERT_TRUE(out.openFile(path.c_str()));
      out.setBinary(binary);
      SoWriteAction action(&out);
      action.apply(root.get());
      out.closeFile();
      EXPECT_FALSE(out.hasWriteError());
    }
    if (!binary) EXPECT_NE(orvextest::readFileBytes(path).find("0x000a14"), std::string::npos);
    SoInput in;
    ASSERT_TRUE(in.openFile(path.c_str()));
    auto back = make(SoDB::readAll(&in));
    ASSERT_TRUE(back) << path;
    ASSERT_EQ(back->getNumChildren(), 1);
    auto* readImage = dynamic_cast<SoSFImage*>(back->getChild(0)->getField("image"));
    ASSERT_NE(readImage, nullptr);
    EXPECT_TRUE(*readImage == *image);
    SbVec2i32 size;
    int nc = 0;
    const unsigned char* pixels = readImage->getValue(size, nc);
    EXPECT_EQ(size, SbVec2i32(3, 2));
    EXPECT_EQ(nc, 3);
    EXPECT_EQ(std::vector<unsigned char>(pixels, pixels + 18), bytesOf(buffer.get()));
  }
}
