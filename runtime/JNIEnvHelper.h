#pragma once
// Access to the process's Java virtual machine and the calling thread's
// JNIEnv, and the rules for calling Java from native callbacks (upcalls).

#include <jni.h>

#include "OrvexJavaExport.h"

class ORVEXJAVA_API JNIEnvHelper {
 public:
  // The virtual machine of the process, stored once by Orvex.checkJVM.
  static JavaVM* TheCurrentJVM;

  // The calling thread's environment. A native thread that is not attached
  // yet is attached for the rest of its life (non-daemon, named
  // "Intern-CallBack"; given back to the virtual machine only when the thread
  // ends). Returns null, after a console line, when no environment can be had.
  static JNIEnv* getEnv();

  // ---- upcalls -------------------------------------------------------------
  //
  // An upcall is a call into Java made by native code that the toolkit runs
  // (an error handler, a callback, a sensor, a render task, an override).
  // What happens to an exception the Java code raises depends on whether a
  // Java caller is waiting below on the same thread:
  //
  // - On a thread that getEnv attached, nothing Java ever sees the exception:
  //   it is described (printed on the Java standard error) and cleared, and
  //   the native code goes on.
  // - On a Java thread (one already attached when the toolkit called back,
  //   typically because a Java method called a native method that ended up
  //   in the callback), the exception stays pending and reaches that Java
  //   caller. Until then native code may make no JNI call other than the few
  //   that are legal with an exception pending (ExceptionCheck,
  //   ExceptionOccurred, DeleteLocalRef, Release*, PopLocalFrame...), so it
  //   returns as soon as it can.
  //
  // The pattern of every upcall site:
  //
  //   JNIEnv* env = JNIEnvHelper::getEnv();
  //   if (env == nullptr || !JNIEnvHelper::readyForUpcall(env)) return fallback;
  //   ... look up the class and method; on failure:
  //       JNIEnvHelper::settleUpcall(env); return fallback;
  //   {
  //     JNIEnvHelper::UpcallScope upcall;
  //     result = env->Call...Method(...);
  //   }
  //   if (JNIEnvHelper::settleUpcall(env)) return fallback;  // left for Java
  //   ... use the result

  // True when getEnv attached the calling thread: a native thread on which
  // no Java code ran before the toolkit called back.
  static bool isAttachedByLibrary();

  // True when an exception pending now would reach Java code once native
  // code returns: the thread is a Java thread, or it is a thread getEnv
  // attached that runs inside an UpcallScope (Java called from a callback
  // called native code, which posted the error or ran the callback now being
  // handled).
  static bool hasJavaCaller();

  // To call before an upcall. True when Java may be called now. An exception
  // already pending with no Java caller to see it is described and cleared
  // first; one pending for a Java caller is left alone, and the answer is
  // false: the callback must do without Java (and make no JNI call that an
  // exception forbids).
  static bool readyForUpcall(JNIEnv* env);

  // To call after every upcall (and after a failed class or method lookup
  // made for one), before any other JNI call. Checks for an exception; with
  // no Java caller to see it, describes and clears it. True when an
  // exception is left pending for a Java caller: the native code must then
  // make no JNI call that an exception forbids, and return.
  static bool settleUpcall(JNIEnv* env);

  // Marks, for its lifetime, the calling thread as running Java code called
  // from native code, so that a callback reached again from that Java code
  // leaves its exceptions to it (see hasJavaCaller). Wraps the Call...Method
  // of each upcall; settleUpcall comes after the scope has ended.
  class ORVEXJAVA_API UpcallScope {
   public:
    UpcallScope();
    ~UpcallScope();
    UpcallScope(const UpcallScope&) = delete;
    UpcallScope& operator=(const UpcallScope&) = delete;
  };

  // Stateless: assignments have nothing to copy.
  JNIEnvHelper& operator=(const JNIEnvHelper&) { return *this; }
  JNIEnvHelper& operator=(JNIEnvHelper&&) noexcept { return *this; }
};

// A local reference that is deleted when the guard goes out of scope, so
// that callbacks on threads that never return to Java do not accumulate
// them. DeleteLocalRef is legal with an exception pending, so the guard may
// end while one is.
template <typename Ref>
class ScopedLocalRef {
 public:
  ScopedLocalRef(JNIEnv* env, Ref ref) : m_env(env), m_ref(ref) {}
  ~ScopedLocalRef() {
    if (m_ref != nullptr) m_env->DeleteLocalRef(m_ref);
  }
  ScopedLocalRef(const ScopedLocalRef&) = delete;
  ScopedLocalRef& operator=(const ScopedLocalRef&) = delete;

  Ref get() const { return m_ref; }
  explicit operator bool() const { return m_ref != nullptr; }

 private:
  JNIEnv* m_env;
  Ref m_ref;
};
