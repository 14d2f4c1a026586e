// JNIEnvHelper::getEnv against a scripted virtual machine: which invocation
// calls it makes, with which arguments, and what it answers when the machine
// refuses. A real virtual machine never refuses an attach, so these paths are
// only reachable this way. Also the settlement of upcalls: which exceptions
// are described and cleared, and which are left pending, on threads attached
// here and elsewhere.

#include <gtest/gtest.h>

#include <jni.h>

#include <cstring>
#include <string>
#include <thread>

#include "JNIEnvHelper.h"

namespace {

const char kErrorLine[] = "***** CB::GetEnv ERROR :  cant get JNIEnv *****\n";

// What the scripted machine answers and what it was asked. One test at a
// time drives it, on one thread at a time.
struct Script {
  jint answerToVersion12 = JNI_OK;
  jint answerToVersion11 = JNI_OK;
  jint answerToAttach = JNI_OK;
  int getEnvCalls = 0;
  int attachCalls = 0;
  int daemonAttachCalls = 0;
  int detachCalls = 0;
  bool attachHadArgs = false;
  jint attachVersion = 0;
  std::string attachName;
  jobject attachGroup = reinterpret_cast<jobject>(1);
  bool exceptionPending = false;
  int exceptionChecks = 0;
  int describeCalls = 0;
  int clearCalls = 0;
};

Script g_script;

jboolean JNICALL fakeExceptionCheck(JNIEnv*) {
  ++g_script.exceptionChecks;
  return g_script.exceptionPending ? JNI_TRUE : JNI_FALSE;
}
void JNICALL fakeExceptionDescribe(JNIEnv*) { ++g_script.describeCalls; }
void JNICALL fakeExceptionClear(JNIEnv*) {
  ++g_script.clearCalls;
  g_script.exceptionPending = false;
}

// Only the exception functions: any other call would jump through null.
JNINativeInterface_ exceptionFunctions() {
  JNINativeInterface_ functions{};
  functions.ExceptionCheck = fakeExceptionCheck;
  functions.ExceptionDescribe = fakeExceptionDescribe;
  functions.ExceptionClear = fakeExceptionClear;
  return functions;
}
const JNINativeInterface_ kEnvFunctions = exceptionFunctions();
JNIEnv_ g_env{&kEnvFunctions};
thread_local bool t_attached = false;  // the scripted machine's view of the calling thread

jint JNICALL fakeGetEnv(JavaVM*, void** env, jint version) {
  ++g_script.getEnvCalls;
  if (t_attached) {
    *env = &g_env;
    return JNI_OK;
  }
  const jint answer = version == JNI_VERSION_1_2 ? g_script.answerToVersion12 : g_script.answerToVersion11;
  *env = answer == JNI_OK ? &g_env : nullptr;
  return answer;
}

jint JNICALL fakeAttach(JavaVM*, void** env, void* args) {
  ++g_script.attachCalls;
  g_script.attachHadArgs = args != nullptr;
  if (args != nullptr) {
    const auto* attachArgs = static_cast<JavaVMAttachArgs*>(args);
    g_script.attachVersion = attachArgs->version;
    g_script.attachName = attachArgs->name != nullptr ? attachArgs->name : "";
    g_script.attachGroup = attachArgs->group;
  }
  if (g_script.answerToAttach != JNI_OK) return g_script.answerToAttach;
  t_attached = true;
  *env = &g_env;
  return JNI_OK;
}

jint JNICALL fakeAttachAsDaemon(JavaVM*, void**, void*) {
  ++g_script.daemonAttachCalls;
  return JNI_ERR;
}

jint JNICALL fakeDetach(JavaVM*) {
  ++g_script.detachCalls;
  t_attached = false;
  return JNI_OK;
}

jint JNICALL fakeDestroy(JavaVM*) { return JNI_ERR; }

const JNIInvokeInterface_ kFunctions = {
    nullptr, nullptr, nullptr, fakeDestroy, fakeAttach, fakeDetach, fakeGetEnv, fakeAttachAsDaemon,
};
JavaVM g_vm{&kFunctions};

class ScriptedVM : public testing::Test {
 protected:
  void SetUp() override {
    g_script = Script();
    m_previous = JNIEnvHelper::TheCurrentJVM;
    JNIEnvHelper::TheCurrentJVM = &g_vm;
  }
  void TearDown() override { JNIEnvHelper::TheCurrentJVM = m_previous; }

  // Runs getEnv on a fresh thread, which then ends.
  static JNIEnv* getEnvOnNewThread(int calls = 1) {
    JNIEnv* env = nullptr;
    std::thread worker([&] {
      for (int i = 0; i < calls; ++i) env = JNIEnvHelper::getEnv();
    });
    worker.join();
    return env;
  }

 private:
  JavaVM* m_previous = nullptr;
};

TEST_F(ScriptedVM, AttachedThreadGetsItsEnvironmentWithoutAttaching) {
  g_script.answerToVersion12 = JNI_OK;
  testing::internal::CaptureStdout();
  EXPECT_EQ(getEnvOnNewThread(), &g_env);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(g_script.getEnvCalls, 1);
  EXPECT_EQ(g_script.attachCalls, 0);
  EXPECT_EQ(g_script.detachCalls, 0);  // not attached here: not ours to give back
}

TEST_F(ScriptedVM, DetachedThreadIsAttachedOnceAsAnOrdinaryNamedThread) {
  g_script.answerToVersion12 = JNI_EDETACHED;
  EXPECT_EQ(getEnvOnNewThread(3), &g_env);
  EXPECT_EQ(g_script.attachCalls, 1);
  EXPECT_EQ(g_script.daemonAttachCalls, 0);
  ASSERT_TRUE(g_script.attachHadArgs);
  EXPECT_EQ(g_script.attachVersion, 0x00010002);
  EXPECT_EQ(g_script.attachName, "Intern-CallBack");
  EXPECT_EQ(g_script.attachGroup, nullptr);
  // Given back once, when the thread ended.
  EXPECT_EQ(g_script.detachCalls, 1);
}

TEST_F(ScriptedVM, MachineWithoutVersion12AttachesWithoutArguments) {
  g_script.answerToVersion12 = JNI_EVERSION;
  g_script.answerToVersion11 = JNI_EDETACHED;
  EXPECT_EQ(getEnvOnNewThread(), &g_env);
  EXPECT_EQ(g_script.getEnvCalls, 2);
  EXPECT_EQ(g_script.attachCalls, 1);
  EXPECT_FALSE(g_script.attachHadArgs);
  EXPECT_EQ(g_script.detachCalls, 1);
}

TEST_F(ScriptedVM, RefusedAttachGivesNullAndOneConsoleLinePerCall) {
  g_script.answerToVersion12 = JNI_EDETACHED;
  g_script.answerToAttach = JNI_ERR;
  testing::internal::CaptureStdout();
  EXPECT_EQ(getEnvOnNewThread(2), nullptr);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), std::string(kErrorLine) + kErrorLine);
  EXPECT_EQ(g_script.attachCalls, 2);  // nothing is remembered from a refusal
  EXPECT_EQ(g_script.detachCalls, 0);  // never attached: nothing to give back
}

TEST_F(ScriptedVM, RefusedEnvironmentOfAnOldMachineGivesNullAndTheLine) {
  g_script.answerToVersion12 = JNI_EVERSION;
  g_script.answerToVersion11 = JNI_EVERSION;
  testing::internal::CaptureStdout();
  EXPECT_EQ(getEnvOnNewThread(), nullptr);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), kErrorLine);
  EXPECT_EQ(g_script.attachCalls, 0);
}

// ---- upcalls ---------------------------------------------------------------

TEST_F(ScriptedVM, ThreadAttachedHereCountsAsAttachedByTheLibrary) {
  g_script.answerToVersion12 = JNI_EDETACHED;
  bool before = true;
  bool after = false;
  std::thread worker([&] {
    before = JNIEnvHelper::isAttachedByLibrary();
    JNIEnvHelper::getEnv();
    after = JNIEnvHelper::isAttachedByLibrary();
  });
  worker.join();
  EXPECT_FALSE(before);
  EXPECT_TRUE(after);
}

TEST_F(ScriptedVM, ThreadAttachedElsewhereIsAJavaThread) {
  g_script.answerToVersion12 = JNI_OK;
  bool attachedByLibrary = true;
  bool javaCaller = false;
  std::thread worker([&] {
    JNIEnvHelper::getEnv();
    attachedByLibrary = JNIEnvHelper::isAttachedByLibrary();
    javaCaller = JNIEnvHelper::hasJavaCaller();
  });
  worker.join();
  EXPECT_FALSE(attachedByLibrary);
  EXPECT_TRUE(javaCaller);
}

// Runs `body` on a fresh thread whose environment getEnv attached (or found
// attached, when `attachHere` is false).
template <typename Body>
void onThread(bool attachHere, Body body) {
  g_script.answerToVersion12 = attachHere ? JNI_EDETACHED : JNI_OK;
  std::thread worker([&] { body(JNIEnvHelper::getEnv()); });
  worker.join();
}

TEST_F(ScriptedVM, UpcallWithoutExceptionSettlesWithoutTouchingAnything) {
  for (const bool attachHere : {true, false}) {
    g_script.describeCalls = g_script.clearCalls = 0;
    bool leftPending = true;
    onThread(attachHere, [&](JNIEnv* env) { leftPending = JNIEnvHelper::settleUpcall(env); });
    EXPECT_FALSE(leftPending);
    EXPECT_EQ(g_script.describeCalls, 0);
    EXPECT_EQ(g_script.clearCalls, 0);
  }
}

TEST_F(ScriptedVM, ExceptionOnAThreadAttachedHereIsDescribedAndCleared) {
  bool leftPending = true;
  onThread(true, [&](JNIEnv* env) {
    g_script.exceptionPending = true;
    leftPending = JNIEnvHelper::settleUpcall(env);
  });
  EXPECT_FALSE(leftPending);
  EXPECT_FALSE(g_script.exceptionPending);
  EXPECT_EQ(g_script.describeCalls, 1);
  EXPECT_EQ(g_script.clearCalls, 1);
}

TEST_F(ScriptedVM, ExceptionOnAJavaThreadStaysPendingForTheCaller) {
  bool leftPending = false;
  onThread(false, [&](JNIEnv* env) {
    g_script.exceptionPending = true;
    leftPending = JNIEnvHelper::settleUpcall(env);
  });
  EXPECT_TRUE(leftPending);
  EXPECT_TRUE(g_script.exceptionPending);
  EXPECT_EQ(g_script.describeCalls, 0);
  EXPECT_EQ(g_script.clearCalls, 0);
}

TEST_F(ScriptedVM, ExceptionInsideAnUpcallOfAThreadAttachedHereStaysPendingForTheJavaBelow) {
  bool javaCallerInside = false;
  bool leftPendingInside = false;
  bool javaCallerAfter = true;
  bool leftPendingAfter = true;
  onThread(true, [&](JNIEnv* env) {
    {
      // Java called from a callback called native code, which called back.
      const JNIEnvHelper::UpcallScope outer;
      javaCallerInside = JNIEnvHelper::hasJavaCaller();
      g_script.exceptionPending = true;
      leftPendingInside = JNIEnvHelper::settleUpcall(env);
    }
    // Back in the outer callback: nothing Java is below any more.
    javaCallerAfter = JNIEnvHelper::hasJavaCaller();
    leftPendingAfter = JNIEnvHelper::settleUpcall(env);
  });
  EXPECT_TRUE(javaCallerInside);
  EXPECT_TRUE(leftPendingInside);
  EXPECT_FALSE(javaCallerAfter);
  EXPECT_FALSE(leftPendingAfter);
  EXPECT_EQ(g_script.describeCalls, 1);
  EXPECT_EQ(g_script.clearCalls, 1);
}

TEST_F(ScriptedVM, ReadyForUpcallRefusesOnlyWhenAJavaCallerAwaitsAPendingException) {
  bool readyOnJavaThread = true;
  onThread(false, [&](JNIEnv* env) {
    g_script.exceptionPending = true;
    readyOnJavaThread = JNIEnvHelper::readyForUpcall(env);
  });
  EXPECT_FALSE(readyOnJavaThread);
  EXPECT_TRUE(g_script.exceptionPending);
  EXPECT_EQ(g_script.clearCalls, 0);

  // A stale exception on a thread attached here is nobody's: cleared, then ready.
  bool readyOnAttachedThread = false;
  onThread(true, [&](JNIEnv* env) { readyOnAttachedThread = JNIEnvHelper::readyForUpcall(env); });
  EXPECT_TRUE(readyOnAttachedThread);
  EXPECT_FALSE(g_script.exceptionPending);
  EXPECT_EQ(g_script.describeCalls, 1);
  EXPECT_EQ(g_script.clearCalls, 1);

  bool readyWithoutException = false;
  onThread(false, [&](JNIEnv* env) { readyWithoutException = JNIEnvHelper::readyForUpcall(env); });
  EXPECT_TRUE(readyWithoutException);
}

}  // namespace
