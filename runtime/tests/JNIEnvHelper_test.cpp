// JNIEnvHelper::getEnv against a scripted virtual machine: which invocation
// calls it makes, with which arguments, and what it answers when the machine
// refuses. A real virtual machine never refuses an attach, so these paths are
// only reachable this way.

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
};

Script g_script;
JNIEnv_ g_env{};                     // only its address is handed out
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

}  // namespace
