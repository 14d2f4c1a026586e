#include "ObjectHelper.h"

#include "ExceptionHelper.h"
#include "JNIEnvHelper.h"

jclass ObjectHelper::s_orxInternalObjectManagerClass = nullptr;
jmethodID ObjectHelper::s_getManagedObjectForId = nullptr;
jmethodID ObjectHelper::s_getEnumValueOfId = nullptr;
jmethodID ObjectHelper::s_newInstanceFromClassNameId = nullptr;
jclass ObjectHelper::s_dynamicTypeManagerClass = nullptr;
jmethodID ObjectHelper::s_newInstanceFromNativeTypeName = nullptr;

namespace {
// The binding cannot work without these classes: a failed lookup is fatal.
jclass requireClass(JNIEnv* env, const char* name, const char* fatalMessage) {
  jclass local = env->FindClass(name);
  if (local == nullptr) env->FatalError(fatalMessage);
  auto global = static_cast<jclass>(env->NewGlobalRef(local));
  env->DeleteLocalRef(local);
  return global;
}

jmethodID requireStaticMethod(JNIEnv* env, jclass cls, const char* name, const char* signature,
                              const char* fatalMessage) {
  jmethodID id = env->GetStaticMethodID(cls, name, signature);
  if (id == nullptr) env->FatalError(fatalMessage);
  return id;
}

// Calls `call` with a Java string of `name`. An exception raised by Java is
// described and replaced by an IllegalArgumentException with `failure`, and
// the result is then zero (null).
template <typename Call>
auto callWithName(JNIEnv* env, const char* name, const char* failure, Call call) -> decltype(call(jstring{})) {
  // An exception already pending for a Java caller: Java must not be called now.
  if (!JNIEnvHelper::readyForUpcall(env)) return {};
  jstring javaName = env->NewStringUTF(name);
  if (javaName == nullptr) {
    JNIEnvHelper::settleUpcall(env);  // out of memory in the virtual machine
    return {};
  }
  decltype(call(jstring{})) result;
  {
    JNIEnvHelper::UpcallScope upcall;
    result = call(javaName);
  }
  env->DeleteLocalRef(javaName);
  if (env->ExceptionCheck()) {
    ExceptionHelper::throwIllegalArgException(env, failure);
    // On a thread the library attached no Java caller will see it: described and cleared.
    JNIEnvHelper::settleUpcall(env);
    return {};
  }
  return result;
}

}  // namespace

void ObjectHelper::init(JNIEnv* env) {
  // No lock: concurrent first calls resolve and store the same values.
  if (s_orxInternalObjectManagerClass != nullptr) return;
  jclass objectManager = requireClass(env, "com/orvexa/internal/ObjectManager",
                                      "Unable to resolve class com.orvexa.internal.ObjectManager");
  s_getManagedObjectForId =
      requireStaticMethod(env, objectManager, "getManagedObjectForInternal",
                          "(Ljava/lang/String;J)Lcom/orvexa/orvex/Orvex;",
                          "Unable to resolve method com.orvexa.internal.ObjectManager.getManagedObjectFor()");
  s_getEnumValueOfId =
      requireStaticMethod(env, objectManager, "getEnumValueOf", "(Ljava/lang/String;I)Ljava/lang/Enum;",
                          "Unable to resolve method com.orvexa.internal.ObjectManager.getEnumValueOf()");
  s_dynamicTypeManagerClass = requireClass(env, "com/orvexa/internal/DynamicTypeManager",
                                           "Unable to resolve class com.orvexa.internal.DynamicTypeManager");
  s_newInstanceFromNativeTypeName =
      requireStaticMethod(env, s_dynamicTypeManagerClass, "newInstance", "(Ljava/lang/String;)J",
                          "Unable to resolve method com.orvexa.internal.DynamicTypeManager.newInstance()");
  s_newInstanceFromClassNameId =
      requireStaticMethod(env, objectManager, "newInstance", "(Ljava/lang/String;)Ljava/lang/Object;",
                          "Unable to resolve method com.orvexa.internal.ObjectManager.newInstance()");
  // Published last: a non-null class means the whole cache is filled.
  s_orxInternalObjectManagerClass = objectManager;
}

void* ObjectHelper::getManagedObject(const char* typeName) {
  JNIEnv* env = JNIEnvHelper::getEnv();
  if (env == nullptr) return nullptr;
  init(env);
  const jlong handle = callWithName(
      env, typeName,
      "ObjectHelper::getManagedObject : exception raised during execution of DynamicTypeManager.newInstance",
      [&](jstring name) {
        return env->CallStaticLongMethod(s_dynamicTypeManagerClass, s_newInstanceFromNativeTypeName, name);
      });
  return reinterpret_cast<void*>(handle);
}

jobject ObjectHelper::getManagedObject(JNIEnv* env, const char* className) {
  init(env);
  return callWithName(
      env, className, "ObjectHelper::getManagedObject : exception raised during execution of ObjectManager.newInstance",
      [&](jstring name) {
        return env->CallStaticObjectMethod(s_orxInternalObjectManagerClass, s_newInstanceFromClassNameId, name);
      });
}

jobject ObjectHelper::getManagedObject(JNIEnv* env, const char* className, jlong handle) {
  init(env);
  return callWithName(
      env, className,
      "ObjectHelper::getManagedObject : exception raised during execution of ObjectManager.getManagedObjectFor",
      [&](jstring name) {
        return env->CallStaticObjectMethod(s_orxInternalObjectManagerClass, s_getManagedObjectForId, name, handle);
      });
}

jobject ObjectHelper::getEnum(JNIEnv* env, const char* enumClassName, jint value) {
  init(env);
  return callWithName(
      env, enumClassName,
      "ObjectHelper::getJavaEnum : exception raised during execution of ObjectManager.getEnumValueOf",
      [&](jstring name) {
        return env->CallStaticObjectMethod(s_orxInternalObjectManagerClass, s_getEnumValueOfId, name, value);
      });
}

int ObjectHelper::getEnumValue(JNIEnv* env, jobject enumConstant) {
  // A null reference has no class either (and must not reach GetObjectClass).
  jclass cls = enumConstant != nullptr ? env->GetObjectClass(enumConstant) : nullptr;
  if (cls == nullptr) {
    ExceptionHelper::throwIllegalArgException(env, "ObjectHelper::getJavaEnumValue : unable to find class.");
    return -1;
  }
  jmethodID getValue = env->GetMethodID(cls, "getValue", "()I");
  env->DeleteLocalRef(cls);
  if (getValue == nullptr) {
    // Replaces the NoSuchMethodError of the lookup.
    ExceptionHelper::throwIllegalArgException(env, "ObjectHelper::getJavaEnumValue : unable to find getValue method.");
    return -1;
  }
  return env->CallIntMethod(enumConstant, getValue);
}
