#include <Orvex/misc/SoCallbackList.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace {

// Every call of the functions below appends "<tag>:<callback data>" here.
struct CallLog {
  std::vector<std::string> calls;
};

struct Tagged {
  CallLog* log;
  std::string tag;
};

void record(void* userData, void* callbackData) {
  auto* t = static_cast<Tagged*>(userData);
  t->log->calls.push_back(t->tag + ":" + static_cast<const char*>(callbackData));
}

void recordOther(void* userData, void* callbackData) {
  auto* t = static_cast<Tagged*>(userData);
  t->log->calls.push_back("other-" + t->tag + ":" + static_cast<const char*>(callbackData));
}

using Calls = std::vector<std::string>;

}  // namespace

TEST(SoCallbackList, CallsEveryEntryInTheOrderAddedWithItsOwnData) {
  CallLog log;
  Tagged a{&log, "a"}, b{&log, "b"}, c{&log, "c"};
  SoCallbackList list;
  EXPECT_EQ(list.getNumCallbacks(), 0);
  list.invokeCallbacks(const_cast<char*>("empty"));
  EXPECT_TRUE(log.calls.empty());

  list.addCallback(&record, &b);
  list.addCallback(&record, &a);
  list.addCallback(&recordOther, &c);
  list.addCallback(nullptr, &a);  // ignored
  EXPECT_EQ(list.getNumCallbacks(), 3);
  list.invokeCallbacks(const_cast<char*>("x"));
  EXPECT_EQ(log.calls, (Calls{"b:x", "a:x", "other-c:x"}));
  log.calls.clear();
  list.invokeCallbacks(const_cast<char*>("y"));
  EXPECT_EQ(log.calls, (Calls{"b:y", "a:y", "other-c:y"}));
}

TEST(SoCallbackList, EntriesAreFunctionAndUserDataPairs) {
  CallLog log;
  Tagged a{&log, "a"}, b{&log, "b"};
  SoCallbackList list;
  // One function with two user data values: two entries.
  list.addCallback(&record, &a);
  list.addCallback(&record, &b);
  EXPECT_EQ(list.getNumCallbacks(), 2);
  // Removing with a pair that was never added changes nothing.
  list.removeCallback(&recordOther, &a);
  list.removeCallback(&record, nullptr);
  EXPECT_EQ(list.getNumCallbacks(), 2);
  // Removing one pair leaves the other.
  list.removeCallback(&record, &a);
  EXPECT_EQ(list.getNumCallbacks(), 1);
  list.invokeCallbacks(const_cast<char*>("1"));
  EXPECT_EQ(log.calls, (Calls{"b:1"}));

  // The same pair twice is called twice; one removal takes one of them.
  log.calls.clear();
  list.addCallback(&record, &b);
  list.invokeCallbacks(const_cast<char*>("2"));
  EXPECT_EQ(log.calls, (Calls{"b:2", "b:2"}));
  list.removeCallback(&record, &b);
  log.calls.clear();
  list.invokeCallbacks(const_cast<char*>("3"));
  EXPECT_EQ(log.calls, (Calls{"b:3"}));

  list.addCallback(&recordOther, &a);
  list.clearCallbacks();
  EXPECT_EQ(list.getNumCallbacks(), 0);
  log.calls.clear();
  list.invokeCallbacks(const_cast<char*>("4"));
  EXPECT_TRUE(log.calls.empty());
}

namespace {
// A function that changes its own list while the list is invoked.
struct Mutator {
  SoCallbackList* list;
  CallLog* log;
  std::string tag;
  enum Action { REMOVE_SELF, REMOVE_TARGET, ADD_TARGET, CLEAR, DESTROY } action;
  Tagged* target = nullptr;
};

void mutate(void* userData, void* callbackData) {
  auto* m = static_cast<Mutator*>(userData);
  m->log->calls.push_back(m->tag + ":" + static_cast<const char*>(callbackData));
  switch (m->action) {
    case Mutator::REMOVE_SELF: m->list->removeCallback(&mutate, m); break;
    case Mutator::REMOVE_TARGET: m->list->removeCallback(&record, m->target); break;
    case Mutator::ADD_TARGET: m->list->addCallback(&record, m->target); break;
    case Mutator::CLEAR: m->list->clearCallbacks(); break;
    case Mutator::DESTROY: delete m->list; m->list = nullptr; break;
  }
}
}  // namespace

TEST(SoCallbackList, ChangesDuringAnInvocation) {
  CallLog log;
  Tagged a{&log, "a"}, b{&log, "b"};
  {
    // Removing itself: the rest of the pass goes on, the next pass skips it.
    SoCallbackList list;
    Mutator self{&list, &log, "self", Mutator::REMOVE_SELF};
    list.addCallback(&mutate, &self);
    list.addCallback(&record, &a);
    list.invokeCallbacks(const_cast<char*>("1"));
    list.invokeCallbacks(const_cast<char*>("2"));
    EXPECT_EQ(log.calls, (Calls{"self:1", "a:1", "a:2"}));
  }
  log.calls.clear();
  {
    // Removing a later entry: it is not called in this pass any more.
    SoCallbackList list;
    Mutator remover{&list, &log, "rm", Mutator::REMOVE_TARGET, &b};
    list.addCallback(&record, &a);
    list.addCallback(&mutate, &remover);
    list.addCallback(&record, &b);
    list.invokeCallbacks(const_cast<char*>("1"));
    EXPECT_EQ(log.calls, (Calls{"a:1", "rm:1"}));
    EXPECT_EQ(list.getNumCallbacks(), 2);
  }
  log.calls.clear();
  {
    // Adding: the new entry waits for the next pass.
    SoCallbackList list;
    Mutator adder{&list, &log, "add", Mutator::ADD_TARGET, &b};
    list.addCallback(&mutate, &adder);
    list.invokeCallbacks(const_cast<char*>("1"));
    EXPECT_EQ(log.calls, (Calls{"add:1"}));
    EXPECT_EQ(list.getNumCallbacks(), 2);
    log.calls.clear();
    list.removeCallback(&mutate, &adder);
    list.invokeCallbacks(const_cast<char*>("2"));
    EXPECT_EQ(log.calls, (Calls{"b:2"}));
  }
  log.calls.clear();
  {
    // Clearing stops the pass.
    SoCallbackList list;
    Mutator clearer{&list, &log, "clear", Mutator::CLEAR};
    list.addCallback(&mutate, &clearer);
    list.addCallback(&record, &a);
    list.invokeCallbacks(const_cast<char*>("1"));
    EXPECT_EQ(log.calls, (Calls{"clear:1"}));
    EXPECT_EQ(list.getNumCallbacks(), 0);
  }
  log.calls.clear();
  {
    // A function may destroy the list it belongs to: nothing more is called.
    auto* list = new SoCallbackList;
    Mutator destroyer{list, &log, "destroy", Mutator::DESTROY};
    list->addCallback(&mutate, &destroyer);
    list->addCallback(&record, &a);
    list->invokeCallbacks(const_cast<char*>("1"));
    EXPECT_EQ(destroyer.list, nullptr);
    EXPECT_EQ(log.calls, (Calls{"destroy:1"}));
  }
}

namespace {
void countCall(void* userData, void*) { static_cast<std::atomic<int>*>(userData)->fetch_add(1); }
}  // namespace

TEST(SoCallbackList, ThreadsMayAddRemoveAndInvokeAtOnce) {
  SoCallbackList list;
  std::atomic<int> steady{0};
  std::atomic<int> churn{0};
  list.addCallback(&countCall, &steady);
  std::atomic<bool> stop{false};
  std::thread changer([&] {
    while (!stop) {
      list.addCallback(&countCall, &churn);
      list.removeCallback(&countCall, &churn);
    }
  });
  constexpr int kPasses = 20000;
  for (int i = 0; i < kPasses; ++i) list.invokeCallbacks(nullptr);
  stop = true;
  changer.join();
  // The entry nobody touched was called once per pass; the churning one
  // never more often than there were passes.
  EXPECT_EQ(steady.load(), kPasses);
  EXPECT_LE(churn.load(), kPasses);
  EXPECT_EQ(list.getNumCallbacks(), 1);
}
