#include "MakeJavaObj.h"

#include <atomic>
#include <cstring>
#include <map>
#include <string>

#include <Orvex/SbThreadRWMutex.h>
#include <Orvex/SoTypedObject.h>
#include <Orvex/misc/SoBase.h>

#include "NativeDebug.h"
#include "StringHelper.h"

namespace {

// Packages searched for a derived simple name, in this order.
constexpr const char* kSearchPath[] = {
    "com/orvexa/orvex/fields/",
    "com/orvexa/orvex/",
    "com/orvexa/orvex/misc/",
    "com/orvexa/orvex/details/",
    "com/orvexa/volumelux/details/",
    "com/orvexa/orvex/nodekits/",
    "com/orvexa/orvex/actions/",
    "com/orvexa/orvex/events/",
    "com/orvexa/meshlux/graph/",
    "com/orvexa/meshlux/mesh/",
    "com/orvexa/orvex/nodes/",
    "com/orvexa/meshlux/nodes/",
    "com/orvexa/orvex/draggers/",
    "com/orvexa/orvex/engines/",
    "com/orvexa/orvex/manips/",
    "com/orvexa/orvex/VRMLnodes/",
    "com/orvexa/ldm/fields/",
    "com/orvexa/orvex/shader/fields/",
};
constexpr size_t kSearchPathLength = sizeof(kSearchPath) / sizeof(kSearchPath[0]);
static_assert(kSearchPathLength == 18, "the search path has 18 packages");

std::atomic<long> s_searchCount{0};

// Simple name -> full slash-separated class name; only found names are kept,
// so the expensive search with its exceptions runs once per toolkit type.
// Created on first use and never destroyed (callbacks may run during exit).
struct ClassNameCache {
  SbThreadRWMutex lock;
  std::map<SbString, SbString> names;
};

ClassNameCache& cache() {
  static auto* instance = new ClassNameCache();
  return *instance;
}

// ObjectManager.getManagedObjectForInternal(Class, long), resolved on first
// use and kept: it serves every object handed to Java, so it is not looked up
// per call. The binding cannot work without it (FatalError).
struct ManagedObjectLookup {
  jclass objectManager;
  jmethodID getManagedObjectFor;
};

const ManagedObjectLookup& managedObjectLookup(JNIEnv* env) {
  static const ManagedObjectLookup lookup = [env] {
    jclass local = env->FindClass("com/orvexa/internal/ObjectManager");
    if (local == nullptr) env->FatalError("Unable to resolve class com.orvexa.internal.ObjectManager");
    jmethodID method = env->GetStaticMethodID(local, "getManagedObjectForInternal",
                                              "(Ljava/lang/Class;J)Lcom/orvexa/orvex/Orvex;");
    if (method == nullptr) {
      env->FatalError("Unable to resolve method com.orvexa.internal.ObjectManager.getManagedObjectFor()");
    }
    auto global = static_cast<jclass>(env->NewGlobalRef(local));
    env->DeleteLocalRef(local);
    return ManagedObjectLookup{global, method};
  }();
  return lookup;
}

bool startsWith(const std::string& s, const char* prefix) { return s.compare(0, std::strlen(prefix), prefix) == 0; }

// Steps 4 to 7 for one toolkit type: the full class name, or empty.
SbString findJavaClassName(JNIEnv* env, const SbString& simpleName) {
  ClassNameCache& c = cache();
  {
    SbThreadAutoReadLock read(&c.lock);
    auto it = c.names.find(simpleName);
    if (it != c.names.end()) return it->second;
  }
  s_searchCount.fetch_add(1, std::memory_order_relaxed);
  for (size_t i = 0; i < kSearchPathLength; ++i) {
    const std::string candidate = std::string(kSearchPath[i]) + simpleName.getString();
    jclass cls = env->FindClass(candidate.c_str());
    if (!env->ExceptionCheck()) {
      env->DeleteLocalRef(cls);
      SbString found(candidate);
      SbThreadAutoWriteLock write(&c.lock);
      c.names[simpleName] = found;
      return found;
    }
    if (i + 1 < kSearchPathLength) {
      env->ExceptionClear();
    } else {
      env->ExceptionDescribe();  // found nowhere: show why, once per attempt
    }
  }
  return SbString();
}

}  // namespace

namespace orvexjava {

SbString deriveJavaSimpleName(const char* toolkitTypeName) {
  std::string name = toolkitTypeName;
  name.reserve(name.size() + 3);
  if (!startsWith(name, "So") && !startsWith(name, "Po")) name.insert(0, "So");
  // Sized integer types are carried by the unsized Java classes.
  size_t at = name.find("Int32");
  if (at != std::string::npos) name.resize(at + 3);
  at = name.find("i32");
  if (at != std::string::npos) name.resize(at + 1);
  // Unsigned fields are carried by the signed Java classes.
  if ((startsWith(name, "SoSFU") || startsWith(name, "SoMFU")) && name.size() > 5 && name[5] >= 'A' &&
      name[5] <= 'Z') {
    name.erase(4, 1);
  }
  return SbString(name);
}

long getJavaClassSearchCount() { return s_searchCount.load(std::memory_order_relaxed); }

}  // namespace orvexjava

jobject MakeJavaObj(JNIEnv* env, const char* javaClassName, const SoTypedObject* object, bool flag1, bool flag2) {
  if (javaClassName == nullptr || object == nullptr || *javaClassName == '\0') {
    PRINTDBG("DEBUG: NTV->MakeJavaObj called for null class !!!!!!!\n");
    return nullptr;
  }
  const jlong address = reinterpret_cast<jlong>(object);
  const bool derived = std::strstr(javaClassName, "com/orvexa/orvex/fields") != nullptr ||
                       std::strstr(javaClassName, "com/orvexa/orvex/actions") != nullptr ||
                       std::strstr(javaClassName, "com/orvexa/orvex/events") != nullptr ||
                       std::strstr(javaClassName, "com/orvexa/orvex/details") != nullptr;
  if (!derived) return makeManagedJavaObject(env, javaClassName, address, flag1, flag2);

  const SbName typeName = object->getTypeId().getName();
  const SbString simpleName = orvexjava::deriveJavaSimpleName(typeName.getString());
  const SbString className = findJavaClassName(env, simpleName);
  if (className.isEmpty()) return nullptr;
  return makeManagedJavaObject(env, className.getString(), address, flag1, flag2);
}

jobject makeManagedJavaObject(JNIEnv* env, const char* javaClassName, jlong address, bool, bool) {
  jclass cls = env->FindClass(javaClassName);
  if (env->ExceptionCheck()) {
    const SbString text =
        SbString::sprintf("DEBUG: NTV->MakeJavaObject ExceptionOccurred: <%s>  is not a valid class name\n", javaClassName);
    PRINTDBG(text.getString());
    env->ExceptionClear();
    return nullptr;
  }
  const ManagedObjectLookup& lookup = managedObjectLookup(env);
  jobject result = env->CallStaticObjectMethod(lookup.objectManager, lookup.getManagedObjectFor, cls, address);
  env->DeleteLocalRef(cls);
  return result;
}

jobject SoBaseJava(JNIEnv* env, const SoBase* object) {
  if (object == nullptr) {
    PRINTDBG("DEBUG: NTV->SoBaseJava called for null class !!!!!!!\n");
    return nullptr;
  }
  jclass soBase = env->FindClass("com/orvexa/orvex/misc/SoBase");
  if (soBase == nullptr) return nullptr;  // NoClassDefFoundError pending
  jmethodID newInstance =
      env->GetStaticMethodID(soBase, "newInstance", "(JLjava/lang/String;)Lcom/orvexa/orvex/misc/SoBase;");
  jobject result = nullptr;
  if (newInstance != nullptr) {
    jstring typeName = StringHelper::fromNativeString(env, object->getTypeId().getName());
    result = env->CallStaticObjectMethod(soBase, newInstance, reinterpret_cast<jlong>(object), typeName);
    env->DeleteLocalRef(typeName);
  }
  env->DeleteLocalRef(soBase);
  return result;
}
