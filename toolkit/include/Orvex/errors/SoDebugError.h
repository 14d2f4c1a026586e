#pragma once
#include <Orvex/errors/SoError.h>

// Programming errors, warnings and information, reported with the name of the
// method that detected them.
class SoDebugError : public SoError {
 public:
  enum Severities { SERROR = 0, WARNING = 1, INFO = 2 };

  static void setHandlerCallback(SoErrorCB* cb, void* data);
  static SoErrorCB* getHandlerCallback();
  static void* getHandlerCallbackData();

  static SoType getClassTypeId();
  SoType getTypeId() const override;
  Severities getSeverity() const { return m_severity; }

  static void post(const char* methodName, const char* format, ...)
#if defined(__GNUC__)
      __attribute__((format(printf, 2, 3)))
#endif
      ;
  static void postWarning(const char* methodName, const char* format, ...)
#if defined(__GNUC__)
      __attribute__((format(printf, 2, 3)))
#endif
      ;
  static void postInfo(const char* methodName, const char* format, ...)
#if defined(__GNUC__)
      __attribute__((format(printf, 2, 3)))
#endif
      ;

  static void initClass();

 protected:
  SoErrorCB* getHandler(void*& data) const override;

 private:
  static void postWithSeverity(Severities severity, const char* methodName, const char* format,
                               va_list args);
  Severities m_severity = SERROR;
};
