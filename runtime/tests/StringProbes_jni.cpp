// Probes of the string helpers: StringHelper, StringArrayHelper, FileHelper.

#include <cstdio>
#include <cstring>
#include <string>

#include <Orvex/SbName.h>
#include <Orvex/SbString.h>

#include "FileHelper.h"
#include "RuntimeProbe.h"
#include "StringArrayHelper.h"
#include "StringHelper.h"

using probe::throwState;

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
