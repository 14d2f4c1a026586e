#pragma once
// The texture objects made for nodes in one group of sharing contexts,
// each kept with the version of its source it was made from (a node id):
// a newer version replaces it. Entries unused the longest are deleted
// beyond a limit, so textures of deleted nodes do not pile up. The GL calls
// go to the current context, which must belong to the group; the cache
// itself makes none when it is destroyed (the objects die with the
// group's last context).

#include <GL/gl.h>

#include <cstdint>
#include <mutex>
#include <unordered_map>

namespace orvex {

// A texture object and where its texels go, for textures drawn in window
// pixels (left, bottom, width, height); zeros for others.
struct GLCachedTexture {
  GLuint texture = 0;
  int placement[4] = {0, 0, 0, 0};
};

class GLTextureCache {
 public:
  // The texture kept for `owner` at `version`; an empty one (texture 0)
  // when there is none, after deleting one of another version.
  GLCachedTexture find(const void* owner, uint64_t version);
  // Keeps a texture the caller made for `owner` at `version`.
  void store(const void* owner, uint64_t version, const GLCachedTexture& texture);

 private:
  struct Entry {
    uint64_t version = 0;
    GLCachedTexture texture;
    uint64_t lastUse = 0;
  };
  void evictOldest();

  std::mutex m_mutex;  // contexts of one group may draw on several threads
  std::unordered_map<const void*, Entry> m_entries;
  uint64_t m_clock = 0;
};

}  // namespace orvex
