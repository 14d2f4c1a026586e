#include <Orvex/errors/SoErrorStack.h>

SoErrorStack::StackFrame::StackFrame() = default;

SoErrorStack::StackFrame::StackFrame(uintptr_t address, const char* moduleName, const char* functionName,
                                     size_t offset) {
  setValue(address, moduleName, functionName, offset);
}

void SoErrorStack::StackFrame::setValue(uintptr_t address, const char* moduleName, const char* functionName,
                                        size_t offset) {
  m_address = address;
  m_moduleName = moduleName;      // null gives an empty name
  m_functionName = functionName;
  m_offset = offset;
}

SbString SoErrorStack::StackFrame::getString() const {
  // The layout of glibc's backtrace_symbols(), which readers of native stack
  // traces know, with the function's C++ name instead of its mangled one.
  SbString text;
  if (!m_moduleName.isEmpty() || !m_functionName.isEmpty() || m_offset != 0) {
    text += m_moduleName;
    text += '(';
    text += m_functionName;
    text += SbString::sprintf("+0x%zx) ", m_offset);
  }
  text += SbString::sprintf("[0x%llx]", static_cast<unsigned long long>(m_address));
  return text;
}

bool SoErrorStack::StackFrame::operator==(const StackFrame& other) const {
  return m_address == other.m_address && m_offset == other.m_offset && m_moduleName == other.m_moduleName &&
         m_functionName == other.m_functionName;
}
