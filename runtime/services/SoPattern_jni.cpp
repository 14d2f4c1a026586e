// The pattern names a pattern file defines, for com.orvexa.orvex.nodes.SoPattern.

#include <jni.h>

#include <Orvex/SbString.h>
#include <Orvex/nodes/SoPattern.h>

#include <memory>

#include "StringHelper.h"

namespace {

// The UTF-8 characters of a Java string (null for a null string), given back
// when the call is done.
class FileNameChars {
 public:
  FileNameChars(JNIEnv* env, jstring text) : m_env(env), m_text(text) {
    if (text != nullptr) m_chars = env->GetStringUTFChars(text, nullptr);
  }
  ~FileNameChars() {
    if (m_chars != nullptr) m_env->ReleaseStringUTFChars(m_text, m_chars);
  }
  FileNameChars(const FileNameChars&) = delete;
  FileNameChars& operator=(const FileNameChars&) = delete;
  const char* get() const { return m_chars; }

 private:
  JNIEnv* m_env;
  jstring m_text;
  const char* m_chars = nullptr;
};

}  // namespace

extern "C" {

// Every pattern name of the file, as a String[]: empty when the file defines
// none or cannot be read (the reader reports why through the error handler).
// A null file name is the empty name, which names no file.
JNIEXPORT jobjectArray JNICALL Java_com_orvexa_orvex_nodes_SoPattern_getPatternNames(JNIEnv* env, jclass,
                                                                                   jstring fileName) {
  const FileNameChars chars(env, fileName);
  int count = 0;
  SbString* namesTmp = nullptr;
  SoPattern::getPatternNames(count, namesTmp, SbString(chars.get() != nullptr ? chars.get() : ""));
  // The toolkit's array is ours to delete, whatever happens below.
  const std::unique_ptr<SbString[]> names(namesTmp);
  jclass stringClass = env->FindClass("java/lang/String");
  if (stringClass == nullptr) return nullptr;
  jobjectArray result = env->NewObjectArray(count > 0 ? count : 0, stringClass, nullptr);
  env->DeleteLocalRef(stringClass);
  if (result == nullptr) return nullptr;
  for (int i = 0; i < count; ++i) {
    jstring name = StringHelper::fromNativeString(env, names[i]);
    env->SetObjectArrayElement(result, i, name);
    env->DeleteLocalRef(name);
  }
  return result;
}

}  // extern "C"
