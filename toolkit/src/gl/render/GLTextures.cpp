#include "GLTextures.h"

#include <Orvex/elements/SoTextureImageElement.h>
#include <Orvex/elements/SoTextureMatrixElement.h>
#include <Orvex/elements/SoTextureQualityElement.h>

#include <GL/glext.h>

#include <algorithm>
#include <vector>

#include "GLShareGroup.h"

namespace orvex {

namespace {

GLenum pixelFormat(int numComponents) {
  switch (numComponents) {
    case 1: return GL_LUMINANCE;
    case 2: return GL_LUMINANCE_ALPHA;
    case 3: return GL_RGB;
    default: return GL_RGBA;
  }
}

GLenum minFilterOf(SoTextureImageElement::Filter filter, float quality) {
  switch (filter) {
    case SoTextureImageElement::NEAREST: return GL_NEAREST;
    case SoTextureImageElement::LINEAR: return GL_LINEAR;
    default: return quality < 0.1f ? GL_NEAREST : quality < 0.5f ? GL_LINEAR : GL_LINEAR_MIPMAP_LINEAR;
  }
}

GLenum magFilterOf(SoTextureImageElement::Filter filter, float quality) {
  switch (filter) {
    case SoTextureImageElement::NEAREST: return GL_NEAREST;
    case SoTextureImageElement::LINEAR: return GL_LINEAR;
    default: return quality < 0.1f ? GL_NEAREST : GL_LINEAR;
  }
}

GLint envMode(SoTextureImageElement::Model model) {
  switch (model) {
    case SoTextureImageElement::DECAL: return GL_DECAL;
    case SoTextureImageElement::BLEND: return GL_BLEND;
    case SoTextureImageElement::REPLACE: return GL_REPLACE;
    default: return GL_MODULATE;
  }
}

GLint wrapMode(SoTextureImageElement::Wrap wrap) { return wrap == SoTextureImageElement::CLAMP ? GL_CLAMP_TO_EDGE : GL_REPEAT; }

}  // namespace

void uploadTexture(const unsigned char* pixels, int width, int height, int nc) {
  GLint maximum = 0;
  glGetIntegerv(GL_MAX_TEXTURE_SIZE, &maximum);
  if (maximum <= 0) maximum = 1024;
  std::vector<unsigned char> reduced;
  if (width > maximum || height > maximum) {
    // Nearest-texel reduction to what the driver takes.
    const int w = std::min(width, static_cast<int>(maximum)), h = std::min(height, static_cast<int>(maximum));
    reduced.resize(static_cast<size_t>(w) * h * nc);
    for (int y = 0; y < h; ++y) {
      const int sy = static_cast<int>(static_cast<long long>(y) * height / h);
      for (int x = 0; x < w; ++x) {
        const int sx = static_cast<int>(static_cast<long long>(x) * width / w);
        std::copy_n(pixels + (static_cast<size_t>(sy) * width + sx) * nc, nc,
                    reduced.begin() + static_cast<std::ptrdiff_t>((static_cast<size_t>(y) * w + x) * nc));
      }
    }
    pixels = reduced.data();
    width = w;
    height = h;
  }
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
  const GLenum format = pixelFormat(nc);
  glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(format), width, height, 0, format, GL_UNSIGNED_BYTE, pixels);
  glGenerateMipmap(GL_TEXTURE_2D);
}

bool GLTextureLease::lookUp(const void* owner, uint64_t version) {
  GLShareGroup* group = currentShareGroup();
  if (!group || !owner) return false;
  m_texture = group->textures.find(owner, version);
  return m_texture.texture != 0;
}

void GLTextureLease::keep(const void* owner, uint64_t version) {
  GLShareGroup* group = currentShareGroup();
  if (group && owner)
    group->textures.store(owner, version, m_texture);
  else
    m_owned = true;
}

GLTextureLease::~GLTextureLease() {
  if (m_owned) glDeleteTextures(1, &m_texture.texture);
}

GLTextureScope::GLTextureScope(SoState* state, const GLVertexArray& array, bool blendAlpha) {
  if (array.size() == 0 || array.texCoords.size() != array.size() * 4 || !SoTextureImageElement::isEnabled(state))
    return;
  const SoTextureImageElement::Texture& t = SoTextureImageElement::get(state);
  glActiveTexture(GL_TEXTURE0);
  m_lease.emplace(t.node, t.nodeId, [&t](GLCachedTexture&) {
    uploadTexture(t.pixels, t.size[0], t.size[1], t.numComponents);
  });
  const float quality = SoTextureQualityElement::get(state);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, static_cast<GLint>(minFilterOf(t.minFilter, quality)));
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, static_cast<GLint>(magFilterOf(t.magFilter, quality)));
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, wrapMode(t.wrapS));
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, wrapMode(t.wrapT));
  glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, envMode(t.model));
  const GLfloat blend[4] = {t.blendColor[0], t.blendColor[1], t.blendColor[2], 1.0f};
  glTexEnvfv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_COLOR, blend);
  glEnable(GL_TEXTURE_2D);
  glMatrixMode(GL_TEXTURE);
  glLoadMatrixf(&SoTextureMatrixElement::get(state)[0][0]);
  glMatrixMode(GL_MODELVIEW);
  glEnableClientState(GL_TEXTURE_COORD_ARRAY);
  glTexCoordPointer(4, GL_FLOAT, 0, array.texCoords.data());
  const bool alpha = t.numComponents == 2 || t.numComponents == 4;
  if (alpha && blendAlpha && t.model != SoTextureImageElement::DECAL) {
    glEnable(GL_BLEND);
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
  }
}

GLTextureScope::~GLTextureScope() {
  if (!m_lease) return;
  glDisableClientState(GL_TEXTURE_COORD_ARRAY);
  glMatrixMode(GL_TEXTURE);
  glLoadIdentity();
  glMatrixMode(GL_MODELVIEW);
  glDisable(GL_TEXTURE_2D);
}

}  // namespace orvex
