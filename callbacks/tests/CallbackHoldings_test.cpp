// The hold accounting of native callback objects against a scripted virtual
// machine that only counts global references: a reference exists exactly
// while some registration holds the callback, removals that find nothing
// give nothing back, and holdings attached to a node give everything back
// when the node is destroyed.

#include <gtest/gtest.h>

#include <jni.h>

#include <Orvex/SoDB.h>
#include <Orvex/nodes/SoCallback.h>

#include "CallbackHoldings.h"
#include "JCallback.h"
#include "JNIEnvHelper.h"

using orvexjava::BaseCallbackHoldings;
using orvexjava::CallbackHoldings;

namespace {

// The global references the scripted machine has handed out and not taken back.
int g_globalReferences = 0;

jobject JNICALL fakeNewGlobalRef(JNIEnv*, jobject obj) {
  ++g_globalReferences;
  return obj;
}
void JNICALL fakeDeleteGlobalRef(JNIEnv*, jobject) { --g_globalReferences; }

JNINativeInterface_ makeFunctions() {
  JNINativeInterface_ functions{};
  functions.NewGlobalRef = fakeNewGlobalRef;
  functions.DeleteGlobalRef = fakeDeleteGlobalRef;
  return functions;
}
JNINativeInterface_ g_functions = makeFunctions();
JNIEnv g_env{&g_functions};

jint JNICALL fakeGetEnv(JavaVM*, void** env, jint) {
  *env = &g_env;
  return JNI_OK;
}
JNIInvokeInterface_ makeInvoke() {
  JNIInvokeInterface_ invoke{};
  invoke.GetEnv = fakeGetEnv;
  return invoke;
}
JNIInvokeInterface_ g_invoke = makeInvoke();
JavaVM g_vm{&g_invoke};

// Any non-null value stands for the Java callback object.
jobject javaObject() { return reinterpret_cast<jobject>(0x1000); }

class CallbackHoldingsTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    SoDB::init();
    JNIEnvHelper::TheCurrentJVM = &g_vm;
  }
  void SetUp() override { g_globalReferences = 0; }
};

TEST_F(CallbackHoldingsTest, TheReferenceExistsExactlyWhileARegistrationHoldsTheCallback) {
  const long live = JCallback::getLiveCount();
  auto* callback = new JCallback(javaObject(), &g_env);
  EXPECT_EQ(1, g_globalReferences) << "made for the registration about to hold it";
  EXPECT_EQ(live + 1, JCallback::getLiveCount());
  {
    CallbackHoldings holdings;
    holdings.add(&g_env, javaObject(), callback, CallbackHoldings::slot(1));
    holdings.add(&g_env, javaObject(), callback, CallbackHoldings::slot(2, 7));
    EXPECT_EQ(2, callback->getHoldCount());
    EXPECT_EQ(1, g_globalReferences) << "one reference for any number of holds";

    EXPECT_FALSE(holdings.remove(callback, CallbackHoldings::slot(2, 8))) << "another type: nothing to remove";
    EXPECT_TRUE(holdings.remove(callback, CallbackHoldings::slot(1)));
    EXPECT_FALSE(holdings.remove(callback, CallbackHoldings::slot(1))) << "removed once only";
    EXPECT_EQ(1, callback->getHoldCount());
    EXPECT_TRUE(holdings.remove(callback, CallbackHoldings::slot(2, 7)));
    EXPECT_EQ(0, g_globalReferences) << "the last hold takes the reference with it";

    holdings.add(&g_env, javaObject(), callback, CallbackHoldings::slot(1));
    EXPECT_EQ(1, g_globalReferences) << "registered again: referenced again";
  }
  EXPECT_EQ(0, g_globalReferences) << "holdings going give their holds back";
  EXPECT_EQ(0, callback->getHoldCount());
  delete callback;
  EXPECT_EQ(live, JCallback::getLiveCount());
  EXPECT_EQ(0, g_globalReferences);
}

TEST_F(CallbackHoldingsTest, AFailedFirstRegistrationLetsTheReferenceGo) {
  auto* callback = new JCallback(javaObject(), &g_env);
  callback->letGoIfUnheld();
  EXPECT_EQ(0, g_globalReferences);
  callback->letGo();  // more removals than registrations: nothing happens
  EXPECT_EQ(0, callback->getHoldCount());
  delete callback;
  EXPECT_EQ(0, g_globalReferences);
}

TEST_F(CallbackHoldingsTest, ASingleFunctionSlotKeepsOnlyTheNewest) {
  auto* first = new JCallback(javaObject(), &g_env);
  auto* second = new JCallback(javaObject(), &g_env);
  CallbackHoldings holdings;
  const uint64_t slot = CallbackHoldings::slot(0);
  holdings.add(&g_env, javaObject(), first, slot);
  holdings.removeSlotExceptLast(slot);
  EXPECT_EQ(1, first->getHoldCount());
  holdings.add(&g_env, javaObject(), second, slot);
  holdings.removeSlotExceptLast(slot);
  EXPECT_EQ(0, first->getHoldCount());
  EXPECT_EQ(1, second->getHoldCount());
  holdings.removeSlot(slot);
  EXPECT_EQ(0, second->getHoldCount());
  EXPECT_EQ(0, g_globalReferences);
  delete first;
  delete second;
}

TEST_F(CallbackHoldingsTest, ANodeGivesItsCallbacksBackWhenItIsDestroyed) {
  auto* callback = new JCallback(javaObject(), &g_env);
  SoCallback* node = new SoCallback;
  node->ref();
  BaseCallbackHoldings& holdings = BaseCallbackHoldings::of(node);
  EXPECT_EQ(&holdings, &BaseCallbackHoldings::of(node)) << "one record per node";
  holdings.add(&g_env, javaObject(), callback, CallbackHoldings::slot(0));
  holdings.add(&g_env, javaObject(), callback, CallbackHoldings::slot(1));
  EXPECT_EQ(2, callback->getHoldCount());
  node->unref();
  EXPECT_EQ(0, callback->getHoldCount());
  EXPECT_EQ(0, g_globalReferences);
  delete callback;
}

}  // namespace
