#pragma once
#include <Orvex/errors/SoError.h>

class SoInput;

// Errors found while reading scene files; the text names the file and line.
class SoReadError : public SoError {
 public:
  static void setHandlerCallback(SoErrorCB* cb, void* data);
  static SoErrorCB* getHandlerCallback();
  static void* getHandlerCallbackData();

  static SoType getClassTypeId();
  SoType getTypeId() const override;

  // Reports an error at the input's current file and line.
  static void post(const SoInput* in, const char* format, ...)
#if defined(__GNUC__)
      __attribute__((format(printf, 2, 3)))
#endif
      ;
  // Reports an error at an explicit location (fileName may be null).
  static void postAt(const char* fileName, int line, const char* format, ...)
#if defined(__GNUC__)
      __attribute__((format(printf, 3, 4)))
#endif
      ;

  static void initClass();

 protected:
  SoErrorCB* getHandler(void*& data) const override;
};
