#pragma once
// The native debug trace and the Java-side initialisation hook shared by the
// binding libraries.

#include <jni.h>

#include "OrvexJavaExport.h"

// Writes `message` unchanged to standard output and flushes it when the
// native debug flag is set; does nothing otherwise. Messages carry their own
// trailing newline.
ORVEXJAVA_API void PRINTDBG(const char* message);

// The native debug flag: 0 when the library is loaded, set from Java through
// Orvex.setNativeDebug.
ORVEXJAVA_API int getNativeDebugFlag();
ORVEXJAVA_API void setNativeDebugFlag(int flag);

// Runs the Java object's own "initialize()V" method when its class has one.
// When it has none, the NoSuchMethodError raised by the lookup is left
// pending for the caller; nothing else is thrown.
ORVEXJAVA_API void initialize(JNIEnv* env, jobject object);
