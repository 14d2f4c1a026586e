#pragma once
// A stack view of one Java string as modified UTF-8 or as 16-bit characters,
// plus the conversions of toolkit strings into new Java strings.

#include <jni.h>

#include <string>

#include <Orvex/SbBase.h>

#include "OrvexJavaExport.h"

class SbName;
class SbString;

class ORVEXJAVA_API StringHelper {
 public:
  // Stores the arguments; nothing is converted until a view is asked for.
  StringHelper(JNIEnv* env, jstring str);
  // Gives back everything borrowed. A helper that has converted anything
  // must therefore not be copied: the copy would release the same buffers.
  virtual ~StringHelper();

  // The virtual machine's modified UTF-8 characters (an embedded NUL is the
  // two bytes 0xC0 0x80); null for a null string. Converted once.
  const char* toUTFString();
  // The UTF-16 code units as a NUL-terminated owned copy; null for a null
  // string. Converted once.
  const SbWChar* toUnicodeString();
  // The Java string this helper views.
  jstring getJavaString() const { return m_str; }

  // New local references to Java strings.
  static jstring fromNativeString(JNIEnv* env, const SbString& str);  // full Unicode
  static jstring fromNativeString(JNIEnv* env, const SbName& name);
  static jstring fromNativeString(JNIEnv* env, const char* utf);      // modified UTF-8
  static jstring fromNativeString(JNIEnv* env, const std::string& utf);

 private:
  JNIEnv* m_env;
  jstring m_str;
  const char* m_utfChars = nullptr;
  const jchar* m_unicodeChars = nullptr;
  SbWChar* m_wideCopy = nullptr;
};
