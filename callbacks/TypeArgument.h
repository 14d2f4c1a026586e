#pragma once
// A toolkit type named by a Java string, for registrations that take one.

#include <jni.h>

#include <Orvex/SbName.h>
#include <Orvex/SoType.h>

#include "ExceptionHelper.h"
#include "StringHelper.h"

namespace orvexjava {

// The type named `name`; the bad type, with an IllegalArgumentException
// thrown, when the toolkit knows no such type.
inline SoType typeNamed(JNIEnv* env, jstring name) {
  StringHelper nameStrHelper(env, name);
  const char* text = nameStrHelper.toUTFString();
  const SoType type = text == nullptr ? SoType::badType() : SoType::fromName(SbName(text));
  if (type.isBad() && !env->ExceptionCheck()) {
    ExceptionHelper::throwIllegalArgException(env, "not a toolkit type name");
  }
  return type;
}

}  // namespace orvexjava
