#pragma once
#include <cstdint>

class SoGLContext;

// The OpenGL context whose objects (display lists, textures, buffers) a
// drawing area shares, with a number naming its share group. A small
// value: copied, never owning the context.
class SbGLShareContext {
 public:
  SbGLShareContext() = default;
  SbGLShareContext(SoGLContext* context, int32_t shareGroupId) : m_context(context), m_shareGroupId(shareGroupId) {}

  SoGLContext* getContext() const { return m_context; }
  int32_t getShareGroupId() const { return m_shareGroupId; }

  bool operator==(const SbGLShareContext& other) const {
    return m_context == other.m_context && m_shareGroupId == other.m_shareGroupId;
  }
  bool operator!=(const SbGLShareContext& other) const { return !(*this == other); }

 private:
  SoGLContext* m_context = nullptr;
  int32_t m_shareGroupId = 0;
};
