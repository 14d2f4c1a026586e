#include <Orvex/errors/SoMemoryError.h>

#include "HandlerSlot.h"

namespace {
orvex::HandlerSlot s_handler;
SoType s_type;

// The cleanup hook and its data, replaced as a pair.
struct CleanupHook {
  std::mutex mutex;
  SoMemoryCleanupCB* cb = nullptr;
  void* data = nullptr;
};
CleanupHook s_cleanup;
}  // namespace

void SoMemoryError::setHandlerCallback(SoErrorCB* cb, void* data) { s_handler.set(cb, data); }
SoErrorCB* SoMemoryError::getHandlerCallback() { return s_handler.callback(); }
void* SoMemoryError::getHandlerCallbackData() { return s_handler.data(); }

void SoMemoryError::setMemoryCleanupCallback(SoMemoryCleanupCB* cb, void* data) {
  std::lock_guard<std::mutex> lock(s_cleanup.mutex);
  s_cleanup.cb = cb;
  s_cleanup.data = data;
}

SoMemoryCleanupCB* SoMemoryError::getMemoryCleanupCallback() {
  std::lock_guard<std::mutex> lock(s_cleanup.mutex);
  return s_cleanup.cb;
}

bool SoMemoryError::invokeMemoryCleanup(size_t size) {
  SoMemoryCleanupCB* cb;
  void* data;
  {
    std::lock_guard<std::mutex> lock(s_cleanup.mutex);
    cb = s_cleanup.cb;
    data = s_cleanup.data;
  }
  return cb ? cb(size, data) : false;
}

SoType SoMemoryError::getClassTypeId() { return s_type; }
SoType SoMemoryError::getTypeId() const { return s_type; }

void SoMemoryError::post(const char* whatWasAllocated) {
  SoMemoryError error;
  error.setDebugString(orvex::composeMessage(
      "memory error", nullptr,
      SbString("Cannot allocate memory for ") + SbString(whatWasAllocated ? whatWasAllocated : "an object")));
  error.handleError();
}

void SoMemoryError::initClass() {
  SoError::initClass();
  if (s_type.isBad()) s_type = SoType::createType(SoError::getClassTypeId(), "SoMemoryError");
}

SoErrorCB* SoMemoryError::getHandler(void*& data) const { return s_handler.get(data); }
