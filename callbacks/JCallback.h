#pragma once
// The native half of a Java callback object (a com.orvexa.orvex.misc.callbacks
// class derived from NCallback): what the toolkit is given as user data when
// a Java callback is registered, holding the Java object by global reference.

#include <jni.h>

#include <mutex>

#include "OrvexJavaExport.h"

class ORVEXJAVA_API JCallback {
 public:
  // Takes a global reference to `obj`. No hold is counted yet: the object is
  // made for the registration about to take the first one (see hold()),
  // and a registration that fails lets go of it again.
  JCallback(jobject obj, JNIEnv* env);
  // Releases the global reference, if one is held, on the calling thread's
  // environment (a foreign thread is attached for it).
  virtual ~JCallback();

  // The Java callback object; null while no toolkit object holds it. Only
  // for the thread that holds the callback (a registration): an upcall
  // uses newLocalJavaCB instead.
  jobject getJavaCB() const { return m_javaCB; }

  // A new local reference to the Java callback object, or null when no
  // toolkit object holds it any more. Taken under the hold lock, so that a
  // letGo() on another thread cannot delete the global reference while it
  // is read; the local reference then keeps the Java object, and with it
  // this object (deleted only by the Java object's clean-up), alive for the
  // call.
  jobject newLocalJavaCB(JNIEnv* env) const;

  // Shallow copy: the reference value is copied as it is, so two copies
  // share one global reference, which only one of them may release.
  JCallback& operator=(const JCallback& other);

  // ---- holds -----------------------------------------------------------------
  //
  // The toolkit keeps only a raw pointer to this object, so the Java object
  // must stay alive for as long as some toolkit object may call it, and no
  // longer: each registration takes a hold, each removal (or the end of the
  // toolkit object that held it) gives it back. The global reference exists
  // while at least one hold does; without one the Java object can be
  // collected, and its clean-up deletes this object. The pointer given to the
  // toolkit stays the same for the life of the Java object, however often it
  // is registered and removed.

  // Takes a hold; `obj` (the same Java object) is referenced again when the
  // last hold had been given back.
  void hold(JNIEnv* env, jobject obj);
  // Gives a hold back; the global reference goes with the last one.
  void letGo();
  int getHoldCount() const;
  // Drops the global reference taken at construction when no registration
  // took a hold after all (it failed).
  void letGoIfUnheld();

  // How many native callback objects exist in the process (diagnostics and
  // leak tests).
  static long getLiveCount();
  // How many global references the native callback objects hold now.
  static long getReferenceCount();

 protected:
  JCallback(const JCallback&) = delete;

 private:
  void dropReference();

  mutable std::mutex m_holdMutex;  // m_holds, and m_javaCB when it changes
  jobject m_javaCB = nullptr;
  int m_holds = 0;
};
