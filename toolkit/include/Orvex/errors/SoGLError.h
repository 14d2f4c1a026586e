#pragma once
#include <Orvex/errors/SoError.h>

// OpenGL errors, reported with the GL error code and the method that saw it.
class SoGLError : public SoError {
 public:
  static void setHandlerCallback(SoErrorCB* cb, void* data);
  static SoErrorCB* getHandlerCallback();
  static void* getHandlerCallbackData();

  static SoType getClassTypeId();
  SoType getTypeId() const override;
  int getErrorCode() const { return m_code; }

  static void post(int glErrorCode, const char* methodName, const char* format, ...)
#if defined(__GNUC__)
      __attribute__((format(printf, 3, 4)))
#endif
      ;

  static void initClass();

 protected:
  SoErrorCB* getHandler(void*& data) const override;

 private:
  int m_code = 0;
};
