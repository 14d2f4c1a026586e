#include <Orvex/SoDB.h>
#include <Orvex/misc/SoBase.h>
#include <Orvex/misc/SoBaseList.h>

#include <gtest/gtest.h>

#include <string>

#include "ErrorCapture.h"

namespace {

// A minimal concrete object that reports its own deletion.
class Thing : public SoBase {
 public:
  explicit Thing(int* deletions = nullptr) : m_deletions(deletions) {}
  static SoType getClassTypeId() { return s_type; }
  SoType getTypeId() const override { return s_type; }
  static void initClass() {
    if (s_type.isBad()) s_type = SoType::createType(SoBase::getClassTypeId(), "TestThing");
  }

 protected:
  ~Thing() override {
    if (m_deletions) ++*m_deletions;
  }

 private:
  static SoType s_type;
  int* m_deletions;
};
SoType Thing::s_type;

class ChildThing : public Thing {
 public:
  using Thing::Thing;
  static SoType getClassTypeId() { return s_type; }
  SoType getTypeId() const override { return s_type; }
  static void initClass() {
    if (s_type.isBad()) s_type = SoType::createType(Thing::getClassTypeId(), "TestChildThing");
  }

 private:
  static SoType s_type;
};
SoType ChildThing::s_type;

// Counts destroy() calls instead of deleting: shows that unref() goes through it.
class Pooled : public Thing {
 public:
  int destroyed = 0;
 protected:
  void destroy() override { ++destroyed; }
};

class SoBaseTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    SoDB::init();
    Thing::initClass();
    ChildThing::initClass();
  }
};

// Holds one reference for the scope of a test.
struct Held {
  explicit Held(SoBase* b) : base(b) { base->ref(); }
  ~Held() { base->unref(); }
  SoBase* base;
};

}  // namespace

TEST_F(SoBaseTest, UnrefToZeroDeletes) {
  int deletions = 0;
  Thing* t = new Thing(&deletions);
  EXPECT_EQ(t->getRefCount(), 0);
  t->ref();
  t->ref();
  EXPECT_EQ(t->getRefCount(), 2);
  t->unref();
  EXPECT_EQ(deletions, 0);
  t->unref();
  EXPECT_EQ(deletions, 1);
}

TEST_F(SoBaseTest, UnrefNoDeleteKeepsTheObject) {
  int deletions = 0;
  Thing* t = new Thing(&deletions);
  t->ref();
  t->unrefNoDelete();
  EXPECT_EQ(t->getRefCount(), 0);
  EXPECT_EQ(deletions, 0);
  t->ref();
  t->unref();
  EXPECT_EQ(deletions, 1);
}

TEST_F(SoBaseTest, UnrefGoesThroughDestroy) {
  Pooled p;
  p.ref();
  p.unref();
  EXPECT_EQ(p.destroyed, 1);
}

TEST_F(SoBaseTest, UnrefBelowZeroIsReported) {
  ErrorCapture<SoDebugError> errors;
  Pooled p;
  p.unref();
  EXPECT_EQ(p.destroyed, 0);
  EXPECT_EQ(p.getRefCount(), 0);
  ASSERT_EQ(errors.count(), 1u);
  EXPECT_NE(errors.last().find("SoRefCounter::unref"), std::string::npos);
}

TEST_F(SoBaseTest, NamesFindObjects) {
  Held a(new Thing), b(new ChildThing), c(new Thing);
  a.base->setName("shared");
  b.base->setName("shared");
  c.base->setName("single");
  EXPECT_EQ(a.base->getName(), SbName("shared"));
  EXPECT_TRUE(!Held(new Thing).base->getName());

  // The last object named so wins; the type filters.
  EXPECT_EQ(SoBase::getNamedBase("shared", Thing::getClassTypeId()), b.base);
  EXPECT_EQ(SoBase::getNamedBase("shared", ChildThing::getClassTypeId()), b.base);
  EXPECT_EQ(SoBase::getNamedBase("single", ChildThing::getClassTypeId()), nullptr);
  EXPECT_EQ(SoBase::getNamedBase("nobody", SoBase::getClassTypeId()), nullptr);

  SoBaseList found;
  EXPECT_EQ(SoBase::getNamedBases("shared", found, SoBase::getClassTypeId()), 2);
  ASSERT_EQ(found.getLength(), 2);
  EXPECT_EQ(found[0], a.base);
  EXPECT_EQ(found[1], b.base);
  EXPECT_EQ(SoBase::getNamedBases("shared", found, ChildThing::getClassTypeId()), 1);
  EXPECT_EQ(found.getLength(), 3);
}

TEST_F(SoBaseTest, RenamingAndDeletionLeaveTheTable) {
  Held a(new Thing);
  a.base->setName("before");
  a.base->setName("after");
  EXPECT_EQ(SoBase::getNamedBase("before", SoBase::getClassTypeId()), nullptr);
  EXPECT_EQ(SoBase::getNamedBase("after", SoBase::getClassTypeId()), a.base);
  a.base->setName("");
  EXPECT_EQ(SoBase::getNamedBase("after", SoBase::getClassTypeId()), nullptr);

  int deletions = 0;
  Thing* doomed = new Thing(&deletions);
  doomed->ref();
  doomed->setName("doomed");
  ASSERT_EQ(SoBase::getNamedBase("doomed", SoBase::getClassTypeId()), doomed);
  doomed->unref();
  EXPECT_EQ(deletions, 1);
  EXPECT_EQ(SoBase::getNamedBase("doomed", SoBase::getClassTypeId()), nullptr);
}

TEST_F(SoBaseTest, BadCharactersInNamesAreReplaced) {
  ErrorCapture<SoDebugError> errors;
  Held a(new Thing);
  a.base->setName("9 lives{x}");
  EXPECT_EQ(a.base->getName(), SbName("__lives_x_"));
  ASSERT_EQ(errors.count(), 1u);
  EXPECT_NE(errors.last().find("Orvex warning in SoBase::setName()"), std::string::npos);
  a.base->setName("fine_name-2");
  EXPECT_EQ(a.base->getName(), SbName("fine_name-2"));
  EXPECT_EQ(errors.count(), 1u);
}

TEST_F(SoBaseTest, TypeAndFileFormatName) {
  Held a(new ChildThing);
  EXPECT_EQ(SoBase::getClassTypeId().getName(), SbName("Base"));
  EXPECT_EQ(SoType::fromName("SoBase"), SoBase::getClassTypeId());
  EXPECT_TRUE(a.base->isOfType(SoBase::getClassTypeId()));
  EXPECT_TRUE(a.base->isOfType(Thing::getClassTypeId()));
  EXPECT_STREQ(a.base->getFileFormatName(), "TestChildThing");
}

TEST_F(SoBaseTest, BaseListHoldsReferences) {
  int deletions = 0;
  Thing* t = new Thing(&deletions);
  {
    SoBaseList list;
    list.append(t);
    EXPECT_EQ(t->getRefCount(), 1);
    SoBaseList copy(list);
    EXPECT_EQ(t->getRefCount(), 2);
    copy.set(0, nullptr);
    EXPECT_EQ(t->getRefCount(), 1);
    list.insert(t, 0);
    EXPECT_EQ(t->getRefCount(), 2);
    list.remove(0);
    EXPECT_EQ(t->getRefCount(), 1);
    EXPECT_EQ(list.find(t), 0);
  }
  EXPECT_EQ(deletions, 1);  // the last list reference was the only one
}

TEST_F(SoBaseTest, BaseListWithoutReferences) {
  ErrorCapture<SoDebugError> errors;
  Held a(new Thing);
  SoBaseList list;
  list.addReferences(false);
  EXPECT_FALSE(list.isReferencing());
  list.append(a.base);
  EXPECT_EQ(a.base->getRefCount(), 1);
  list.addReferences(true);  // refused: not empty
  EXPECT_FALSE(list.isReferencing());
  EXPECT_EQ(errors.count(), 1u);
  list.truncate(0);
  EXPECT_EQ(a.base->getRefCount(), 1);
}

TEST_F(SoBaseTest, CheckDatabaseReportsUninitialisedClasses) {
  ErrorCapture<SoDebugError> errors;
  int dummy;
  EXPECT_TRUE(SoTypedObject::checkDatabase("Thing", &dummy, Thing::getClassTypeId(), Thing::getClassTypeId()));
  EXPECT_EQ(errors.count(), 0u);
  EXPECT_FALSE(SoTypedObject::checkDatabase("SoLateNode", &dummy, SoType::badType(), SoType::badType()));
  ASSERT_EQ(errors.count(), 1u);
  EXPECT_NE(errors.last().find("SoLateNode::initClass()"), std::string::npos);
}
