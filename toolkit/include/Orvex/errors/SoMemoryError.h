#pragma once
#include <Orvex/errors/SoError.h>

// Memory cleanup hook: asked to free `size` bytes when an allocation fails;
// answers true when it released something worth retrying for.
typedef bool SoMemoryCleanupCB(size_t size, void* data);

// Failed allocations.
class SoMemoryError : public SoError {
 public:
  static void setHandlerCallback(SoErrorCB* cb, void* data);
  static SoErrorCB* getHandlerCallback();
  static void* getHandlerCallbackData();

  static void setMemoryCleanupCallback(SoMemoryCleanupCB* cb, void* data);
  static SoMemoryCleanupCB* getMemoryCleanupCallback();
  // Calls the cleanup hook, if any; false when there is none.
  static bool invokeMemoryCleanup(size_t size);

  static SoType getClassTypeId();
  SoType getTypeId() const override;

  // Reports that memory for `whatWasAllocated` (plain text, not a format)
  // could not be obtained.
  static void post(const char* whatWasAllocated);

  static void initClass();

 protected:
  SoErrorCB* getHandler(void*& data) const override;
};
