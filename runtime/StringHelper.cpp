#include "StringHelper.h"

#include <Orvex/SbName.h>
#include <Orvex/SbString.h>

StringHelper::StringHelper(JNIEnv* env, jstring str) : m_env(env), m_str(str) {}

StringHelper::~StringHelper() {
  if (m_utfChars != nullptr) m_env->ReleaseStringUTFChars(m_str, m_utfChars);
  if (m_unicodeChars != nullptr) m_env->ReleaseStringChars(m_str, m_unicodeChars);
  delete[] m_wideCopy;
}

const char* StringHelper::toUTFString() {
  if (m_str == nullptr) return nullptr;
  if (m_utfChars == nullptr) m_utfChars = m_env->GetStringUTFChars(m_str, nullptr);
  return m_utfChars;
}

const SbWChar* StringHelper::toUnicodeString() {
  if (m_str == nullptr) return nullptr;
  if (m_wideCopy != nullptr) return m_wideCopy;
  if (m_unicodeChars == nullptr) m_unicodeChars = m_env->GetStringChars(m_str, nullptr);
  if (m_unicodeChars == nullptr) return nullptr;  // OutOfMemoryError pending
  const jsize length = m_env->GetStringLength(m_str);
  m_wideCopy = new SbWChar[static_cast<size_t>(length) + 1];
  // Unit by unit, so surrogate pairs pass through untouched.
  for (jsize i = 0; i < length; ++i) m_wideCopy[i] = static_cast<SbWChar>(m_unicodeChars[i]);
  m_wideCopy[length] = 0;
  return m_wideCopy;
}

jstring StringHelper::fromNativeString(JNIEnv* env, const SbString& str) {
  // The UTF-16 form first: it is cached, so the length is then read from it
  // instead of decoding the UTF-8 text a second time.
  const SbWChar* units = str.toUtf16();
  return env->NewString(reinterpret_cast<const jchar*>(units), str.getLength());
}

jstring StringHelper::fromNativeString(JNIEnv* env, const SbName& name) {
  return env->NewStringUTF(name.getString());
}

jstring StringHelper::fromNativeString(JNIEnv* env, const char* utf) { return env->NewStringUTF(utf); }

jstring StringHelper::fromNativeString(JNIEnv* env, const std::string& utf) {
  return env->NewStringUTF(utf.c_str());
}
