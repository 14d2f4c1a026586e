#include <Orvex/errors/SoDebugError.h>

#include "HandlerSlot.h"

namespace {
orvex::HandlerSlot s_handler;
SoType s_type;

const char* kindOf(SoDebugError::Severities severity) {
  switch (severity) {
    case SoDebugError::WARNING: return "warning";
    case SoDebugError::INFO: return "info";
    default: return "error";
  }
}
}  // namespace

void SoDebugError::setHandlerCallback(SoErrorCB* cb, void* data) { s_handler.set(cb, data); }
SoErrorCB* SoDebugError::getHandlerCallback() { return s_handler.callback(); }
void* SoDebugError::getHandlerCallbackData() { return s_handler.data(); }

SoType SoDebugError::getClassTypeId() { return s_type; }
SoType SoDebugError::getTypeId() const { return s_type; }

void SoDebugError::postWithSeverity(Severities severity, const char* methodName, const char* format,
                                    va_list args) {
  SoDebugError error;
  error.m_severity = severity;
  error.setDebugString(orvex::composeMessage(kindOf(severity), methodName, SbString::vsprintf(format, args)));
  error.handleError();
}

void SoDebugError::post(const char* methodName, const char* format, ...) {
  va_list args;
  va_start(args, format);
  postWithSeverity(SERROR, methodName, format, args);
  va_end(args);
}

void SoDebugError::postWarning(const char* methodName, const char* format, ...) {
  va_list args;
  va_start(args, format);
  postWithSeverity(WARNING, methodName, format, args);
  va_end(args);
}

void SoDebugError::postInfo(const char* methodName, const char* format, ...) {
  va_list args;
  va_start(args, format);
  postWithSeverity(INFO, methodName, format, args);
  va_end(args);
}

void SoDebugError::initClass() {
  SoError::initClass();
  if (s_type.isBad()) s_type = SoType::createType(SoError::getClassTypeId(), "SoDebugError");
}

SoErrorCB* SoDebugError::getHandler(void*& data) const { return s_handler.get(data); }
