#pragma once
// The Java peer of a native object whose class a Java program extends. Every
// native subclass that forwards toolkit virtuals to Java derives from the
// toolkit class first and from ICustomClass second; entry points recognise
// such objects with a cross-cast (dynamic_cast<ICustomClass*>).

#include <jni.h>

#include "OrvexJavaExport.h"

class ORVEXJAVA_API ICustomClass {
 public:
  // Binds the Java peer: a weak global reference when `weak`, else a global
  // one. The native side never deletes it.
  void initJavaObject(JNIEnv* env, jobject obj, bool weak);
  // The peer, or null while unbound. A weakly held peer is never handed out
  // here (null as well): only the forwarding code reads javaObject directly.
  jobject getJavaObject() const;

 protected:
  ICustomClass() = default;
  ICustomClass(const ICustomClass&) = default;
  ICustomClass& operator=(const ICustomClass&) = default;
  ICustomClass& operator=(ICustomClass&&) = default;

  jobject javaObject = nullptr;
  bool weak = false;
};
