#pragma once
// One call from a toolkit callback into the Java callback object, following
// the upcall rules of JNIEnvHelper: no call while an exception waits for a
// Java caller; an exception raised by the Java code is left to the Java
// caller on a Java thread, and described and cleared on a thread the
// library attached.

#include <jni.h>

#include <utility>

#include "JCallback.h"
#include "JNIEnvHelper.h"
#include "NativeDebug.h"

namespace orvexjava {

class CallbackUpcall {
 public:
  // Looks the method up on the class of the callback's Java object, anew
  // for every call: nothing about the Java side is kept between calls.
  // ready() tells whether Java may be called.
  CallbackUpcall(const JCallback* callback, const char* method, const char* signature)
      : m_env(JNIEnvHelper::getEnv()) {
    if (m_env == nullptr || !JNIEnvHelper::readyForUpcall(m_env)) return;
    // A local reference of our own: another thread may let the callback go
    // (and delete its global reference) while this call runs.
    m_target = callback->newLocalJavaCB(m_env);
    if (m_target == nullptr) return;  // no toolkit object holds it any more
    const ScopedLocalRef<jclass> cls(m_env, m_env->GetObjectClass(m_target));
    m_method = m_env->GetMethodID(cls.get(), method, signature);
    if (m_method == nullptr) JNIEnvHelper::settleUpcall(m_env);
  }

  ~CallbackUpcall() {
    if (m_target != nullptr) m_env->DeleteLocalRef(m_target);
  }
  CallbackUpcall(const CallbackUpcall&) = delete;
  CallbackUpcall& operator=(const CallbackUpcall&) = delete;

  bool ready() const { return m_method != nullptr; }
  JNIEnv* env() const { return m_env; }

  // Makes one argument of the call (which may call into Java too), unless
  // making an earlier one raised an exception: then null.
  template <typename Make>
  jobject argument(Make make) {
    if (m_argumentFailed || m_env->ExceptionCheck()) {
      m_argumentFailed = true;
      return nullptr;
    }
    return make();
  }

  // To ask once the arguments are made: false, with the exception settled,
  // when making one raised; the call must then not be made.
  bool argumentsMade() {
    if (m_env->ExceptionCheck()) m_argumentFailed = true;
    if (!m_argumentFailed) return true;
    JNIEnvHelper::settleUpcall(m_env);
    return false;
  }

  // True when an exception waits for the Java caller below (after a call
  // that raised on a Java thread): the toolkit should wind up quickly, since
  // no further callback can reach Java until then.
  bool exceptionLeftForJava() const { return m_env != nullptr && m_env->ExceptionCheck(); }

  // Calls the method with `Call<Type>Method` chosen by the caller; true when
  // the result may be used (no exception left pending for a Java caller and
  // none raised).
  template <typename Invoke>
  bool call(Invoke invoke) {
    {
      const JNIEnvHelper::UpcallScope upcall;
      invoke(m_env, m_target, m_method);
    }
    const bool raised = m_env->ExceptionCheck();
    JNIEnvHelper::settleUpcall(m_env);
    return !raised;
  }

 private:
  JNIEnv* m_env;
  jobject m_target = nullptr;
  jmethodID m_method = nullptr;
  bool m_argumentFailed = false;
};

}  // namespace orvexjava
