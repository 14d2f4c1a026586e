#include "StringArrayHelper.h"

#include <Orvex/SbString.h>

#include "StringHelper.h"

StringArrayHelper::StringArrayHelper(JNIEnv* env, jobjectArray array) : m_env(env), m_array(array) {}

StringArrayHelper::~StringArrayHelper() {
  if (m_utfStrings != nullptr) {
    // The elements are fetched again: no local reference is kept between calls.
    const jsize count = m_env->GetArrayLength(m_array);
    for (jsize i = 0; i < count; ++i) {
      auto element = static_cast<jstring>(m_env->GetObjectArrayElement(m_array, i));
      if (element != nullptr && m_utfStrings[i] != nullptr) {
        m_env->ReleaseStringUTFChars(element, m_utfStrings[i]);
      }
      m_env->DeleteLocalRef(element);
    }
    delete[] m_utfStrings;
  }
  if (m_sbStrings != nullptr) {
    delete[] m_sbStrings;
    const jsize count = m_env->GetArrayLength(m_array);
    for (jsize i = 0; i < count; ++i) {
      jstring kept = m_stringHelpers[i]->getJavaString();
      delete m_stringHelpers[i];
      if (kept != nullptr) m_env->DeleteGlobalRef(kept);
    }
    delete[] m_stringHelpers;
  }
}

const char** StringArrayHelper::toUTFStringArray() {
  if (m_array == nullptr) return nullptr;
  if (m_utfStrings != nullptr) return m_utfStrings;
  const jsize count = m_env->GetArrayLength(m_array);
  m_utfStrings = new const char*[static_cast<size_t>(count)]();
  for (jsize i = 0; i < count; ++i) {
    auto element = static_cast<jstring>(m_env->GetObjectArrayElement(m_array, i));
    if (element != nullptr) m_utfStrings[i] = m_env->GetStringUTFChars(element, nullptr);
    m_env->DeleteLocalRef(element);
  }
  return m_utfStrings;
}

const SbString* StringArrayHelper::toSbStringArray() {
  if (m_array == nullptr) return nullptr;
  if (m_sbStrings != nullptr) return m_sbStrings;
  const jsize count = m_env->GetArrayLength(m_array);
  m_sbStrings = new SbString[static_cast<size_t>(count)];
  m_stringHelpers = new StringHelper*[static_cast<size_t>(count)]();
  for (jsize i = 0; i < count; ++i) {
    auto element = static_cast<jstring>(m_env->GetObjectArrayElement(m_array, i));
    // The helper keeps the UTF-16 characters borrowed until the destructor,
    // so it views the element through a global reference that outlives the
    // local one deleted below (and the local-reference budget of the frame).
    auto kept = static_cast<jstring>(element != nullptr ? m_env->NewGlobalRef(element) : nullptr);
    m_stringHelpers[i] = new StringHelper(m_env, kept);
    m_sbStrings[i] = SbString(m_stringHelpers[i]->toUnicodeString());
    m_env->DeleteLocalRef(element);
  }
  return m_sbStrings;
}
