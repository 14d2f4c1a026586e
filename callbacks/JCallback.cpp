#include "JCallback.h"

#include <atomic>

#include "JNIEnvHelper.h"

namespace {
std::atomic<long> g_liveCallbacks{0};
std::atomic<long> g_heldReferences{0};
}

JCallback::JCallback(jobject obj, JNIEnv* env) : m_javaCB(env->NewGlobalRef(obj)) {
  ++g_liveCallbacks;
  if (m_javaCB != nullptr) ++g_heldReferences;
}

JCallback::~JCallback() {
  dropReference();
  --g_liveCallbacks;
}

JCallback& JCallback::operator=(const JCallback& other) {
  if (this != &other) m_javaCB = other.m_javaCB;
  return *this;
}

void JCallback::hold(JNIEnv* env, jobject obj) {
  const std::lock_guard<std::mutex> lock(m_holdMutex);
  if (m_holds++ == 0 && m_javaCB == nullptr) {
    m_javaCB = env->NewGlobalRef(obj);
    if (m_javaCB != nullptr) ++g_heldReferences;
  }
}

jobject JCallback::newLocalJavaCB(JNIEnv* env) const {
  const std::lock_guard<std::mutex> lock(m_holdMutex);
  return m_javaCB == nullptr ? nullptr : env->NewLocalRef(m_javaCB);
}

void JCallback::letGo() {
  const std::lock_guard<std::mutex> lock(m_holdMutex);
  if (m_holds == 0) return;  // more removals than registrations: nothing to give back
  if (--m_holds == 0) dropReference();
}

void JCallback::letGoIfUnheld() {
  const std::lock_guard<std::mutex> lock(m_holdMutex);
  if (m_holds == 0) dropReference();
}

int JCallback::getHoldCount() const {
  const std::lock_guard<std::mutex> lock(m_holdMutex);
  return m_holds;
}

long JCallback::getLiveCount() { return g_liveCallbacks.load(); }

long JCallback::getReferenceCount() { return g_heldReferences.load(); }

void JCallback::dropReference() {
  if (m_javaCB == nullptr) return;
  // May run on a toolkit thread (a holder destroyed there): getEnv attaches
  // it if needed. DeleteGlobalRef is legal with an exception pending.
  if (JNIEnv* env = JNIEnvHelper::getEnv()) env->DeleteGlobalRef(m_javaCB);
  m_javaCB = nullptr;
  --g_heldReferences;
}
