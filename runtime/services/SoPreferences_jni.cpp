// Preferences of com.orvexa.orvex.SoPreferences read and set by name. A
// preference set from Java is also made an environment variable of the
// process, so that code reading the environment directly (child processes,
// libraries configured through it) sees the same setting.

#include <jni.h>

#include <Orvex/SoPreferences.h>

#include <cstdlib>

#include "StringHelper.h"

extern "C" {

// The preference's value, or null when it is set neither by the program nor
// in the environment.
JNIEXPORT jstring JNICALL Java_com_orvexa_orvex_SoPreferences_getValueNativ(JNIEnv* env, jclass, jstring name) {
  StringHelper nameStrHelper(env, name);
  const char* value = SoPreferences::getValue(nameStrHelper.toUTFString());
  return value == nullptr ? nullptr : StringHelper::fromNativeString(env, value);
}

// Sets the preference (a null value removes it) and the environment variable
// of the same name. A name the environment refuses (empty, or holding '=')
// leaves the environment as it is.
JNIEXPORT void JNICALL Java_com_orvexa_orvex_SoPreferences_setValueNativ(JNIEnv* env, jclass, jstring name,
                                                                       jstring value) {
  StringHelper nameStrHelper(env, name);
  StringHelper valueStrHelper(env, value);
  const char* nameText = nameStrHelper.toUTFString();
  const char* valueText = valueStrHelper.toUTFString();
  if (valueText != nullptr)
    setenv(nameText, valueText, 1);
  else
    unsetenv(nameText);
  SoPreferences::setValue(nameText, valueText);
}

}  // extern "C"
