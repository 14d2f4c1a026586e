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

// A pending Java exception becomes an IllegalArgumentException with `message`.
bool replacePendingException(JNIEnv* env, const char* message) {
  if (!env->ExceptionCheck()) return false;
  ExceptionHelper::throwIllegalArgException(env, message);
  return true;
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
  jstring name = env->NewStringUTF(typeName);
  const jlong handle = env->CallStaticLongMethod(s_dynamicTypeManagerClass, s_newInstanceFromNativeTypeName, name);
  const bool raised = env->ExceptionCheck();
  env->DeleteLocalRef(name);
  if (raised && replacePendingException(
          env, "ObjectHelper::getManagedObject : exception raised during execution of DynamicTypeManager.newInstance")) {
    return nullptr;
  }
  return reinterpret_cast<void*>(handle);
}

jobject ObjectHelper::getManagedObject(JNIEnv* env, const char* className) {
  init(env);
  jstring name = env->NewStringUTF(className);
  jobject result = env->CallStaticObjectMethod(s_orxInternalObjectManagerClass, s_newInstanceFromClassNameId, name);
  const bool raised = env->ExceptionCheck();
  env->DeleteLocalRef(name);
  if (raised && replacePendingException(
          env, "ObjectHelper::getManagedObject : exception raised during execution of ObjectManager.newInstance")) {
    return nullptr;
  }
  return result;
}

jobject ObjectHelper::getManagedObject(JNIEnv* env, const char* className, jlong handle) {
  init(env);
  jstring name = env->NewStringUTF(className);
  jobject result =
      env->CallStaticObjectMethod(s_orxInternalObjectManagerClass, s_getManagedObjectForId, name, handle);
  const bool raised = env->ExceptionCheck();
  env->DeleteLocalRef(name);
  if (raised && replacePendingException(env,
                              "ObjectHelper::getManagedObject : exception raised during execution of "
                              "ObjectManager.getManagedObjectFor")) {
    return nullptr;
  }
  return result;
}

jobject ObjectHelper::getEnum(JNIEnv* env, const char* enumClassName, jint value) {
  init(env);
  jstring name = env->NewStringUTF(enumClassName);
  jobject result = env->CallStaticObjectMethod(s_orxInternalObjectManagerClass, s_getEnumValueOfId, name, value);
  const bool raised = env->ExceptionCheck();
  env->DeleteLocalRef(name);
  if (raised && replacePendingException(
          env, "ObjectHelper::getJavaEnum : exception raised during execution of ObjectManager.getEnumValueOf")) {
    return nullptr;
  }
  return result;
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
