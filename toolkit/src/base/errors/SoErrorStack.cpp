#include <Orvex/errors/SoErrorStack.h>

#include <cxxabi.h>
#include <dlfcn.h>
#include <execinfo.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>

#include "HandlerSlot.h"

namespace {
orvex::HandlerSlot s_handler;
SoType s_type;

// Deep enough for any report a person reads; bounds the work of a post.
constexpr int kMaxPostedFrames = 128;

using Frame = SoErrorStack::StackFrame;

// The C++ name of a linker symbol, or the symbol itself when it is not a
// mangled C++ name (C functions, JNI entry points).
std::string readableName(const char* symbol) {
  int status = 0;
  std::unique_ptr<char, decltype(&std::free)> demangled(abi::__cxa_demangle(symbol, nullptr, nullptr, &status),
                                                        &std::free);
  return status == 0 && demangled ? std::string(demangled.get()) : std::string(symbol);
}

// What the dynamic linker knows about one return address. Only exported
// functions have names; for the others the offset is from the module base.
Frame describe(void* address) {
  const auto pc = reinterpret_cast<uintptr_t>(address);
  Dl_info info{};
  if (dladdr(address, &info) == 0) return Frame(pc, nullptr, nullptr, 0);
  if (info.dli_sname != nullptr && info.dli_saddr != nullptr) {
    return Frame(pc, info.dli_fname, readableName(info.dli_sname).c_str(),
                 pc - reinterpret_cast<uintptr_t>(info.dli_saddr));
  }
  return Frame(pc, info.dli_fname, nullptr, pc - reinterpret_cast<uintptr_t>(info.dli_fbase));
}

// Frames that a wrapper of backtrace() may add below this function's own:
// a sanitizer runtime or a preloaded profiler interposes on backtrace(), and
// its frame comes first in what it returns.
constexpr int kInterposerFrames = 4;

// More frames than any thread's stack holds; keeps the buffer size and the
// index arithmetic below in range whatever count a caller asks for.
constexpr int kMaxCapturedFrames = 1 << 16;

// The calling thread's frames, leaving out this function and the `skip`
// innermost frames above it (the toolkit's own capturing members), at most
// maxFrames of them. Never inlined: its own frame must be the one dropped.
// The frames are counted from this function's return address, found among
// those backtrace() reports, rather than from the top of the list, which
// holds whatever frames sit between this function and the unwinder.
__attribute__((noinline)) std::vector<Frame> captureFrames(int skip, int maxFrames) {
  std::vector<Frame> frames;
  if (maxFrames <= 0) return frames;
  maxFrames = std::min(maxFrames, kMaxCapturedFrames);
  std::vector<void*> addresses(static_cast<size_t>(kInterposerFrames + 1 + skip + maxFrames));
  const int count = backtrace(addresses.data(), static_cast<int>(addresses.size()));
  void* const returnAddress = __builtin_extract_return_addr(__builtin_return_address(0));
  // Index of this function's caller; without a match, assume no interposer.
  int caller = 1;
  for (int i = 0; i < count && i <= kInterposerFrames + 1; ++i) {
    if (addresses[static_cast<size_t>(i)] == returnAddress) {
      caller = i;
      break;
    }
  }
  const int first = caller + skip;
  const int last = std::min(count, first + maxFrames);
  for (int i = first; i < last; ++i) frames.push_back(describe(addresses[static_cast<size_t>(i)]));
  return frames;
}

SbString framesText(const std::vector<Frame>& frames) {
  SbString text;
  for (size_t i = 0; i < frames.size(); ++i) {
    text += SbString::sprintf("#%zu ", i);
    text += frames[i].getString();
    text += '\n';
  }
  return text;
}
}  // namespace

void SoErrorStack::setHandlerCallback(SoErrorCB* cb, void* data) { s_handler.set(cb, data); }
SoErrorCB* SoErrorStack::getHandlerCallback() { return s_handler.callback(); }
void* SoErrorStack::getHandlerCallbackData() { return s_handler.data(); }

SoType SoErrorStack::getClassTypeId() { return s_type; }
SoType SoErrorStack::getTypeId() const { return s_type; }

int SoErrorStack::getStackFrames(StackFrame* frames, int maxFrames) {
  if (frames == nullptr) return 0;
  const std::vector<Frame> captured = captureFrames(1, maxFrames);
  std::copy(captured.begin(), captured.end(), frames);
  return static_cast<int>(captured.size());
}

SbString SoErrorStack::getStack() { return framesText(captureFrames(1, kMaxPostedFrames)); }

void SoErrorStack::post() {
  SoErrorStack error;
  error.m_frames = captureFrames(1, kMaxPostedFrames);
  error.setDebugString(SbString("Orvex stack trace:\n") + framesText(error.m_frames));
  error.handleError();
}

void SoErrorStack::initClass() {
  SoError::initClass();
  if (s_type.isBad()) s_type = SoType::createType(SoError::getClassTypeId(), "SoErrorStack");
}

SoErrorCB* SoErrorStack::getHandler(void*& data) const { return s_handler.get(data); }
