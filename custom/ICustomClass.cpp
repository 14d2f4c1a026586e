#include "custom/ICustomClass.h"

void ICustomClass::initJavaObject(JNIEnv* env, jobject obj, bool weakRef) {
  weak = weakRef;
  javaObject = weakRef ? env->NewWeakGlobalRef(obj) : env->NewGlobalRef(obj);
}

jobject ICustomClass::getJavaObject() const { return weak ? nullptr : javaObject; }
