#pragma once
#include <Orvex/devices/SoBufferObject.h>

#include <memory>

// A buffer in main memory: its own, allocated by setSize(), or the caller's,
// given with setBuffer() and never freed by the buffer.
class SoCpuBufferObject : public SoBufferObject {
 public:
  // An empty buffer.
  SoCpuBufferObject();
  // A buffer over the caller's memory, as setBuffer() makes it.
  SoCpuBufferObject(void* buffer, size_t size);

  static SoType getClassTypeId();
  SoType getTypeId() const override;
  // Registers the class, as SoBufferObject::initClass() does for its own.
  static void initClass();

  // Uses the caller's memory (size bytes at buffer, which must stay valid
  // while the buffer uses it) in place of the buffer's own, which is
  // freed. A null buffer makes an empty buffer. Refused (debug error) while
  // mapped. A later setSize() moves the content into memory of the
  // buffer's own and lets the caller's go.
  void setBuffer(void* buffer, size_t size);
  // Whether the memory is the caller's (given with setBuffer()).
  bool isUserBuffer() const { return m_user != nullptr; }

  bool setSize(size_t size) override;
  void* map(AccessModes accessMode) override;
  void unmap() override;
  SoBufferObject* createInstance() const override;
  void clearInstance() override;

 protected:
  ~SoCpuBufferObject() override;

 private:
  std::unique_ptr<unsigned char[]> m_own;
  unsigned char* m_user = nullptr;
};
