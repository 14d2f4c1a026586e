#pragma once
// A stack view of a Java String[] as modified UTF-8 texts or as SbStrings.

#include <jni.h>

#include "OrvexJavaExport.h"

class SbString;
class StringHelper;

class ORVEXJAVA_API StringArrayHelper {
 public:
  StringArrayHelper(JNIEnv* env, jobjectArray array);
  // Gives back every borrowed element. Not to be copied once converted.
  virtual ~StringArrayHelper();

  // One modified UTF-8 text per element (null for a null element); no
  // terminating entry, the count is the Java array's length. Null for a
  // null array. Converted once.
  const char** toUTFStringArray();
  // One SbString per element, carrying full Unicode. Null for a null array.
  // Converted once.
  const SbString* toSbStringArray();

 private:
  JNIEnv* m_env;
  jobjectArray m_array;
  const char** m_utfStrings = nullptr;
  StringHelper** m_stringHelpers = nullptr;
  SbString* m_sbStrings = nullptr;
};
