#pragma once
#include <Orvex/SbString.h>
#include <Orvex/SoTypedObject.h>

class SoError;
// An error handler: receives each posted error and the data registered with it.
typedef void SoErrorCB(const SoError* error, void* data);

// Base error class. Each error class has its own handler; posting an error
// builds its debug string and hands the error to the handler of its class
// (default: one readable line on standard error). Messages are printf formats.
class SoError : public SoTypedObject {
 public:
  SoError();
  ~SoError() override;

  static void setHandlerCallback(SoErrorCB* cb, void* data);
  static SoErrorCB* getHandlerCallback();
  static void* getHandlerCallbackData();

  // The complete text of the error as handlers and the default handler show it.
  const SbString& getDebugString() const { return m_debugString; }

  static SoType getClassTypeId();
  SoType getTypeId() const override;

  static void post(const char* format, ...)
#if defined(__GNUC__)
      __attribute__((format(printf, 1, 2)))
#endif
      ;

  static void initClass();
  static void initClasses();  // every error class of the toolkit base

  // The handler the toolkit installs by default: writes the debug string and
  // a newline to standard error.
  static void defaultHandlerCB(const SoError* error, void* data);

 protected:
  // Hands this error to the handler of its class.
  void handleError();
  virtual SoErrorCB* getHandler(void*& data) const;
  void setDebugString(const SbString& s) { m_debugString = s; }
  void appendToDebugString(const SbString& s) { m_debugString += s; }

  static SoType s_classTypeId;

 private:
  SbString m_debugString;
};
