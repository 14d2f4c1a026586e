// Paths by name and path equality for com.orvexa.orvex.SoPath.

#include <jni.h>

#include <Orvex/SbName.h>
#include <Orvex/SoPath.h>
#include <Orvex/SoPathList.h>

#include "MakeJavaObj.h"

namespace {

// The UTF-8 characters of a Java string, released only when the virtual
// machine made a copy for them.
class NameChars {
 public:
  NameChars(JNIEnv* env, jstring text) : m_env(env), m_text(text) {
    if (text != nullptr) m_chars = env->GetStringUTFChars(text, &m_isCopy);
  }
  ~NameChars() {
    if (m_chars != nullptr && m_isCopy == JNI_TRUE) m_env->ReleaseStringUTFChars(m_text, m_chars);
  }
  NameChars(const NameChars&) = delete;
  NameChars& operator=(const NameChars&) = delete;
  SbName name() const { return SbName(m_chars != nullptr ? m_chars : ""); }

 private:
  JNIEnv* m_env;
  jstring m_text;
  const char* m_chars = nullptr;
  jboolean m_isCopy = JNI_FALSE;
};

}  // namespace

extern "C" {

// The address of the path last named `name`, 0 for none.
JNIEXPORT jlong JNICALL Java_com_orvexa_orvex_SoPath_getByNameNativ(JNIEnv* env, jclass, jstring name) {
  const NameChars chars(env, name);
  return reinterpret_cast<jlong>(SoPath::getByName(chars.name()));
}

// Every path named `name` as a SoPath[] (empty, not null, for none). The Java
// objects are made while the local list still holds the paths, so a path
// that only the list referenced is already held by its Java wrapper when the
// list lets go of it.
JNIEXPORT jobjectArray JNICALL Java_com_orvexa_orvex_SoPath_getAllByNameImpl(JNIEnv* env, jclass, jstring name) {
  const NameChars chars(env, name);
  SoPathList paths;
  SoPath::getByName(chars.name(), paths);
  jclass pathClass = env->FindClass("com/orvexa/orvex/SoPath");
  if (pathClass == nullptr) return nullptr;
  jobjectArray result = env->NewObjectArray(paths.getLength(), pathClass, nullptr);
  env->DeleteLocalRef(pathClass);
  if (result == nullptr) return nullptr;
  for (int i = 0; i < paths.getLength(); ++i) {
    jobject path = SoBaseJava(env, paths.get(i));
    if (env->ExceptionCheck()) return nullptr;
    env->SetObjectArrayElement(result, i, path);
    env->DeleteLocalRef(path);
  }
  return result;
}

// Whether the two paths have the same head and the same child indices.
JNIEXPORT jboolean JNICALL Java_com_orvexa_orvex_SoPath_equalsNativ(JNIEnv*, jclass, jlong a, jlong b) {
  return *reinterpret_cast<const SoPath*>(a) == *reinterpret_cast<const SoPath*>(b) ? JNI_TRUE : JNI_FALSE;
}

}  // extern "C"
