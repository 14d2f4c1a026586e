// libFuzzer target: reads arbitrary bytes as a scene (SoDB::readAll on a
// memory buffer), and writes what was read back, in ASCII and binary, and
// reads that again. Errors are expected and silenced; crashes, leaks and
// undefined behaviour are what the sanitizers catch.

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/nodes/SoSeparator.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

void ignoreError(const SoError*, void*) {}

bool setUp() {
  SoDB::init();
  SoReadError::setHandlerCallback(&ignoreError, nullptr);
  SoDebugError::setHandlerCallback(&ignoreError, nullptr);
  return true;
}

std::string writeScene(SoNode* root, bool binary) {
  SoOutput out;
  out.setBuffer(nullptr, 0, nullptr);
  out.setBinary(binary);
  SoWriteAction action(&out);
  action.apply(root);
  void* buffer = nullptr;
  size_t size = 0;
  out.getBuffer(buffer, size);
  return std::string(static_cast<const char*>(buffer), size);
}

// What was written must read again.
void readBack(const std::string& text) {
  SoInput in;
  in.setBuffer(const_cast<char*>(text.data()), text.size());
  SoSeparator* again = SoDB::readAll(&in);
  if (!again) __builtin_trap();
  again->ref();
  again->unref();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const bool ready = setUp();
  (void)ready;
  SoInput in;
  in.setBuffer(const_cast<uint8_t*>(data), size);
  SoSeparator* root = SoDB::readAll(&in);
  if (!root) return 0;
  root->ref();
  in.closeFile();  // the names the input held go now
  readBack(writeScene(root, false));
  readBack(writeScene(root, true));
  root->unref();
  return 0;
}
