#include <Orvex/errors/SoGLError.h>

#include "HandlerSlot.h"

namespace {
orvex::HandlerSlot s_handler;
SoType s_type;
}  // namespace

void SoGLError::setHandlerCallback(SoErrorCB* cb, void* data) { s_handler.set(cb, data); }
SoErrorCB* SoGLError::getHandlerCallback() { return s_handler.callback(); }
void* SoGLError::getHandlerCallbackData() { return s_handler.data(); }

SoType SoGLError::getClassTypeId() { return s_type; }
SoType SoGLError::getTypeId() const { return s_type; }

void SoGLError::post(int glErrorCode, const char* methodName, const char* format, ...) {
  va_list args;
  va_start(args, format);
  const SbString message = SbString::vsprintf(format, args);
  va_end(args);
  SoGLError error;
  error.m_code = glErrorCode;
  error.setDebugString(
      orvex::composeMessage(SbString::sprintf("OpenGL error %d", glErrorCode).getString(), methodName, message));
  error.handleError();
}

void SoGLError::initClass() {
  SoError::initClass();
  if (s_type.isBad()) s_type = SoType::createType(SoError::getClassTypeId(), "SoGLError");
}

SoErrorCB* SoGLError::getHandler(void*& data) const { return s_handler.get(data); }
