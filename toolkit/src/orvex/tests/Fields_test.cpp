// Field values, multiple-value storage, enumerations, text forms and
// connections.

#include <Orvex/SoDB.h>
#include <Orvex/SoFieldList.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/fields/SoMFBitMask.h>
#include <Orvex/fields/SoMFColor.h>
#include <Orvex/fields/SoMFColorRGBA.h>
#include <Orvex/fields/SoMFEnum.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoMFInt32.h>
#include <Orvex/fields/SoMFNode.h>
#include <Orvex/fields/SoMFString.h>
#include <Orvex/fields/SoMFVec3f.h>
#include <Orvex/fields/SoMFieldLending.h>
#include <Orvex/fields/SoSFBitMask.h>
#include <Orvex/fields/SoSFBool.h>
#include <Orvex/fields/SoSFColor.h>
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/fields/SoSFImage.h>
#include <Orvex/fields/SoSFInt32.h>
#include <Orvex/fields/SoSFNode.h>
#include <Orvex/fields/SoSFRotation.h>
#include <Orvex/fields/SoSFString.h>
#include <Orvex/fields/SoSFTrigger.h>
#include <Orvex/fields/SoSFUInt32.h>
#include <Orvex/fields/SoSFVec3f.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/sensors/SoFieldSensor.h>

#include <gtest/gtest.h>

#include <Orvex/errors/SoMemoryError.h>

#include <climits>
#include <cmath>
#include <vector>

#include "ErrorCapture.h"
#include "TestSupport.h"

using orvextest::make;

namespace {

class FieldsTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
};

struct Counter : SoFieldAuditor {
  int changes = 0;
  void fieldChanged(SoField*) override { ++changes; }
};

}  // namespace

TEST_F(FieldsTest, TypesAreRegisteredWithoutPrefix) {
  EXPECT_EQ(SoSFFloat::getClassTypeId().getName(), SbName("SFFloat"));
  EXPECT_EQ(SoMFVec3f::getClassTypeId().getName(), SbName("MFVec3f"));
  EXPECT_EQ(SoSFBitMask::getClassTypeId().getParent(), SoSFEnum::getClassTypeId());
  EXPECT_EQ(SoMFFloat::getClassTypeId().getParent(), SoMField::getClassTypeId());
  EXPECT_EQ(SoType::fromName("SoMFColor"), SoMFColor::getClassTypeId());
  // Every concrete field class can be made from its type.
  SoTypeList types;
  SoType::getAllDerivedFrom(SoField::getClassTypeId(), types);
  int concrete = 0;
  for (int i = 0; i < types.getLength(); ++i) {
    if (!types[i].canCreateInstance()) continue;
    std::unique_ptr<SoField> f(static_cast<SoField*>(types[i].createInstance()));
    ASSERT_NE(f, nullptr) << types[i].getName().getString();
    EXPECT_EQ(f->getTypeId(), types[i]);
    ++concrete;
  }
  EXPECT_GE(concrete, 90);
}

TEST_F(FieldsTest, SingleValuesAndEquality) {
  SoSFVec3f a, b;
  EXPECT_EQ(a.getValue(), SbVec3f(0, 0, 0));
  a.setValue(1, 2, 3);
  const float v[3] = {1, 2, 3};
  b.setValue(v);
  EXPECT_TRUE(a == b);
  EXPECT_TRUE(a.isSame(b));
  b = SbVec3f(1, 2, 4);
  EXPECT_TRUE(a != b);
  EXPECT_FALSE(a.isSame(b));
  EXPECT_EQ(a.getValueSize(), sizeof(SbVec3f));
  SoSFFloat f;
  EXPECT_FALSE(a.isSame(f));  // another type is never the same
  b.copyFrom(a);
  EXPECT_TRUE(a == b);
  b.copyFrom(f);  // another type is not copied
  EXPECT_TRUE(a == b);
}

TEST_F(FieldsTest, ColourFieldsTakeHsv) {
  SoSFColor c;
  c.setHSVValue(0.0f, 1.0f, 1.0f);
  EXPECT_EQ(c.getValue(), SbColor(1, 0, 0));
  SoMFColor m;
  m.set1HSVValue(2, 1.0f / 3.0f, 1.0f, 1.0f);
  EXPECT_EQ(m.getNum(), 3);
  EXPECT_TRUE(m[2].equals(SbColor(0, 1, 0), 1e-6f));
  m.setHSVValue(2.0f / 3.0f, 1.0f, 0.5f);
  EXPECT_EQ(m.getNum(), 1);
  EXPECT_TRUE(m[0].equals(SbColor(0, 0, 0.5f), 1e-6f));
  SoMFColorRGBA rgba;
  rgba.set1HSVAValue(0, 0.0f, 0.0f, 1.0f, 0.25f);
  EXPECT_EQ(rgba[0], SbColorRGBA(1, 1, 1, 0.25f));
}

TEST_F(FieldsTest, MultipleValueEditing) {
  SoMFFloat m;
  EXPECT_EQ(m.getNum(), 0);
  const float values[] = {1, 2, 3, 4};
  m.setValues(0, 4, values);
  EXPECT_EQ(m.getNum(), 4);
  m.setValues(6, 1, values);  // past the end: grows, the gap gets defaults
  EXPECT_EQ(m.getNum(), 7);
  EXPECT_EQ(m[5], 0.0f);
  EXPECT_EQ(m[6], 1.0f);
  m.set1Value(1, 20);
  EXPECT_EQ(m[1], 20.0f);
  EXPECT_EQ(m.find(3.0f), 2);
  EXPECT_EQ(m.find(99.0f), -1);
  EXPECT_EQ(m.find(99.0f, true), 7);
  EXPECT_EQ(m.getNum(), 8);
  m.deleteValues(1, 2);  // removes 20, 3
  ASSERT_EQ(m.getNum(), 6);
  EXPECT_EQ(m[0], 1.0f);
  EXPECT_EQ(m[1], 4.0f);
  m.insertSpace(1, 2);
  ASSERT_EQ(m.getNum(), 8);
  EXPECT_EQ(m[1], 0.0f);
  EXPECT_EQ(m[3], 4.0f);
  m.setNum(2);
  EXPECT_EQ(m.getNum(), 2);
  const float* start = m.getValues(1);
  EXPECT_EQ(*start, 0.0f);
  m.deleteValues(0);
  EXPECT_EQ(m.getNum(), 0);
}

TEST_F(FieldsTest, StartEditingNotifiesOnceAtTheEnd) {
  SoMFVec3f m;
  m.setNum(3);
  Counter c;
  m.addAuditor(&c);
  SbVec3f* p = m.startEditing();
  p[0].setValue(1, 1, 1);
  p[2].setValue(3, 3, 3);
  EXPECT_EQ(c.changes, 0);
  m.finishEditing();
  EXPECT_EQ(c.changes, 1);
  EXPECT_EQ(m[2], SbVec3f(3, 3, 3));
  m.removeAuditor(&c);
}

TEST_F(FieldsTest, ValuesPointerUsesTheCallersMemory) {
  float buffer[4] = {1, 2, 3, 4};
  {
    SoMFFloat m;
    m.setValuesPointer(4, buffer);
    EXPECT_EQ(m.getNum(), 4);
    EXPECT_EQ(m.getValues(0), buffer);
    buffer[2] = 30;  // writes into the buffer are seen by the field
    EXPECT_EQ(m[2], 30.0f);
    m.set1Value(0, 10);  // and writes through the field land in the buffer
    EXPECT_EQ(buffer[0], 10.0f);
    m.set1Value(5, 6);  // growing moves the values into the field's own storage
    EXPECT_NE(m.getValues(0), buffer);
    EXPECT_EQ(m[2], 30.0f);
    EXPECT_EQ(m.getNum(), 6);
  }
  EXPECT_EQ(buffer[3], 4.0f);  // the field never freed or overwrote it
  const float constant[2] = {7, 8};
  SoMFFloat ro;
  ro.setValuesPointer(2, constant);
  EXPECT_EQ(ro.getValues(0), constant);
  ro.set1Value(0, 70);  // a read-only block is copied before a change
  EXPECT_EQ(constant[0], 7.0f);
  EXPECT_EQ(ro[0], 70.0f);
}

TEST_F(FieldsTest, ReadOnlyValuesPointerIsReadOnlyForAuditorsNotifiedOfIt) {
  // A sensor that fires during the change (priority 0) and writes into the
  // field must get the field's own copy, not the caller's constant block.
  const float constant[3] = {1, 2, 3};
  SoMFFloat field;
  SoFieldSensor writer(
      [](void* data, SoSensor*) {
        auto* f = static_cast<SoMFFloat*>(data);
        if (f->getNum() == 3 && (*f)[0] == 1.0f) f->set1Value(0, 100);
      },
      &field);
  writer.setPriority(0);
  writer.attach(&field);
  field.setValuesPointer(3, constant);
  writer.detach();
  EXPECT_EQ(constant[0], 1.0f);
  EXPECT_EQ(field[0], 100.0f);
  EXPECT_EQ(field[2], 3.0f);
}

// Counts how often a lender was told that its block is no longer used.
struct LentBlock {
  int releases = 0;
  static void released(void* closure) { ++static_cast<LentBlock*>(closure)->releases; }
};

TEST_F(FieldsTest, LenderIsToldOnceWhenTheFieldLeavesItsMemory) {
  float block[4] = {1, 2, 3, 4};
  LentBlock lender;
  {
    SoMFFloat m;
    SoMFieldLending::lend(m, 4, block, &LentBlock::released, &lender);
    EXPECT_EQ(m.getValues(0), block);
    EXPECT_EQ(SoMFieldLending::lenderOf(&m, &LentBlock::released), &lender);
    m.set1Value(3, 40);  // within the block: still used
    EXPECT_EQ(block[3], 40.0f);
    m.setNum(2);  // shrinking keeps using it
    EXPECT_EQ(lender.releases, 0);
    EXPECT_EQ(m.getValues(0), block);
    m.setNum(5);  // growing beyond it moves the values out
    EXPECT_EQ(lender.releases, 1);
    EXPECT_NE(m.getValues(0), block);
    EXPECT_EQ(SoMFieldLending::lenderOf(&m, &LentBlock::released), nullptr);
    EXPECT_EQ(m[1], 2.0f);
  }
  EXPECT_EQ(lender.releases, 1);  // the field's death tells nobody twice

  LentBlock dying;
  {
    SoMFFloat m;
    SoMFieldLending::lend(m, 4, block, &LentBlock::released, &dying);
    EXPECT_EQ(dying.releases, 0);
  }
  EXPECT_EQ(dying.releases, 1);

  LentBlock first, second;
  float other[2] = {5, 6};
  SoMFFloat m;
  SoMFieldLending::lend(m, 4, block, &LentBlock::released, &first);
  SoMFieldLending::lend(m, 2, other, &LentBlock::released, &second);
  EXPECT_EQ(first.releases, 1);  // replaced
  EXPECT_EQ(second.releases, 0);
  EXPECT_EQ(m[1], 6.0f);
  SoMFieldLending::lend(m, 0, other, &LentBlock::released, &first);  // nothing taken: told at once
  EXPECT_EQ(second.releases, 1);
  EXPECT_EQ(first.releases, 2);
  EXPECT_EQ(m.getNum(), 0);
}

TEST_F(FieldsTest, LenderOfReadOnlyMemoryIsToldWhenAValueChanges) {
  const SbVec3f block[2] = {SbVec3f(1, 2, 3), SbVec3f(4, 5, 6)};
  LentBlock lender;
  SoMFVec3f m;
  SoMFieldLending::lend(m, 2, block, &LentBlock::released, &lender);
  EXPECT_EQ(lender.releases, 0);
  m.set1Value(0, SbVec3f(7, 8, 9));  // copied before the change
  EXPECT_EQ(lender.releases, 1);
  EXPECT_EQ(block[0], SbVec3f(1, 2, 3));
  EXPECT_EQ(m[0], SbVec3f(7, 8, 9));
  // A plain setValuesPointer has no lender to tell.
  float plain[2] = {1, 2};
  SoMFFloat unlent;
  unlent.setValuesPointer(2, plain);
  unlent.setNum(3);
  EXPECT_EQ(SoMFieldLending::lenderOf(&unlent, &LentBlock::released), nullptr);
}

TEST_F(FieldsTest, ReadOnlyValuesPointerIsNeverWrittenThrough) {
  // Writable memory handed over as read-only, so that a write through the
  // field would be seen here rather than crash.
  float block[4] = {1, 2, 3, 4};
  const float* readOnly = block;
  SoMFFloat removing;
  removing.setValuesPointer(4, readOnly);
  removing.deleteValues(0, 1);
  EXPECT_EQ(removing.getNum(), 3);
  EXPECT_EQ(removing[0], 2.0f);
  EXPECT_EQ(removing[2], 4.0f);
  EXPECT_NE(removing.getValues(0), block);
  EXPECT_EQ(block[0], 1.0f);
  EXPECT_EQ(block[1], 2.0f);

  SoMFFloat parsing;
  parsing.setValuesPointer(4, readOnly);
  ASSERT_TRUE(parsing.set1(1, "20"));
  EXPECT_EQ(parsing[1], 20.0f);
  EXPECT_EQ(parsing.getNum(), 4);
  EXPECT_NE(parsing.getValues(0), block);
  EXPECT_EQ(block[1], 2.0f);
}

TEST_F(FieldsTest, DisableDeleteValuesHandsStorageOver) {
  auto* m = new SoMFInt32;
  m->setNum(3);
  int32_t* storage = m->startEditing();
  m->finishEditing();
  m->disableDeleteValues();
  EXPECT_FALSE(m->isDeleteValuesEnabled());
  delete m;
  storage[0] = 5;  // still ours: the field did not free it
  EXPECT_EQ(storage[0], 5);
  delete[] storage;
}

TEST_F(FieldsTest, EnumFieldsByNameAndValue) {
  SoSFEnum e;
  const int vals[] = {10, 20, 30};
  const SbName names[] = {"LOW", "MID", "HIGH"};
  e.setEnums(3, vals, names);
  EXPECT_EQ(e.getNumEnums(), 3);
  e.setValue(SbName("MID"));
  EXPECT_EQ(e.getValue(), 20);
  SbName name;
  EXPECT_TRUE(e.findEnumName(30, name));
  EXPECT_EQ(name, SbName("HIGH"));
  int v = 0;
  EXPECT_TRUE(e.findEnumValue("LOW", v));
  EXPECT_EQ(v, 10);
  EXPECT_EQ(e.getEnum(2, name), 30);
  {
    ErrorCapture<SoDebugError> errors;
    e.setValue(SbName("NOPE"));
    EXPECT_EQ(errors.count(), 1u);
    EXPECT_EQ(e.getValue(), 20);
  }
  SbString text;
  e.get(text);
  EXPECT_EQ(text, "MID");
  EXPECT_TRUE(e.set("HIGH"));
  EXPECT_EQ(e.getValue(), 30);
  EXPECT_TRUE(e.set("10"));  // numbers are read too
  EXPECT_EQ(e.getValue(), 10);
  ErrorCapture<SoReadError> readErrors;
  EXPECT_FALSE(e.set("BOGUS"));
  EXPECT_EQ(e.getValue(), 10);
}

TEST_F(FieldsTest, BitMasksReadAndWriteTheirFlags) {
  SoSFBitMask m;
  const int vals[] = {1, 2, 4, 7};
  const SbName names[] = {"A", "B", "C", "ALL"};
  m.setEnums(4, vals, names);
  EXPECT_TRUE(m.set("( A | C )"));
  EXPECT_EQ(m.getValue(), 5);
  SbString text;
  m.get(text);
  EXPECT_EQ(text, "( A | C )");
  EXPECT_TRUE(m.set("B"));
  EXPECT_EQ(m.getValue(), 2);
  m.setValue(7);
  m.get(text);
  EXPECT_EQ(text, "ALL");
  EXPECT_TRUE(m.set("(A|B)"));
  EXPECT_EQ(m.getValue(), 3);
  ErrorCapture<SoReadError> errors;
  EXPECT_FALSE(m.set("( A | )"));
  SoMFBitMask mm;
  mm.setEnums(4, vals, names);
  EXPECT_TRUE(mm.set("[ A, ( B | C ), ALL ]"));
  ASSERT_EQ(mm.getNum(), 3);
  EXPECT_EQ(mm[1], 6);
}

TEST_F(FieldsTest, TextFormsOfValues) {
  SoSFBool b;
  EXPECT_TRUE(b.set("TRUE"));
  EXPECT_TRUE(b.getValue());
  SbString text;
  b.get(text);
  EXPECT_EQ(text, "TRUE");
  SoSFInt32 i;
  EXPECT_TRUE(i.set("0x1F"));
  EXPECT_EQ(i.getValue(), 31);
  EXPECT_TRUE(i.set("-42"));
  EXPECT_EQ(i.getValue(), -42);
  EXPECT_FALSE(i.set("99999999999"));  // out of range
  EXPECT_FALSE(i.set("x"));
  EXPECT_EQ(i.getValue(), -42);
  SoSFUInt32 u;
  EXPECT_TRUE(u.set("4294967295"));
  EXPECT_EQ(u.getValue(), 4294967295u);
  SoSFFloat f;
  EXPECT_TRUE(f.set("+1.5e2"));
  EXPECT_EQ(f.getValue(), 150.0f);
  f.setValue(0.1f);
  f.get(text);
  EXPECT_EQ(text, "0.1");
  SoSFString s;
  EXPECT_TRUE(s.set("\"say \\\"hi\\\"\""));
  EXPECT_EQ(s.getValue(), "say \"hi\"");
  s.get(text);
  EXPECT_EQ(text, "\"say \\\"hi\\\"\"");
  SoSFRotation r;
  EXPECT_TRUE(r.set("0 1 0 3.14159265"));
  SbVec3f axis;
  float angle;
  r.getValue(axis, angle);
  EXPECT_TRUE(axis.equals(SbVec3f(0, 1, 0), 1e-10f));
  EXPECT_NEAR(angle, 3.14159265f, 1e-5f);
  SoMFVec3f m;
  EXPECT_TRUE(m.set("[ 1 2 3, 4 5 6 7 8 9 ]"));  // commas are optional
  ASSERT_EQ(m.getNum(), 3);
  EXPECT_EQ(m[2], SbVec3f(7, 8, 9));
  EXPECT_TRUE(m.set("1 1 1"));  // one value needs no brackets
  EXPECT_EQ(m.getNum(), 1);
  EXPECT_TRUE(m.set("[]"));
  EXPECT_EQ(m.getNum(), 0);
  EXPECT_TRUE(m.set1(1, "2 2 2"));
  EXPECT_EQ(m.getNum(), 2);
  m.get1(1, text);
  EXPECT_EQ(text, "2 2 2");
  SoMFString ms;
  EXPECT_TRUE(ms.set("[ \"a b\", word, \"\" ]"));
  ASSERT_EQ(ms.getNum(), 3);
  EXPECT_EQ(ms[1], "word");
  EXPECT_EQ(ms[2], "");
}

TEST_F(FieldsTest, ImagesKeepTheirPixels) {
  SoSFImage image;
  const unsigned char pixels[] = {255, 0, 0, 0, 255, 0};
  image.setValue(SbVec2s(2, 1), 3, pixels);
  SbVec2i32 size;
  int nc = 0;
  const unsigned char* data = image.getValue(size, nc);
  EXPECT_EQ(size, SbVec2i32(2, 1));
  EXPECT_EQ(nc, 3);
  EXPECT_NE(data, pixels);  // copied
  EXPECT_EQ(data[3], 0);
  EXPECT_EQ(data[4], 255);
  SbString text;
  image.get(text);
  EXPECT_NE(text.find("0xff0000"), -1);
  EXPECT_NE(text.find("0x00ff00"), -1);
  SoSFImage copy;
  EXPECT_TRUE(copy.set(text.getString()));
  EXPECT_TRUE(copy == image);
  image.setSubValue(SbVec2i32(1, 1), SbVec2i32(1, 0), pixels);
  EXPECT_EQ(image.getNumSubTextures(), 1);
  SbVec2i32 offset, subSize;
  EXPECT_TRUE(image.getSubTexture(0, offset, subSize));
  EXPECT_EQ(offset, SbVec2i32(1, 0));
  EXPECT_EQ(image.getValue(size, nc)[3], 255);
  EXPECT_FALSE(image.getSubTexture(1, offset, subSize));
  ErrorCapture<SoReadError> errors;
  EXPECT_FALSE(copy.set("100000 100000 4 0x1"));  // more pixels than the text holds
}

TEST_F(FieldsTest, NodeFieldsReferenceTheirNodes) {
  auto* cube = new SoCube;
  cube->ref();
  {
    SoSFNode f;
    f.setValue(cube);
    EXPECT_EQ(cube->getRefCount(), 2);
    SoMFNode m;
    m.addNode(cube);
    m.addNode(cube);
    EXPECT_EQ(cube->getRefCount(), 4);
    m.removeNode(0);
    EXPECT_EQ(cube->getRefCount(), 3);
    m.replaceNode(0, nullptr);
    EXPECT_EQ(cube->getRefCount(), 2);
    f.setValue(nullptr);
    EXPECT_EQ(cube->getRefCount(), 1);
    f.setValue(cube);
  }
  EXPECT_EQ(cube->getRefCount(), 1);  // the field let it go when destroyed
  cube->unref();
}

TEST_F(FieldsTest, ConnectionsCarryValues) {
  SoSFFloat master, slave;
  master.setValue(2.0f);
  EXPECT_TRUE(slave.connectFrom(&master));
  EXPECT_TRUE(slave.isConnected());
  EXPECT_EQ(slave.getValue(), 2.0f);
  master.setValue(3.0f);
  EXPECT_EQ(slave.getValue(), 3.0f);
  SoField* found = nullptr;
  EXPECT_TRUE(slave.getConnectedField(found));
  EXPECT_EQ(found, &master);
  SoFieldList forward;
  EXPECT_EQ(master.getForwardConnections(forward), 1);
  EXPECT_EQ(forward[0], &slave);
  slave.enableConnection(false);
  master.setValue(4.0f);
  EXPECT_EQ(slave.getValue(), 3.0f);
  slave.enableConnection(true);
  master.setValue(5.0f);
  EXPECT_EQ(slave.getValue(), 5.0f);
  // Different types convert through text.
  SoSFString text;
  text.connectFrom(&master);
  EXPECT_EQ(text.getValue(), "5");
  slave.disconnect();
  EXPECT_FALSE(slave.isConnected());
  master.setValue(6.0f);
  EXPECT_EQ(slave.getValue(), 5.0f);
  {
    SoSFFloat shortLived;
    slave.connectFrom(&shortLived);
  }
  EXPECT_FALSE(slave.isConnected());  // a destroyed master disconnects
}

TEST_F(FieldsTest, ConnectionCyclesDoNotLoop) {
  SoSFInt32 a, b;
  a.connectFrom(&b);
  b.connectFrom(&a);
  a.setValue(7);
  EXPECT_EQ(b.getValue(), 7);
  b.setValue(8);
  EXPECT_EQ(a.getValue(), 8);
}

TEST_F(FieldsTest, TriggerOnlyNotifies) {
  SoSFTrigger t;
  Counter c;
  t.addAuditor(&c);
  t.setValue();
  t.touch();
  EXPECT_EQ(c.changes, 2);
  SbString text;
  t.get(text);
  EXPECT_TRUE(text.isEmpty());
  t.removeAuditor(&c);
}

namespace {
int s_memoryErrors = 0;
void countMemoryError(const SoError*, void*) { ++s_memoryErrors; }
}  // namespace

// An index or a count no memory can hold leaves the field as it was and posts
// a memory error: the caller's mistake must not end the process.
TEST_F(FieldsTest, GrowthBeyondAnyMemoryIsRefusedWithAMemoryError) {
  SoErrorCB* previous = SoMemoryError::getHandlerCallback();
  void* previousData = SoMemoryError::getHandlerCallbackData();
  SoMemoryError::setHandlerCallback(countMemoryError, nullptr);
  s_memoryErrors = 0;
  SoMFVec3f points;
  points.setValues(0, 2, std::vector<SbVec3f>{SbVec3f(1, 2, 3), SbVec3f(4, 5, 6)}.data());
  points.set1Value(INT_MAX - 1, SbVec3f(7, 8, 9));
  points.set1Value(INT_MAX, SbVec3f(7, 8, 9));
  const float one = 1.0f;
  SoMFFloat floats;
  floats.setValues(INT_MAX - 10, 1, &one);
  floats.setValues(INT_MAX, 5, &one);  // start + count overflows: refused outright
  points.setNum(INT_MAX / 2);
  EXPECT_EQ(points.getNum(), 2);
  EXPECT_EQ(points[1], SbVec3f(4, 5, 6));
  EXPECT_EQ(floats.getNum(), 0);
  EXPECT_EQ(s_memoryErrors, 3);
  // Ordinary growth still works afterwards.
  points.set1Value(4, SbVec3f(7, 8, 9));
  EXPECT_EQ(points.getNum(), 5);
  SoMemoryError::setHandlerCallback(previous, previousData);
}
