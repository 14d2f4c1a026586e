#pragma once
// A toolkit type named by a Java string, for registrations that take one.

#include <jni.h>

#include <string>

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
    const std::string message = std::string("\"") + (text == nullptr ? "" : text) + "\" is not a toolkit type name";
    ExceptionHelper::throwIllegalArgException(env, message.c_str());
  }
  return type;
}

}  // namespace orvexjava
