#include <Orvex/SoDB.h>
#include <Orvex/fields/SoSFTime.h>
#include <Orvex/nodes/SoInfo.h>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

class SoFieldTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
};

// Records the changes it is told about; can detach itself on the first one.
struct Recorder : SoFieldAuditor {
  std::vector<SoField*> changed;
  SoField* destroyed = nullptr;
  bool detachOnChange = false;
  void fieldChanged(SoField* f) override {
    changed.push_back(f);
    if (detachOnChange) f->removeAuditor(this);
  }
  void fieldDestroyed(SoField* f) override { destroyed = f; }
};

}  // namespace

TEST_F(SoFieldTest, TypeNamesDropThePrefix) {
  EXPECT_EQ(SoField::getClassTypeId().getName(), SbName("Field"));
  EXPECT_EQ(SoSField::getClassTypeId().getName(), SbName("SField"));
  EXPECT_EQ(SoSFTime::getClassTypeId().getName(), SbName("SFTime"));
  EXPECT_EQ(SoType::fromName("SoSFTime"), SoSFTime::getClassTypeId());
  EXPECT_EQ(SoSFTime::getClassTypeId().getParent(), SoSField::getClassTypeId());
  EXPECT_EQ(SoSField::getClassTypeId().getParent(), SoField::getClassTypeId());
  EXPECT_FALSE(SoField::getClassTypeId().canCreateInstance());
}

TEST_F(SoFieldTest, CreatedFromItsType) {
  std::unique_ptr<SoField> f(static_cast<SoField*>(SoSFTime::getClassTypeId().createInstance()));
  ASSERT_NE(f, nullptr);
  EXPECT_EQ(f->getTypeId(), SoSFTime::getClassTypeId());
  EXPECT_TRUE(f->isOfType(SoField::getClassTypeId()));
  EXPECT_TRUE(f->isDefault());
  EXPECT_EQ(f->getContainer(), nullptr);
}

TEST_F(SoFieldTest, EnableNotifyReturnsThePreviousSetting) {
  SoSFTime f;
  EXPECT_TRUE(f.isNotifyEnabled());
  EXPECT_TRUE(f.enableNotify(false));
  EXPECT_FALSE(f.isNotifyEnabled());
  EXPECT_FALSE(f.enableNotify(false));
  EXPECT_FALSE(f.enableNotify(true));
  EXPECT_TRUE(f.isNotifyEnabled());
}

TEST_F(SoFieldTest, ChangesNotifyAuditorsUnlessDisabled) {
  SoSFTime f;
  Recorder r;
  f.addAuditor(&r);
  EXPECT_EQ(f.getNumAuditors(), 1);
  f.setValue(SbTime(2.0));
  EXPECT_EQ(f.getValue(), SbTime(2.0));
  EXPECT_FALSE(f.isDefault());
  ASSERT_EQ(r.changed.size(), 1u);
  EXPECT_EQ(r.changed[0], &f);

  f.enableNotify(false);
  f = SbTime(3.0);
  f.touch();
  EXPECT_EQ(f.getValue(), SbTime(3.0));  // the value changes, silently
  EXPECT_EQ(r.changed.size(), 1u);

  f.enableNotify(true);
  f.setDefault(true);
  f.touch();  // notifies but is not a new value
  EXPECT_EQ(r.changed.size(), 2u);
  EXPECT_TRUE(f.isDefault());
  f.removeAuditor(&r);
  f.touch();
  EXPECT_EQ(r.changed.size(), 2u);
}

TEST_F(SoFieldTest, AuditorsMayDetachWhileNotified) {
  // The auditors outlive the field: its destructor tells the one still
  // attached that it is going away.
  Recorder once, always;
  SoSFTime f;
  once.detachOnChange = true;
  f.addAuditor(&once);
  f.addAuditor(&always);
  f.touch();
  f.touch();
  EXPECT_EQ(once.changed.size(), 1u);
  EXPECT_EQ(always.changed.size(), 2u);
  EXPECT_EQ(f.getNumAuditors(), 1);
}

TEST_F(SoFieldTest, AuditorsHearAboutDestruction) {
  Recorder r;
  SoField* address;
  {
    SoSFTime f;
    address = &f;
    f.addAuditor(&r);
  }
  EXPECT_EQ(r.destroyed, address);
}

TEST_F(SoFieldTest, FlagsAndContainer) {
  SoSFTime a, b;
  a.setIgnored(true);
  EXPECT_TRUE(a.isIgnored());
  // A real container: a changed field now notifies its container.
  SoInfo* container = new SoInfo;
  container->ref();
  a.setContainer(container);
  EXPECT_EQ(a.getContainer(), container);
  a.setValue(SbTime(1.0));
  b.setValue(SbTime(1.0));
  EXPECT_TRUE(a == b);
  b.setValue(SbTime(1.5));
  EXPECT_TRUE(a != b);
  a.setContainer(nullptr);
  container->unref();
}
