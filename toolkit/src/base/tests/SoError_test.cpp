#include <Orvex/errors/SoDebugError.h>
#include <Orvex/errors/SoErrorStack.h>
#include <Orvex/errors/SoGLError.h>
#include <Orvex/errors/SoMemoryError.h>
#include <Orvex/errors/SoReadError.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "ErrorCapture.h"

namespace {

class SoErrorTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoError::initClasses(); }
};

int g_countA = 0;
int g_countB = 0;
void handlerA(const SoError*, void*) { ++g_countA; }
void handlerB(const SoError*, void*) { ++g_countB; }

// Restores a class's handler when a test replaced it by hand.
template <class ErrorClass>
struct HandlerRestorer {
  SoErrorCB* cb = ErrorClass::getHandlerCallback();
  void* data = ErrorClass::getHandlerCallbackData();
  ~HandlerRestorer() { ErrorClass::setHandlerCallback(cb, data); }
};

}  // namespace

TEST_F(SoErrorTest, TypesCarryTheFullClassNames) {
  EXPECT_EQ(SoError::getClassTypeId().getName(), SbName("SoError"));
  EXPECT_EQ(SoDebugError::getClassTypeId().getName(), SbName("SoDebugError"));
  EXPECT_EQ(SoReadError::getClassTypeId().getName(), SbName("SoReadError"));
  EXPECT_EQ(SoMemoryError::getClassTypeId().getName(), SbName("SoMemoryError"));
  EXPECT_EQ(SoGLError::getClassTypeId().getName(), SbName("SoGLError"));
  EXPECT_EQ(SoErrorStack::getClassTypeId().getName(), SbName("SoErrorStack"));
  for (SoType t : {SoDebugError::getClassTypeId(), SoReadError::getClassTypeId(),
                   SoMemoryError::getClassTypeId(), SoGLError::getClassTypeId(),
                   SoErrorStack::getClassTypeId()}) {
    EXPECT_EQ(t.getParent(), SoError::getClassTypeId());
  }
  EXPECT_TRUE(SoError::getClassTypeId().isDerivedFrom(SoTypedObject::getClassTypeId()));
  EXPECT_EQ(SoType::fromName("SoReadError"), SoReadError::getClassTypeId());
  SoError::initClasses();  // idempotent
  EXPECT_EQ(SoType::fromName("SoReadError"), SoReadError::getClassTypeId());
}

TEST_F(SoErrorTest, DefaultHandlerWritesTheLineToStderr) {
  EXPECT_EQ(SoDebugError::getHandlerCallback(), &SoError::defaultHandlerCB);
  EXPECT_EQ(SoReadError::getHandlerCallback(), &SoError::defaultHandlerCB);
  ::testing::internal::CaptureStderr();
  SoDebugError::post("SoFoo::bar", "broken %d", 3);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Orvex error in SoFoo::bar(): broken 3\n");
}

TEST_F(SoErrorTest, DebugErrorsFormatSeverityAndMethod) {
  ErrorCapture<SoDebugError> debug;
  SoDebugError::post("SoFoo::bar", "value %d of %s", 42, "x");
  SoDebugError::postWarning("SoFoo::baz", "%5.2f", 1.5);
  SoDebugError::postInfo("SoFoo::qux(int)", "fyi");
  SoDebugError::post(nullptr, "no method");
  const auto r = debug.records();
  ASSERT_EQ(r.size(), 4u);
  EXPECT_EQ(r[0].text, "Orvex error in SoFoo::bar(): value 42 of x");
  EXPECT_EQ(r[1].text, "Orvex warning in SoFoo::baz():  1.50");
  EXPECT_EQ(r[2].text, "Orvex info in SoFoo::qux(int): fyi");
  EXPECT_EQ(r[3].text, "Orvex error: no method");
  EXPECT_EQ(r[0].type, SoDebugError::getClassTypeId());
}

namespace {
SoDebugError::Severities g_severity;
void recordSeverity(const SoError* e, void*) {
  ASSERT_TRUE(e->isOfType(SoDebugError::getClassTypeId()));
  g_severity = static_cast<const SoDebugError*>(e)->getSeverity();
}
int g_glCode = 0;
void recordGlCode(const SoError* e, void*) { g_glCode = static_cast<const SoGLError*>(e)->getErrorCode(); }
}  // namespace

TEST_F(SoErrorTest, SeverityAndCodeReachTheHandler) {
  HandlerRestorer<SoDebugError> restoreDebug;
  HandlerRestorer<SoGLError> restoreGl;
  SoDebugError::setHandlerCallback(&recordSeverity, nullptr);
  SoDebugError::postWarning("m", "w");
  EXPECT_EQ(g_severity, SoDebugError::WARNING);
  SoDebugError::postInfo("m", "i");
  EXPECT_EQ(g_severity, SoDebugError::INFO);
  SoDebugError::post("m", "e");
  EXPECT_EQ(g_severity, SoDebugError::SERROR);
  SoGLError::setHandlerCallback(&recordGlCode, nullptr);
  SoGLError::post(1280, "m", "x");
  EXPECT_EQ(g_glCode, 1280);
}

TEST_F(SoErrorTest, OtherClassesFormatTheirOwnText) {
  ErrorCapture<SoReadError> read;
  ErrorCapture<SoGLError> gl;
  ErrorCapture<SoMemoryError> memory;
  ErrorCapture<SoError> base;
  SoReadError::postAt("/path/file.ovx", 12, "bad token '%s'", "}");
  SoReadError::postAt(nullptr, 3, "no file");
  SoGLError::post(1282, "SoGLRender::draw", "invalid %s", "operation");
  SoMemoryError::post("a vertex array");
  SoError::post("plain %d", 5);
  EXPECT_EQ(read.records().at(0).text, "Orvex read error: bad token '}'\n    Occurred at line 12 in /path/file.ovx");
  EXPECT_EQ(read.records().at(1).text, "Orvex read error: no file\n    Occurred at line 3");
  EXPECT_EQ(gl.last(), "Orvex OpenGL error 1282 in SoGLRender::draw(): invalid operation");
  EXPECT_EQ(memory.last(), "Orvex memory error: Cannot allocate memory for a vertex array");
  EXPECT_EQ(memory.records().at(0).type, SoMemoryError::getClassTypeId());
  // Each class goes to its own handler only: the base saw just its own post.
  ASSERT_EQ(base.count(), 1u);
  EXPECT_EQ(base.last(), "Orvex error: plain 5");
  EXPECT_EQ(base.records()[0].type, SoError::getClassTypeId());
}

TEST_F(SoErrorTest, HandlersArePerClassAndLastInstalledWins) {
  HandlerRestorer<SoDebugError> restoreDebug;
  HandlerRestorer<SoReadError> restoreRead;
  int tokenA = 1, tokenB = 2;
  g_countA = g_countB = 0;
  SoDebugError::setHandlerCallback(&handlerA, &tokenA);
  SoDebugError::setHandlerCallback(&handlerB, &tokenB);
  EXPECT_EQ(SoDebugError::getHandlerCallback(), &handlerB);
  EXPECT_EQ(SoDebugError::getHandlerCallbackData(), &tokenB);
  // The read-error handler is untouched by the debug-error setting.
  EXPECT_EQ(SoReadError::getHandlerCallback(), &SoError::defaultHandlerCB);
  SoDebugError::post("m", "x");
  EXPECT_EQ(g_countA, 0);
  EXPECT_EQ(g_countB, 1);

  SoReadError::setHandlerCallback(&handlerA, nullptr);
  SoReadError::postAt("f", 1, "x");
  EXPECT_EQ(g_countA, 1);
  EXPECT_EQ(g_countB, 1);
  SoDebugError::setHandlerCallback(nullptr, nullptr);  // no handler: dropped
  SoDebugError::post("m", "dropped");
  EXPECT_EQ(g_countB, 1);
}

namespace {
bool g_cleanupAnswer = false;
size_t g_cleanupSize = 0;
void* g_cleanupData = nullptr;
bool cleanup(size_t size, void* data) {
  g_cleanupSize = size;
  g_cleanupData = data;
  return g_cleanupAnswer;
}
}  // namespace

TEST_F(SoErrorTest, MemoryCleanupHook) {
  SoMemoryError::setMemoryCleanupCallback(nullptr, nullptr);
  EXPECT_FALSE(SoMemoryError::invokeMemoryCleanup(10));
  int token = 0;
  SoMemoryError::setMemoryCleanupCallback(&cleanup, &token);
  EXPECT_EQ(SoMemoryError::getMemoryCleanupCallback(), &cleanup);
  g_cleanupAnswer = true;
  EXPECT_TRUE(SoMemoryError::invokeMemoryCleanup(4096));
  EXPECT_EQ(g_cleanupSize, 4096u);
  EXPECT_EQ(g_cleanupData, &token);
  g_cleanupAnswer = false;
  EXPECT_FALSE(SoMemoryError::invokeMemoryCleanup(1));
  SoMemoryError::setMemoryCleanupCallback(nullptr, nullptr);
}

TEST_F(SoErrorTest, StackNamesTheCaller) {
  const std::string stack = SoErrorStack::getStack().getString();
  EXPECT_NE(stack.find("SoErrorTest_StackNamesTheCaller_Test::TestBody"), std::string::npos) << stack;
  EXPECT_EQ(stack.rfind("#0 ", 0), 0u);
  ErrorCapture<SoErrorStack> capture;
  SoErrorStack::post();
  ASSERT_EQ(capture.count(), 1u);
  EXPECT_EQ(capture.last().rfind("Orvex stack trace:\n#0 ", 0), 0u);
}

TEST_F(SoErrorTest, PostingFromManyThreadsWhileHandlersChange) {
  HandlerRestorer<SoDebugError> restore;
  static std::atomic<int> posted{0}, wellFormed{0};
  posted = wellFormed = 0;
  auto check = [](const SoError* e, void*) {
    ++posted;
    int thread = -1, n = -1;
    if (std::sscanf(e->getDebugString().getString(), "Orvex error in Worker::run(): thread %d post %d",
                    &thread, &n) == 2 && thread >= 0 && n >= 0)
      ++wellFormed;
  };
  // Two distinct handlers with the same effect, swapped while posting.
  static SoErrorCB* const first = +check;
  static SoErrorCB* const second = [](const SoError* e, void* d) { first(e, d); };
  SoDebugError::setHandlerCallback(first, nullptr);

  constexpr int kThreads = 6, kPosts = 400;
  std::atomic<bool> done{false};
  std::thread swapper([&] {
    for (bool flip = false; !done; flip = !flip) SoDebugError::setHandlerCallback(flip ? first : second, nullptr);
  });
  std::vector<std::thread> workers;
  for (int t = 0; t < kThreads; ++t)
    workers.emplace_back([t] {
      for (int i = 0; i < kPosts; ++i) SoDebugError::post("Worker::run", "thread %d post %d", t, i);
    });
  for (auto& w : workers) w.join();
  done = true;
  swapper.join();
  EXPECT_EQ(posted, kThreads * kPosts);
  EXPECT_EQ(wellFormed, kThreads * kPosts);
}

namespace {

// What a handler installed for one error class received.
struct Received {
  std::vector<SoType> types;
  std::vector<void*> data;
  std::vector<std::string> texts;
};
Received g_received;
void receive(const SoError* error, void* data) {
  g_received.types.push_back(error->getTypeId());
  g_received.data.push_back(data);
  g_received.texts.push_back(error->getDebugString().getString());
}

// One posting of each error class.
template <class E> void postOne();
template <> void postOne<SoError>() { SoError::post("plain"); }
template <> void postOne<SoDebugError>() { SoDebugError::post("m", "debug"); }
template <> void postOne<SoGLError>() { SoGLError::post(1280, "m", "gl"); }
template <> void postOne<SoMemoryError>() { SoMemoryError::post("buffer"); }
template <> void postOne<SoReadError>() { SoReadError::postAt("f.ovx", 3, "read"); }
template <> void postOne<SoErrorStack>() { SoErrorStack::post(); }

template <class E>
class EachErrorClass : public SoErrorTest {};
using ErrorClasses = ::testing::Types<SoError, SoDebugError, SoGLError, SoMemoryError, SoReadError, SoErrorStack>;
TYPED_TEST_SUITE(EachErrorClass, ErrorClasses);

}  // namespace

TYPED_TEST(EachErrorClass, HandlerGetsItsClassesErrorsWithItsUserData) {
  HandlerRestorer<TypeParam> restore;
  int token = 0;
  TypeParam::setHandlerCallback(&receive, &token);
  EXPECT_EQ(TypeParam::getHandlerCallback(), &receive);
  EXPECT_EQ(TypeParam::getHandlerCallbackData(), &token);
  g_received = Received();
  postOne<TypeParam>();
  ASSERT_EQ(g_received.types.size(), 1u);
  EXPECT_EQ(g_received.types[0], TypeParam::getClassTypeId());
  EXPECT_EQ(g_received.data[0], &token);
  EXPECT_FALSE(g_received.texts[0].empty());
  // The handler of one class does not see the errors of the others.
  ::testing::internal::CaptureStderr();
  if (TypeParam::getClassTypeId() != SoDebugError::getClassTypeId()) SoDebugError::post("m", "other");
  if (TypeParam::getClassTypeId() != SoReadError::getClassTypeId()) SoReadError::postAt("f", 1, "other");
  ::testing::internal::GetCapturedStderr();
  EXPECT_EQ(g_received.types.size(), 1u);
  // Null user data is handed on as null.
  TypeParam::setHandlerCallback(&receive, nullptr);
  postOne<TypeParam>();
  ASSERT_EQ(g_received.data.size(), 2u);
  EXPECT_EQ(g_received.data[1], nullptr);
}
