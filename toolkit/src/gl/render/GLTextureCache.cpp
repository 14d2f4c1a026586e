#include "GLTextureCache.h"

namespace orvex {

namespace {
// Textures kept per group of contexts before the least recently used go.
constexpr size_t kMaxTextures = 512;
}  // namespace

GLCachedTexture GLTextureCache::find(const void* owner, uint64_t version) {
  std::lock_guard<std::mutex> lock(m_mutex);
  auto it = m_entries.find(owner);
  if (it == m_entries.end()) return GLCachedTexture();
  if (it->second.version != version) {
    glDeleteTextures(1, &it->second.texture.texture);
    m_entries.erase(it);
    return GLCachedTexture();
  }
  it->second.lastUse = ++m_clock;
  return it->second.texture;
}

void GLTextureCache::store(const void* owner, uint64_t version, const GLCachedTexture& texture) {
  std::lock_guard<std::mutex> lock(m_mutex);
  auto it = m_entries.find(owner);
  if (it != m_entries.end() && it->second.texture.texture != texture.texture)
    glDeleteTextures(1, &it->second.texture.texture);
  Entry& entry = m_entries[owner];
  entry.version = version;
  entry.texture = texture;
  entry.lastUse = ++m_clock;
  if (m_entries.size() > kMaxTextures) evictOldest();
}

void GLTextureCache::evictOldest() {
  auto oldest = m_entries.begin();
  for (auto it = m_entries.begin(); it != m_entries.end(); ++it)
    if (it->second.lastUse < oldest->second.lastUse) oldest = it;
  glDeleteTextures(1, &oldest->second.texture.texture);
  m_entries.erase(oldest);
}

}  // namespace orvex
