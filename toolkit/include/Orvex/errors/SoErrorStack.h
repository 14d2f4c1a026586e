#pragma once
#include <Orvex/errors/SoError.h>

// Reports the calling thread's stack of native frames.
class SoErrorStack : public SoError {
 public:
  static void setHandlerCallback(SoErrorCB* cb, void* data);
  static SoErrorCB* getHandlerCallback();
  static void* getHandlerCallbackData();

  static SoType getClassTypeId();
  SoType getTypeId() const override;

  // Captures the current stack and posts it as an error.
  static void post();
  // The current stack as text, one frame a line.
  static SbString getStack();

  static void initClass();

 protected:
  SoErrorCB* getHandler(void*& data) const override;
};
