#include <Orvex/errors/SoErrorStack.h>

#include <cxxabi.h>
#include <execinfo.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "HandlerSlot.h"

namespace {
orvex::HandlerSlot s_handler;
SoType s_type;

// backtrace_symbols() gives "object(mangled+0x1f) [0xaddr]"; show the
// function's C++ name where it can be demangled.
std::string readableFrame(const char* symbol) {
  std::string frame(symbol);
  const size_t open = frame.find('(');
  const size_t plus = frame.find('+', open);
  if (open == std::string::npos || plus == std::string::npos || plus == open + 1) return frame;
  const std::string mangled = frame.substr(open + 1, plus - open - 1);
  int status = 0;
  std::unique_ptr<char, decltype(&std::free)> demangled(
      abi::__cxa_demangle(mangled.c_str(), nullptr, nullptr, &status), &std::free);
  if (status != 0 || !demangled) return frame;
  return frame.substr(0, open + 1) + demangled.get() + frame.substr(plus);
}
}  // namespace

void SoErrorStack::setHandlerCallback(SoErrorCB* cb, void* data) { s_handler.set(cb, data); }
SoErrorCB* SoErrorStack::getHandlerCallback() { return s_handler.callback(); }
void* SoErrorStack::getHandlerCallbackData() { return s_handler.data(); }

SoType SoErrorStack::getClassTypeId() { return s_type; }
SoType SoErrorStack::getTypeId() const { return s_type; }

SbString SoErrorStack::getStack() {
  void* frames[64];
  const int count = backtrace(frames, 64);
  std::unique_ptr<char*, decltype(&std::free)> symbols(backtrace_symbols(frames, count), &std::free);
  SbString text;
  if (!symbols) return text;
  // Frame 0 is this function; the caller's frames follow.
  for (int i = 1; i < count; ++i) {
    text += SbString::sprintf("#%d ", i - 1);
    text += SbString(readableFrame(symbols.get()[i]));
    text += '\n';
  }
  return text;
}

void SoErrorStack::post() {
  SoErrorStack error;
  error.setDebugString(SbString("Orvex stack trace:\n") + getStack());
  error.handleError();
}

void SoErrorStack::initClass() {
  SoError::initClass();
  if (s_type.isBad()) s_type = SoType::createType(SoError::getClassTypeId(), "SoErrorStack");
}

SoErrorCB* SoErrorStack::getHandler(void*& data) const { return s_handler.get(data); }
