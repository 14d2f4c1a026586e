#pragma once
// Texturing of shapes: the current texture image (SoTextureImageElement)
// as a texture object of the current context's group, made once per
// version of its node, and bound with the shape's texture coordinates and
// the texture matrix for the duration of a draw.

#include <GL/gl.h>

#include <cstdint>
#include <optional>

#include "GLShapeArrays.h"
#include "GLTextureCache.h"

class SoState;

namespace orvex {

// An 8-bit image made into the bound 2D texture, with mipmaps; images
// larger than the driver takes are sampled down to its limit.
void uploadTexture(const unsigned char* pixels, int width, int height, int numComponents);

// The texture for `owner` at `version`: from the cache of the current
// context's group, or made with `make` (which fills the bound texture and
// answers the placement). Without a group to keep it in, or without an
// owner to know it by, the texture is deleted when the lease goes.
class GLTextureLease {
 public:
  template <class Make>
  GLTextureLease(const void* owner, uint64_t version, Make&& make) {
    if (!lookUp(owner, version)) {
      glGenTextures(1, &m_texture.texture);
      glBindTexture(GL_TEXTURE_2D, m_texture.texture);
      make(m_texture);
      keep(owner, version);
    }
    glBindTexture(GL_TEXTURE_2D, m_texture.texture);
  }
  ~GLTextureLease();
  GLTextureLease(const GLTextureLease&) = delete;
  GLTextureLease& operator=(const GLTextureLease&) = delete;
  const GLCachedTexture& texture() const { return m_texture; }

 private:
  bool lookUp(const void* owner, uint64_t version);
  void keep(const void* owner, uint64_t version);

  GLCachedTexture m_texture;
  bool m_owned = false;  // not kept in a cache: deleted with the lease
};

// Binds the current texture for drawing `array` (when the state has one
// and the array has texture coordinates); turns texturing off again when
// it goes. `blendAlpha`: textures with alpha blend with what is behind.
class GLTextureScope {
 public:
  GLTextureScope(SoState* state, const GLVertexArray& array, bool blendAlpha);
  ~GLTextureScope();
  GLTextureScope(const GLTextureScope&) = delete;
  GLTextureScope& operator=(const GLTextureScope&) = delete;

 private:
  std::optional<GLTextureLease> m_lease;  // empty: not texturing
};

}  // namespace orvex
