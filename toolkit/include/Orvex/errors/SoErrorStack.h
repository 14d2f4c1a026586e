#pragma once
#include <Orvex/errors/SoError.h>

#include <cstddef>
#include <cstdint>
#include <vector>

// Reports the calling thread's stack of native frames.
class SoErrorStack : public SoError {
 public:
  // One native frame: the return address, the module (executable or shared
  // library) holding it, the enclosing function when the module exports its
  // name, and the address's offset from that function (from the module's
  // load address when the function is unknown).
  class StackFrame {
   public:
    StackFrame();
    StackFrame(uintptr_t address, const char* moduleName, const char* functionName, size_t offset);

    void setValue(uintptr_t address, const char* moduleName, const char* functionName, size_t offset);

    uintptr_t getAddress() const { return m_address; }
    const SbString& getModuleName() const { return m_moduleName; }
    // The readable C++ name; empty when the module does not name the function.
    const SbString& getFunctionName() const { return m_functionName; }
    size_t getOffset() const { return m_offset; }

    // "module(function+0x1f) [0x7f00...]"; the parts that are unknown are left out.
    SbString getString() const;

    bool operator==(const StackFrame& other) const;
    bool operator!=(const StackFrame& other) const { return !(*this == other); }

   private:
    uintptr_t m_address = 0;
    SbString m_moduleName;
    SbString m_functionName;
    size_t m_offset = 0;
  };

  static void setHandlerCallback(SoErrorCB* cb, void* data);
  static SoErrorCB* getHandlerCallback();
  static void* getHandlerCallbackData();

  static SoType getClassTypeId();
  SoType getTypeId() const override;

  // Captures the current stack and posts it as an error; the error carries
  // the frames (getFrames) and their text, one frame a line.
  static void post();
  // The current stack as text, one frame a line, the caller's frame first.
  static SbString getStack();
  // Writes at most maxFrames frames of the current stack into `frames`, the
  // caller's frame first; returns how many were written.
  static int getStackFrames(StackFrame* frames, int maxFrames);

  // The frames captured by post(), the poster's frame first (none for an
  // error that was not posted). getFrames() points at getNumFrames()
  // contiguous frames that live as long as this error.
  int getNumFrames() const { return static_cast<int>(m_frames.size()); }
  const StackFrame* getFrames() const { return m_frames.data(); }

  static void initClass();

 protected:
  SoErrorCB* getHandler(void*& data) const override;

 private:
  std::vector<StackFrame> m_frames;
};
