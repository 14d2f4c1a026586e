// Natives of com.orvexa.testsupport.RuntimeProbe: each drives one helper of
// the bridge the way generated entry points and callbacks do, so that the
// JUnit suites can check the results from Java.

#include <jni.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include <ImageLux/SoImageLux.h>
#include <Orvex/SbName.h>
#include <Orvex/SbString.h>
#include <Orvex/SoType.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/errors/SoError.h>
#include <Orvex/errors/SoGLError.h>
#include <Orvex/errors/SoMemoryError.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/SoDB.h>
#include <Orvex/fields/SoSFTime.h>
#include <Orvex/sensors/SoTimerSensor.h>

#include "ArrayFunctions.h"
#include "ArrayHelper.h"
#include "ExceptionHelper.h"
#include "FileHelper.h"
#include "JNIEnvHelper.h"
#include "MakeJavaObj.h"
#include "NativeDebug.h"
#include "ObjectHelper.h"
#include "ProbeObjects.h"
#include "StringArrayHelper.h"
#include "StringHelper.h"

#define PROBE(ret, name) extern "C" JNIEXPORT ret JNICALL Java_com_orvexa_testsupport_RuntimeProbe_##name

namespace {

void throwState(JNIEnv* env, const char* message) {
  jclass cls = env->FindClass("java/lang/IllegalStateException");
  if (cls != nullptr) env->ThrowNew(cls, message);
}

int s_lastEnumValue = 0;

}  // namespace

// ---- strings ---------------------------------------------------------------

PROBE(jstring, unicodeRoundTrip)(JNIEnv* env, jclass, jstring s) {
  StringHelper helper(env, s);
  const SbWChar* wide = helper.toUnicodeString();
  if (wide == nullptr) return nullptr;
  return StringHelper::fromNativeString(env, SbString(wide));
}

PROBE(jbyteArray, utfView)(JNIEnv* env, jclass, jstring s) {
  StringHelper helper(env, s);
  const char* utf = helper.toUTFString();
  if (utf == nullptr) return nullptr;
  const auto length = static_cast<jsize>(std::strlen(utf));
  jbyteArray bytes = env->NewByteArray(length);
  env->SetByteArrayRegion(bytes, 0, length, reinterpret_cast<const jbyte*>(utf));
  return bytes;
}

PROBE(jint, wideViewLength)(JNIEnv* env, jclass, jstring s) {
  StringHelper helper(env, s);
  const SbWChar* wide = helper.toUnicodeString();
  if (wide == nullptr) return -1;
  jint length = 0;
  while (wide[length] != 0) ++length;
  return length;
}

PROBE(jboolean, viewsAreCached)(JNIEnv* env, jclass, jstring s) {
  StringHelper helper(env, s);
  const char* utf = helper.toUTFString();
  const SbWChar* wide = helper.toUnicodeString();
  return utf == helper.toUTFString() && wide == helper.toUnicodeString();
}

PROBE(jobjectArray, sbStringArrayRoundTrip)(JNIEnv* env, jclass, jobjectArray array) {
  StringArrayHelper helper(env, array);
  const SbString* strings = helper.toSbStringArray();
  if (strings == nullptr) return nullptr;
  if (strings != helper.toSbStringArray()) throwState(env, "SbString view converted twice");
  const jsize count = env->GetArrayLength(array);
  jobjectArray result = env->NewObjectArray(count, env->FindClass("java/lang/String"), nullptr);
  for (jsize i = 0; i < count; ++i) {
    jstring element = StringHelper::fromNativeString(env, strings[i]);
    env->SetObjectArrayElement(result, i, element);
    env->DeleteLocalRef(element);
  }
  return result;
}

PROBE(jobjectArray, utfStringArrayRoundTrip)(JNIEnv* env, jclass, jobjectArray array) {
  StringArrayHelper helper(env, array);
  const char** strings = helper.toUTFStringArray();
  if (strings == nullptr) return nullptr;
  if (strings != helper.toUTFStringArray()) throwState(env, "UTF-8 view converted twice");
  const jsize count = env->GetArrayLength(array);
  jobjectArray result = env->NewObjectArray(count, env->FindClass("java/lang/String"), nullptr);
  for (jsize i = 0; i < count; ++i) {
    if (strings[i] == nullptr) continue;
    jstring element = StringHelper::fromNativeString(env, strings[i]);
    env->SetObjectArrayElement(result, i, element);
    env->DeleteLocalRef(element);
  }
  return result;
}

PROBE(jobjectArray, fromNativeStringOverloads)(JNIEnv* env, jclass, jstring s) {
  StringHelper helper(env, s);
  const char* utf = helper.toUTFString();
  jstring made[4] = {
      StringHelper::fromNativeString(env, utf),
      StringHelper::fromNativeString(env, std::string(utf)),
      StringHelper::fromNativeString(env, SbName(utf)),
      StringHelper::fromNativeString(env, SbString(helper.toUnicodeString())),
  };
  jobjectArray result = env->NewObjectArray(4, env->FindClass("java/lang/String"), nullptr);
  for (jsize i = 0; i < 4; ++i) env->SetObjectArrayElement(result, i, made[i]);
  return result;
}

PROBE(jboolean, writeThroughFileHelper)(JNIEnv* env, jclass, jstring path, jstring text) {
  StringHelper textHelper(env, text);
  FileHelper file(env, path);
  if (file.open(nullptr) != nullptr) return false;
  FILE* first = file.open("w+");
  if (first == nullptr || file.open("w+") != first) return false;  // same mode: same stream
  std::fputs(textHelper.toUTFString(), first);
  FILE* appending = file.open("a");  // another mode: the first stream is closed
  if (appending == nullptr) return false;
  std::fputs("!", appending);
  return true;  // the destructor closes the stream
}

// ---- arrays ----------------------------------------------------------------

#define FILL_PROBE(Name, JArray, JValue)                                                       \
  PROBE(jboolean, Name)(JNIEnv * env, jclass, JArray array, jint mode, JValue value) {         \
    ArrayHelper helper(env);                                                                   \
    auto* elements = helper.toNativeArray(array, static_cast<ArrayHelper::AccessMode>(mode)); \
    if (elements == nullptr) return false;                                                     \
    const jsize count = env->GetArrayLength(array);                                            \
    for (jsize i = 0; i < count; ++i) elements[i] = value;                                     \
    return true;                                                                               \
  }

FILL_PROBE(fillFloats, jfloatArray, jfloat)
FILL_PROBE(fillDoubles, jdoubleArray, jdouble)
FILL_PROBE(fillLongs, jlongArray, jlong)
FILL_PROBE(fillInts, jintArray, jint)
FILL_PROBE(fillShorts, jshortArray, jshort)
FILL_PROBE(fillBytes, jbyteArray, jbyte)

PROBE(jlong, unsignedIntAt)(JNIEnv* env, jclass, jintArray array, jint index) {
  ArrayHelper helper(env);
  return static_cast<jlong>(helper.toUnsignedNativeArray(array, ArrayHelper::READ_ONLY)[index]);
}

PROBE(jint, unsignedShortAt)(JNIEnv* env, jclass, jshortArray array, jint index) {
  ArrayHelper helper(env);
  return static_cast<jint>(helper.toUnsignedNativeArray(array, ArrayHelper::READ_ONLY)[index]);
}

PROBE(jint, unsignedByteAt)(JNIEnv* env, jclass, jbyteArray array, jint index) {
  ArrayHelper helper(env);
  return static_cast<jint>(helper.toUnsignedNativeArray(array, ArrayHelper::READ_ONLY)[index]);
}

PROBE(jboolean, sameViewTwice)(JNIEnv* env, jclass, jintArray array, jint mode) {
  ArrayHelper helper(env);
  const auto m = static_cast<ArrayHelper::AccessMode>(mode);
  int* first = helper.toNativeArray(array, m);
  return first != nullptr && helper.toNativeArray(array, m) == first;
}

// Re-borrowing under another mode releases the first borrow under its own
// mode: a READ_ONLY write is dropped, the READ_WRITE one that follows is kept.
PROBE(void, writeUnderTwoModes)(JNIEnv* env, jclass, jintArray array, jint firstValue, jint secondValue) {
  ArrayHelper helper(env);
  helper.toNativeArray(array, ArrayHelper::READ_ONLY)[0] = firstValue;
  helper.toNativeArray(array, ArrayHelper::READ_WRITE)[1] = secondValue;
}

PROBE(jboolean, secondArrayRefused)(JNIEnv* env, jclass, jintArray first, jintArray second) {
  ArrayHelper helper(env);
  return helper.toNativeArray(first, ArrayHelper::READ_WRITE) != nullptr &&
         helper.toNativeArray(second, ArrayHelper::READ_WRITE) == nullptr &&
         helper.toNativeArray(first, ArrayHelper::READ_WRITE) != nullptr;
}

PROBE(jintArray, booleanView)(JNIEnv* env, jclass, jbooleanArray array, jint mode, jintArray replacement) {
  ArrayHelper helper(env);
  int* view = helper.toNativeArray(array, static_cast<ArrayHelper::AccessMode>(mode));
  const jsize count = env->GetArrayLength(array);
  jintArray before = env->NewIntArray(count);
  env->SetIntArrayRegion(before, 0, count, view);
  env->GetIntArrayRegion(replacement, 0, count, view);  // what the native code "wrote"
  return before;
}

PROBE(jobject, fromNativeArray)(JNIEnv* env, jclass, jint kind, jint count) {
  const auto n = static_cast<size_t>(count);
  switch (kind) {
    case 0: {
      std::vector<float> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = 1.5f * static_cast<float>(i);
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    case 1: {
      std::vector<double> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = 0.25 * static_cast<double>(i);
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    case 2: {
      std::vector<long long> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = i == 0 ? -1LL : (1LL << 40) + static_cast<long long>(i);
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    case 3: {
      std::vector<unsigned long> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = i == 0 ? ~0UL : i;
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    case 4: {
      std::vector<int> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = -static_cast<int>(i);
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    case 5: {
      std::vector<unsigned int> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = i == 0 ? 0xFFFFFFFFu : static_cast<unsigned int>(i);
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    case 6: {
      std::vector<short> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = static_cast<short>(-static_cast<int>(i));
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    case 7: {
      std::vector<unsigned short> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = i == 0 ? 65535 : static_cast<unsigned short>(i);
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    case 8: {
      std::vector<unsigned char> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = i == 0 ? 255 : static_cast<unsigned char>(i);
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    default:
      throwState(env, "unknown kind");
      return nullptr;
  }
}

PROBE(jboolean, fromNativeArrayOfNullDataIsNull)(JNIEnv* env, jclass) {
  return ArrayHelper::fromNativeArray(env, static_cast<const float*>(nullptr), 3) == nullptr &&
         ArrayHelper::fromNativeArray(env, static_cast<const int*>(nullptr), 3) == nullptr &&
         ArrayHelper::fromNativeArray(env, static_cast<const unsigned char*>(nullptr), 3) == nullptr;
}

PROBE(jintArray, copyInts)(JNIEnv* env, jclass, jintArray array) {
  int* copy = getIntArrayFunc(env, array);
  jintArray result = getJIntArrayFunc(env, array == nullptr ? 0 : env->GetArrayLength(array), copy);
  delete[] copy;
  return result;
}

PROBE(jshortArray, copyShorts)(JNIEnv* env, jclass, jshortArray array) {
  short* copy = getShortArrayFunc(env, array);
  jshortArray result = getJShortArrayFunc(env, array == nullptr ? 0 : env->GetArrayLength(array), copy);
  delete[] copy;
  return result;
}

PROBE(jfloatArray, copyFloats)(JNIEnv* env, jclass, jfloatArray array) {
  float* copy = getFloatArrayFunc(env, array);
  jfloatArray result = getJFloatArrayFunc(env, array == nullptr ? 0 : env->GetArrayLength(array), copy);
  delete[] copy;
  return result;
}

PROBE(jlongArray, copyLongs)(JNIEnv* env, jclass, jlongArray array) {
  OrxLong32* copy = getLongArrayFunc(env, array);
  jlongArray result = getJLongArrayFunc(env, array == nullptr ? 0 : env->GetArrayLength(array), copy);
  delete[] copy;
  return result;
}

PROBE(jintArray, truncatedLongs)(JNIEnv* env, jclass, jlongArray array) {
  OrxLong32* copy = getLongArrayFunc(env, array);
  jintArray result = env->NewIntArray(env->GetArrayLength(array));
  env->SetIntArrayRegion(result, 0, env->GetArrayLength(array), reinterpret_cast<const jint*>(copy));
  delete[] copy;
  return result;
}

PROBE(jlongArray, widenInts)(JNIEnv* env, jclass, jintArray values) {
  const jsize count = env->GetArrayLength(values);
  std::vector<OrxLong32> data(static_cast<size_t>(count) + 1);
  env->GetIntArrayRegion(values, 0, count, reinterpret_cast<jint*>(data.data()));
  return getJLongArrayFunc(env, count, data.data());
}

PROBE(jboolean, emptyCopiesAreEmptyArrays)(JNIEnv* env, jclass) {
  const int i = 1;
  const short s = 1;
  const OrxLong32 l = 1;
  const float f = 1;
  jarray arrays[] = {getJIntArrayFunc(env, 0, &i), getJShortArrayFunc(env, 0, &s), getJLongArrayFunc(env, 0, &l),
                     getJFloatArrayFunc(env, 0, &f)};
  for (jarray a : arrays) {
    if (a == nullptr || env->GetArrayLength(a) != 0) return false;
  }
  return getJIntArrayFunc(env, 2, nullptr) == nullptr && getJLongArrayFunc(env, 2, nullptr) == nullptr &&
         getJFloatArrayFunc(env, 2, nullptr) == nullptr && getIntArrayFunc(env, nullptr) == nullptr &&
         getLongArrayFunc(env, nullptr) == nullptr;
}

// ---- exceptions --------------------------------------------------------------

PROBE(void, throwIllegalArgument)(JNIEnv* env, jclass, jstring message, jboolean withPending) {
  StringHelper text(env, message);
  const std::string copy = text.toUTFString();  // converted before anything is pending
  if (withPending) throwState(env, "the pending exception");
  ExceptionHelper::throwIllegalArgException(env, copy.c_str());
}

PROBE(void, throwIllegalAccess)(JNIEnv* env, jclass, jstring message, jboolean withPending) {
  StringHelper text(env, message);
  const std::string copy = text.toUTFString();
  if (withPending) throwState(env, "the pending exception");
  ExceptionHelper::throwIllegalAccessException(env, copy.c_str());
}

PROBE(void, throwIllegalAccessOnCurrentThread)(JNIEnv* env, jclass, jstring message) {
  StringHelper text(env, message);
  ExceptionHelper::throwIllegalAccessException(text.toUTFString());
}

// ---- environment and threads -------------------------------------------------

PROBE(jboolean, envOfJavaThreadIsCallers)(JNIEnv* env, jclass) { return JNIEnvHelper::getEnv() == env; }

// Runs `runnable` `times` times on one fresh native thread, each time with
// the environment that JNIEnvHelper gives; true when it was always the same.
PROBE(jboolean, runOnNativeThread)(JNIEnv* env, jclass, jobject runnable, jint times) {
  jobject target = env->NewGlobalRef(runnable);
  bool sameEnv = true;
  std::thread worker([&] {
    JNIEnv* first = nullptr;
    for (jint i = 0; i < times; ++i) {
      JNIEnv* threadEnv = JNIEnvHelper::getEnv();
      if (threadEnv == nullptr || (first != nullptr && threadEnv != first)) sameEnv = false;
      if (threadEnv == nullptr) return;
      if (first == nullptr) first = threadEnv;
      jclass cls = threadEnv->GetObjectClass(target);
      jmethodID run = threadEnv->GetMethodID(cls, "run", "()V");
      threadEnv->CallVoidMethod(target, run);
      if (threadEnv->ExceptionCheck()) {
        threadEnv->ExceptionDescribe();
        sameEnv = false;
      }
      threadEnv->DeleteLocalRef(cls);
    }
  });
  worker.join();
  env->DeleteGlobalRef(target);
  return sameEnv;
}

// ---- toolkit errors ----------------------------------------------------------

namespace {
std::string utf(JNIEnv* env, jstring s) {
  StringHelper helper(env, s);
  const char* text = helper.toUTFString();
  return text == nullptr ? std::string() : std::string(text);
}

template <typename Post>
void onNativeThread(Post post) {
  std::thread worker(post);
  worker.join();
}
}  // namespace

PROBE(void, postReadErrorOnNativeThread)(JNIEnv* env, jclass, jstring text) {
  const std::string message = utf(env, text);
  onNativeThread([&] { SoReadError::postAt("probe.ovx", 7, "%s", message.c_str()); });
}

PROBE(void, postDebugErrorOnNativeThread)(JNIEnv* env, jclass, jstring text) {
  const std::string message = utf(env, text);
  onNativeThread([&] { SoDebugError::post("RuntimeProbe", "%s", message.c_str()); });
}

PROBE(void, postReadError)(JNIEnv* env, jclass, jstring text) {
  SoReadError::postAt("probe.ovx", 3, "%s", utf(env, text).c_str());
}

PROBE(void, postGLError)(JNIEnv* env, jclass, jstring text) {
  SoGLError::post(0x0502, "RuntimeProbe", "%s", utf(env, text).c_str());
}

PROBE(void, postMemoryError)(JNIEnv* env, jclass, jstring text) { SoMemoryError::post(utf(env, text).c_str()); }

PROBE(void, postPlainError)(JNIEnv* env, jclass, jstring text) { SoError::post("%s", utf(env, text).c_str()); }

PROBE(void, postDebugError)(JNIEnv* env, jclass, jstring text) {
  SoDebugError::post("RuntimeProbe", "%s", utf(env, text).c_str());
}

// ---- start-up ------------------------------------------------------------------

PROBE(jstring, typeNameFromName)(JNIEnv* env, jclass, jstring name) {
  const SoType type = SoType::fromName(SbName(utf(env, name).c_str()));
  if (env->ExceptionCheck()) return nullptr;
  return type.isBad() ? nullptr : StringHelper::fromNativeString(env, type.getName());
}

PROBE(jstring, sfTimeTypeName)(JNIEnv* env, jclass) {
  return StringHelper::fromNativeString(env, SoSFTime::getClassTypeId().getName());
}

PROBE(jboolean, imageLuxInitialized)(JNIEnv*, jclass) { return SoImageLux::isInitialized(); }

PROBE(jint, nativeDebugFlag)(JNIEnv*, jclass) { return getNativeDebugFlag(); }

PROBE(jstring, runInitialize)(JNIEnv* env, jclass, jobject object) {
  initialize(env, object);
  jthrowable pending = env->ExceptionOccurred();
  if (pending == nullptr) return env->NewStringUTF("");
  env->ExceptionClear();
  jclass cls = env->GetObjectClass(pending);
  jclass classClass = env->FindClass("java/lang/Class");
  jmethodID getName = env->GetMethodID(classClass, "getName", "()Ljava/lang/String;");
  return static_cast<jstring>(env->CallObjectMethod(cls, getName));
}

// ---- object identity -------------------------------------------------------------

PROBE(jstring, deriveJavaSimpleName)(JNIEnv* env, jclass, jstring typeName) {
  return StringHelper::fromNativeString(env, orvexjava::deriveJavaSimpleName(utf(env, typeName).c_str()));
}

PROBE(jlong, javaClassSearchCount)(JNIEnv*, jclass) { return orvexjava::getJavaClassSearchCount(); }

PROBE(jlong, typedProbeAddress)(JNIEnv* env, jclass, jstring typeName) {
  return reinterpret_cast<jlong>(probe::typedProbe(utf(env, typeName)));
}

PROBE(jobject, makeJavaObj)(JNIEnv* env, jclass, jstring javaClassName, jstring toolkitTypeName) {
  StringHelper className(env, javaClassName);
  const SoTypedObject* object =
      toolkitTypeName == nullptr ? nullptr : probe::typedProbe(utf(env, toolkitTypeName));
  return MakeJavaObj(env, className.toUTFString(), object, false, false);
}

PROBE(jlong, newProbeNode)(JNIEnv*, jclass) { return reinterpret_cast<jlong>(new probe::ProbeNode()); }

PROBE(jint, probeNodesAlive)(JNIEnv*, jclass) { return probe::ProbeNode::alive(); }

PROBE(jobject, soBaseJava)(JNIEnv* env, jclass, jlong address) {
  return SoBaseJava(env, reinterpret_cast<SoBase*>(address));
}

PROBE(jobject, managedObject)(JNIEnv* env, jclass, jstring className, jlong address) {
  return ObjectHelper::getManagedObject(env, utf(env, className).c_str(), address);
}

PROBE(jobject, newInstanceOf)(JNIEnv* env, jclass, jstring className) {
  return ObjectHelper::getManagedObject(env, utf(env, className).c_str());
}

PROBE(jlong, dynamicInstance)(JNIEnv* env, jclass, jstring typeName) {
  return reinterpret_cast<jlong>(ObjectHelper::getManagedObject(utf(env, typeName).c_str()));
}

PROBE(jobject, enumOf)(JNIEnv* env, jclass, jstring enumClassName, jint value) {
  return ObjectHelper::getEnum(env, utf(env, enumClassName).c_str(), value);
}

PROBE(jint, enumValueOf)(JNIEnv* env, jclass, jobject constant) {
  s_lastEnumValue = ObjectHelper::getEnumValue(env, constant);
  return s_lastEnumValue;
}

PROBE(jint, lastEnumValueResult)(JNIEnv*, jclass) { return s_lastEnumValue; }

// ---- timer queue ------------------------------------------------------------------

namespace {
std::atomic<int> s_timerFires{0};
SoTimerSensor* s_timer = nullptr;  // lives for the process, like the toolkit's own sensors
}  // namespace

PROBE(void, startProbeTimer)(JNIEnv*, jclass) {
  if (s_timer == nullptr) s_timer = new SoTimerSensor([](void*, SoSensor*) { s_timerFires.fetch_add(1); }, nullptr);
  s_timer->setInterval(SbTime(0.005));
  s_timer->schedule();
}

PROBE(void, stopProbeTimer)(JNIEnv*, jclass) {
  if (s_timer != nullptr) s_timer->unschedule();
}

PROBE(jint, probeTimerFires)(JNIEnv*, jclass) { return s_timerFires.load(); }

PROBE(jboolean, realTimeSensorEnabled)(JNIEnv*, jclass) { return SoDB::isRealTimeSensorEnabled(); }

PROBE(jdouble, realTimeFieldSeconds)(JNIEnv*, jclass) {
  return static_cast<SoSFTime*>(SoDB::getGlobalField("realTime"))->getValue().getValue();
}
