#include <Orvex/SoType.h>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "ErrorCapture.h"

namespace {

struct Widget {
  int tag = 7;
};
void* makeWidget() { return new Widget; }
void* makeOtherWidget() { return new Widget{42}; }

// Unknown-name callbacks cannot carry data; tests talk to them through these.
std::atomic<int> g_unknownCalls{0};
std::string g_lastUnknownName;
SoType g_answer;

intptr_t answerWithFixedType(const SbName& name) {
  ++g_unknownCalls;
  g_lastUnknownName = name.getString();
  // High bits set on purpose: only the low 16 bits are the key.
  return static_cast<intptr_t>(~intptr_t(0xFFFF)) | g_answer.getKey();
}

intptr_t registerOnDemand(const SbName& name) {
  ++g_unknownCalls;
  return SoType::createType(g_answer, name).getKey();
}

intptr_t answerNothing(const SbName&) {
  ++g_unknownCalls;
  return 0;
}

// Type names are registered for the life of the process; each test run makes
// its own so that repeated runs in one process do not collide.
std::string fresh(const std::string& stem) {
  static std::atomic<int> counter{0};
  return stem + "_" + std::to_string(++counter);
}

// Installs an unknown-name callback for one test and restores the old one.
class UnknownNameScope {
 public:
  explicit UnknownNameScope(SoType::UnknownNameCB* cb) : m_previous(SoType::setUnknownNameCB(cb)) {
    g_unknownCalls = 0;
  }
  ~UnknownNameScope() { SoType::setUnknownNameCB(m_previous); }

 private:
  SoType::UnknownNameCB* m_previous;
};

}  // namespace

TEST(SoType, BadType) {
  const SoType bad = SoType::badType();
  EXPECT_TRUE(bad.isBad());
  EXPECT_EQ(bad.getKey(), 0);
  EXPECT_TRUE(!bad.getName());
  EXPECT_FALSE(bad.isDerivedFrom(bad));
  EXPECT_FALSE(bad.canCreateInstance());
  EXPECT_EQ(bad.createInstance(), nullptr);
  EXPECT_TRUE(SoType::fromKey(0xFFFF).isBad());
}

TEST(SoType, RegistersAHierarchy) {
  const int before = SoType::getNumTypes();
  const std::string leafName = fresh("HierLeaf");
  const SoType root = SoType::createType(SoType::badType(), fresh("HierRoot"));
  const SoType mid = SoType::createType(root, fresh("HierMid"), nullptr, 3);
  const SoType leaf = SoType::createType(mid, leafName, &makeWidget);
  ASSERT_FALSE(root.isBad());
  ASSERT_FALSE(leaf.isBad());
  EXPECT_EQ(SoType::getNumTypes(), before + 3);

  EXPECT_EQ(leaf.getName(), SbName(leafName));
  EXPECT_EQ(leaf.getParent(), mid);
  EXPECT_EQ(mid.getParent(), root);
  EXPECT_TRUE(root.getParent().isBad());
  EXPECT_EQ(mid.getData(), 3);
  EXPECT_TRUE(leaf.isDerivedFrom(root));
  EXPECT_TRUE(leaf.isDerivedFrom(leaf));
  EXPECT_FALSE(root.isDerivedFrom(leaf));
  EXPECT_EQ(SoType::fromKey(leaf.getKey()), leaf);

  EXPECT_FALSE(mid.canCreateInstance());
  EXPECT_EQ(mid.createInstance(), nullptr);
  ASSERT_TRUE(leaf.canCreateInstance());
  std::unique_ptr<Widget> w(static_cast<Widget*>(leaf.createInstance()));
  EXPECT_EQ(w->tag, 7);

  EXPECT_EQ(SoType::overrideType(leaf, &makeOtherWidget), leaf);
  std::unique_ptr<Widget> w2(static_cast<Widget*>(leaf.createInstance()));
  EXPECT_EQ(w2->tag, 42);
  EXPECT_TRUE(SoType::overrideType(SoType::badType(), &makeWidget).isBad());

  EXPECT_FALSE(leaf.isInternal());
  SoType(leaf).makeInternal();
  EXPECT_TRUE(leaf.isInternal());
}

TEST(SoType, DuplicateNameGivesBadTypeAndDebugError) {
  ErrorCapture<SoDebugError> errors;
  const std::string name = fresh("DupName");
  const SoType first = SoType::createType(SoType::badType(), name);
  const int count = SoType::getNumTypes();
  const SoType second = SoType::createType(first, name);
  EXPECT_FALSE(first.isBad());
  EXPECT_TRUE(second.isBad());
  EXPECT_EQ(SoType::getNumTypes(), count);
  ASSERT_EQ(errors.count(), 1u);
  EXPECT_NE(errors.last().find("SoType::createType"), std::string::npos);
  EXPECT_NE(errors.last().find("\"" + name + "\""), std::string::npos);
  EXPECT_TRUE(SoType::createType(SoType::badType(), "").isBad());
  EXPECT_EQ(errors.count(), 2u);
}

TEST(SoType, FromNameFindsExactThenWithoutPrefix) {
  const std::string coneName = fresh("PrefixCone");
  const std::string ballName = fresh("PrefixBall");
  const SoType cone = SoType::createType(SoType::badType(), coneName);
  const SoType soBall = SoType::createType(SoType::badType(), "So" + ballName);
  EXPECT_EQ(SoType::fromName(coneName), cone);
  EXPECT_EQ(SoType::fromName("So" + coneName), cone);
  EXPECT_EQ(SoType::fromName("So" + ballName), soBall);
  // Only the "So" prefix is dropped, never added.
  UnknownNameScope none(nullptr);
  EXPECT_TRUE(SoType::fromName(ballName).isBad());
  EXPECT_TRUE(SoType::fromName("So").isBad());
  EXPECT_TRUE(SoType::fromName("").isBad());
}

TEST(SoType, UnknownNameWithoutCallbackIsBad) {
  UnknownNameScope none(nullptr);
  const int count = SoType::getNumTypes();
  EXPECT_TRUE(SoType::fromName("NeverRegisteredAnywhere").isBad());
  EXPECT_EQ(SoType::getNumTypes(), count);
}

TEST(SoType, UnknownNameCallbackAnswersOncePerLookup) {
  const std::string target = fresh("UnknownTarget");
  g_answer = SoType::createType(SoType::badType(), target);
  UnknownNameScope scope(&answerWithFixedType);
  EXPECT_EQ(SoType::getUnknownNameCB(), &answerWithFixedType);
  const int count = SoType::getNumTypes();

  EXPECT_EQ(SoType::fromName("AliasOfTarget"), g_answer);
  EXPECT_EQ(g_unknownCalls, 1);
  EXPECT_EQ(g_lastUnknownName, "AliasOfTarget");
  // Nothing is registered, so the next lookup asks again.
  EXPECT_EQ(SoType::fromName("AliasOfTarget"), g_answer);
  EXPECT_EQ(g_unknownCalls, 2);
  EXPECT_EQ(SoType::getNumTypes(), count);
  EXPECT_TRUE(SoType::fromName("AliasOfTarget").getName() == target.c_str());
  // Known names never reach the callback.
  EXPECT_EQ(SoType::fromName(target), g_answer);
  EXPECT_EQ(g_unknownCalls, 3);
}

TEST(SoType, UnknownNameCallbackMayRegisterTheType) {
  g_answer = SoType::createType(SoType::badType(), fresh("OnDemandParent"));
  UnknownNameScope scope(&registerOnDemand);
  const std::string child = fresh("OnDemandChild");
  const SoType made = SoType::fromName(child);
  ASSERT_FALSE(made.isBad());
  EXPECT_EQ(made.getName(), SbName(child));
  EXPECT_EQ(made.getParent(), g_answer);
  EXPECT_EQ(SoType::fromName(child), made);
  EXPECT_EQ(g_unknownCalls, 1);
}

TEST(SoType, UnknownNameCallbackAnsweringZeroIsBad) {
  UnknownNameScope scope(&answerNothing);
  EXPECT_TRUE(SoType::fromName("NobodyKnowsThis").isBad());
  EXPECT_EQ(g_unknownCalls, 1);
  EXPECT_EQ(SoType::setUnknownNameCB(nullptr), &answerNothing);
  EXPECT_TRUE(SoType::fromName("NobodyKnowsThis").isBad());
  EXPECT_EQ(g_unknownCalls, 1);
}

TEST(SoType, AllDerivedFrom) {
  const SoType base = SoType::createType(SoType::badType(), fresh("DerivBase"));
  const SoType a = SoType::createType(base, fresh("DerivA"));
  const SoType b = SoType::createType(a, fresh("DerivB"));
  SoType::createType(SoType::badType(), fresh("DerivUnrelated"));
  SoTypeList list;
  list.append(SoType::badType());  // existing entries are kept
  EXPECT_EQ(SoType::getAllDerivedFrom(base, list), 3);
  ASSERT_EQ(list.getLength(), 4);
  EXPECT_NE(list.find(base), -1);
  EXPECT_NE(list.find(a), -1);
  EXPECT_NE(list.find(b), -1);
  EXPECT_EQ(list[0], SoType::badType());
  SoTypeList none;
  EXPECT_EQ(SoType::getAllDerivedFrom(SoType::badType(), none), 0);
}

TEST(SoType, ConcurrentRegistrationAndLookup) {
  constexpr int kThreads = 4;
  constexpr int kTypes = 300;
  UnknownNameScope none(nullptr);
  const SoType parent = SoType::createType(SoType::badType(), fresh("ConcParent"));
  const std::string prefix = fresh("Conc");
  std::vector<std::vector<SoType>> made(kThreads);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      for (int i = 0; i < kTypes; ++i) {
        const std::string name = prefix + "_" + std::to_string(t) + "_" + std::to_string(i);
        made[t].push_back(SoType::createType(parent, name.c_str()));
        // Look up another thread's names while they are being added.
        SoType::fromName((prefix + "_" + std::to_string((t + 1) % kThreads) + "_" + std::to_string(i)).c_str());
      }
    });
  }
  for (auto& th : threads) th.join();
  std::set<uint16_t> keys;
  for (int t = 0; t < kThreads; ++t) {
    for (int i = 0; i < kTypes; ++i) {
      const SoType type = made[t][i];
      ASSERT_FALSE(type.isBad());
      EXPECT_TRUE(keys.insert(type.getKey()).second);
      EXPECT_EQ(SoType::fromName((prefix + "_" + std::to_string(t) + "_" + std::to_string(i)).c_str()), type);
      EXPECT_TRUE(type.isDerivedFrom(parent));
    }
  }
}
