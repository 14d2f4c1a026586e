#include <Orvex/errors/SoError.h>

#include <Orvex/errors/SoDebugError.h>
#include <Orvex/errors/SoErrorStack.h>
#include <Orvex/errors/SoGLError.h>
#include <Orvex/errors/SoMemoryError.h>
#include <Orvex/errors/SoReadError.h>

#include <cstdio>
#include <cstring>

#include "HandlerSlot.h"

namespace {
orvex::HandlerSlot s_handler;
}

SoType SoError::s_classTypeId;

SbString orvex::composeMessage(const char* kind, const char* methodName, const SbString& message) {
  SbString text("Orvex ");
  text += kind;
  if (methodName && *methodName) {
    text += " in ";
    text += methodName;
    // Method names are given as "SoFoo::bar"; show them as calls.
    const size_t len = std::strlen(methodName);
    if (methodName[len - 1] != ')') text += "()";
  }
  text += ": ";
  text += message;
  return text;
}

SoError::SoError() = default;
SoError::~SoError() = default;

void SoError::setHandlerCallback(SoErrorCB* cb, void* data) { s_handler.set(cb, data); }
SoErrorCB* SoError::getHandlerCallback() { return s_handler.callback(); }
void* SoError::getHandlerCallbackData() { return s_handler.data(); }

SoType SoError::getClassTypeId() { return s_classTypeId; }
SoType SoError::getTypeId() const { return s_classTypeId; }

void SoError::post(const char* format, ...) {
  va_list args;
  va_start(args, format);
  const SbString message = SbString::vsprintf(format, args);
  va_end(args);
  SoError error;
  error.setDebugString(orvex::composeMessage("error", nullptr, message));
  error.handleError();
}

void SoError::initClass() {
  SoTypedObject::initClass();
  if (s_classTypeId.isBad())
    s_classTypeId = SoType::createType(SoTypedObject::getClassTypeId(), "SoError");
}

void SoError::initClasses() {
  initClass();
  SoDebugError::initClass();
  SoReadError::initClass();
  SoMemoryError::initClass();
  SoGLError::initClass();
  SoErrorStack::initClass();
}

void SoError::defaultHandlerCB(const SoError* error, void*) {
  // One call, so that lines posted by different threads do not interleave.
  std::fprintf(stderr, "%s\n", error->getDebugString().getString());
}

void SoError::handleError() {
  void* data = nullptr;
  SoErrorCB* cb = getHandler(data);
  if (cb) cb(this, data);
}

SoErrorCB* SoError::getHandler(void*& data) const { return s_handler.get(data); }
