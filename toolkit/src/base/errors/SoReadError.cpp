#include <Orvex/errors/SoReadError.h>

#include "HandlerSlot.h"

namespace {
orvex::HandlerSlot s_handler;
SoType s_type;
}  // namespace

void SoReadError::setHandlerCallback(SoErrorCB* cb, void* data) { s_handler.set(cb, data); }
SoErrorCB* SoReadError::getHandlerCallback() { return s_handler.callback(); }
void* SoReadError::getHandlerCallbackData() { return s_handler.data(); }

SoType SoReadError::getClassTypeId() { return s_type; }
SoType SoReadError::getTypeId() const { return s_type; }

// The variant taking an SoInput is defined with the scene reader, which knows
// the input's file and line.

void SoReadError::postAt(const char* fileName, int line, const char* format, ...) {
  va_list args;
  va_start(args, format);
  SbString text = orvex::composeMessage("read error", nullptr, SbString::vsprintf(format, args));
  va_end(args);
  text += SbString::sprintf("\n    Occurred at line %d", line);
  if (fileName && *fileName) {
    text += " in ";
    text += fileName;
  }
  SoReadError error;
  error.setDebugString(text);
  error.handleError();
}

void SoReadError::initClass() {
  SoError::initClass();
  if (s_type.isBad()) s_type = SoType::createType(SoError::getClassTypeId(), "SoReadError");
}

SoErrorCB* SoReadError::getHandler(void*& data) const { return s_handler.get(data); }
