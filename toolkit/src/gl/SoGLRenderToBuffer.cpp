#include <Orvex/SoGLRenderToBuffer.h>

#include <Orvex/errors/SoGLError.h>

#include <GL/gl.h>
#include <GL/glext.h>

namespace {

// What a texture format attaches (see the class comment); 0: nothing.
struct Attachments {
  GLenum color = 0;         // internal format of the colour texture
  GLenum depth = 0;         // internal format of the depth texture
  GLenum depthStencil = 0;  // internal format of a combined depth-stencil texture
  GLenum stencil = 0;       // internal format of a stencil texture
  bool depthRenderbuffer = false;
};

bool attachmentsOf(SoGLRenderToBuffer::TextureFormat format, Attachments& a) {
  switch (format) {
    case SoGLRenderToBuffer::TEXTURERGB: a.color = GL_RGB8; break;
    case SoGLRenderToBuffer::TEXTURERGBA: a.color = GL_RGBA8; break;
    case SoGLRenderToBuffer::TEXTURERGBFLOAT16: a.color = GL_RGB16F; break;
    case SoGLRenderToBuffer::TEXTURERGBFLOAT32: a.color = GL_RGB32F; break;
    case SoGLRenderToBuffer::TEXTURERGBAFLOAT16: a.color = GL_RGBA16F; break;
    case SoGLRenderToBuffer::TEXTURERGBAFLOAT32: a.color = GL_RGBA32F; break;
    case SoGLRenderToBuffer::TEXTUREDEPTH: a.depth = GL_DEPTH_COMPONENT24; return true;
    case SoGLRenderToBuffer::TEXTUREDEPTH16: a.depth = GL_DEPTH_COMPONENT16; return true;
    case SoGLRenderToBuffer::TEXTUREDEPTHRGBA:
      a.color = GL_RGBA8;
      a.depth = GL_DEPTH_COMPONENT24;
      return true;
    case SoGLRenderToBuffer::TEXTUREDEPTHSTENCIL: a.depthStencil = GL_DEPTH24_STENCIL8; return true;
    case SoGLRenderToBuffer::TEXTURESTENCILINDEX:
    case SoGLRenderToBuffer::TEXTURESTENCILINDEX8: a.stencil = GL_STENCIL_INDEX8; return true;
    default: return false;
  }
  a.depthRenderbuffer = true;
  return true;
}

// The pixel format and type that go with an internal format when a
// texture is allocated without data.
void allocationFormat(GLenum internal, GLenum& format, GLenum& type) {
  switch (internal) {
    case GL_DEPTH_COMPONENT24:
    case GL_DEPTH_COMPONENT16:
      format = GL_DEPTH_COMPONENT;
      type = GL_FLOAT;
      break;
    case GL_DEPTH24_STENCIL8:
      format = GL_DEPTH_STENCIL;
      type = GL_UNSIGNED_INT_24_8;
      break;
    case GL_STENCIL_INDEX8:
      format = GL_STENCIL_INDEX;
      type = GL_UNSIGNED_BYTE;
      break;
    default:
      format = GL_RGBA;
      type = GL_UNSIGNED_BYTE;
      break;
  }
}

GLenum cubeFace(SoGLRenderToBuffer::CubeMapTextureFace face) {
  return GL_TEXTURE_CUBE_MAP_POSITIVE_X + static_cast<GLenum>(face);
}

// Empties OpenGL's error flags, so that the errors seen next are ours.
void drainErrors() {
  for (int i = 0; i < 16 && glGetError() != GL_NO_ERROR; ++i) {
  }
}

}  // namespace

SoGLRenderToBuffer::SoGLRenderToBuffer(TextureFormat format, TextureTarget target) : m_format(format), m_target(target) {}

SoGLRenderToBuffer::~SoGLRenderToBuffer() { destroy(); }

uint32_t SoGLRenderToBuffer::getGLTarget() const {
  switch (m_target) {
    case TEXTURE1D: return GL_TEXTURE_1D;
    case TEXTURE3D: return GL_TEXTURE_3D;
    case TEXTURECUBEMAP: return GL_TEXTURE_CUBE_MAP;
    case TEXTURERECTANGLE: return GL_TEXTURE_RECTANGLE;
    default: return GL_TEXTURE_2D;
  }
}

bool SoGLRenderToBuffer::create(const SbVec2s& size) {
  destroy();
  m_size.setValue(size[0], size[1]);
  if (!build()) {
    destroy();
    return false;
  }
  return true;
}

bool SoGLRenderToBuffer::resize(const SbVec2s& size) { return create(size); }

bool SoGLRenderToBuffer::build() {
  static const char* const kMethod = "SoGLRenderToBuffer::create";
  if (!glGetString(GL_VERSION)) {
    SoGLError::post(0, kMethod, "no OpenGL context is current");
    return false;
  }
  Attachments a;
  if (!attachmentsOf(m_format, a)) {
    SoGLError::post(GL_INVALID_ENUM, kMethod, "texture format %d cannot be drawn into", static_cast<int>(m_format));
    return false;
  }
  const int width = m_size[0], height = m_size[1];
  GLint largest = 0;
  glGetIntegerv(m_target == TEXTURECUBEMAP ? GL_MAX_CUBE_MAP_TEXTURE_SIZE : GL_MAX_TEXTURE_SIZE, &largest);
  if (width <= 0 || height <= 0 || width > largest || height > largest) {
    SoGLError::post(GL_INVALID_VALUE, kMethod, "size %d x %d is not in 1..%d", width, height, static_cast<int>(largest));
    return false;
  }
  if (m_target == TEXTURE3D) {
    SoGLError::post(GL_INVALID_ENUM, kMethod, "3D textures are not drawn into");
    return false;
  }
  if (m_target == TEXTURE1D && height != 1) {
    SoGLError::post(GL_INVALID_VALUE, kMethod, "a 1D texture is 1 pixel high, not %d", height);
    return false;
  }
  if (m_target == TEXTURECUBEMAP && width != height) {
    SoGLError::post(GL_INVALID_VALUE, kMethod, "cube map faces are square, not %d x %d", width, height);
    return false;
  }

  drainErrors();
  GLint previousTexture = 0;
  const GLenum target = getGLTarget();
  glGetIntegerv(target == GL_TEXTURE_1D          ? GL_TEXTURE_BINDING_1D
                : target == GL_TEXTURE_CUBE_MAP  ? GL_TEXTURE_BINDING_CUBE_MAP
                : target == GL_TEXTURE_RECTANGLE ? GL_TEXTURE_BINDING_RECTANGLE
                                                 : GL_TEXTURE_BINDING_2D,
                &previousTexture);
  const auto makeTexture = [&](GLenum internal) -> GLuint {
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(target, texture);
    GLenum format, type;
    allocationFormat(internal, format, type);
    if (target == GL_TEXTURE_1D) {
      glTexImage1D(target, 0, static_cast<GLint>(internal), width, 0, format, type, nullptr);
    } else if (target == GL_TEXTURE_CUBE_MAP) {
      for (GLenum face = 0; face < 6; ++face)
        glTexImage2D(GL_TEXTURE_CUBE_MAP_POSITIVE_X + face, 0, static_cast<GLint>(internal), width, height, 0, format,
                     type, nullptr);
    } else {
      glTexImage2D(target, 0, static_cast<GLint>(internal), width, height, 0, format, type, nullptr);
    }
    // One level: sampling must not look for mipmaps.
    glTexParameteri(target, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(target, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    return texture;
  };
  if (a.color) m_colorTexture = makeTexture(a.color);
  if (a.depth) m_depthTexture = makeTexture(a.depth);
  if (a.depthStencil) m_depthTexture = makeTexture(a.depthStencil);
  if (a.stencil) m_stencilTexture = makeTexture(a.stencil);
  glBindTexture(target, static_cast<GLuint>(previousTexture));

  GLint previousFramebuffer = 0;
  glGetIntegerv(GL_FRAMEBUFFER_BINDING, &previousFramebuffer);
  glGenFramebuffers(1, &m_framebuffer);
  glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer);
  if (a.depthRenderbuffer) {
    glGenRenderbuffers(1, &m_depthRenderbuffer);
    glBindRenderbuffer(GL_RENDERBUFFER, m_depthRenderbuffer);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH_COMPONENT24, width, height);
    glBindRenderbuffer(GL_RENDERBUFFER, 0);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, m_depthRenderbuffer);
  }
  attachFace();
  if (!m_colorTexture) {
    glDrawBuffer(GL_NONE);
    glReadBuffer(GL_NONE);
  }
  const GLenum status = glCheckFramebufferStatus(GL_FRAMEBUFFER);
  const GLenum error = glGetError();
  glBindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(previousFramebuffer));
  if (error != GL_NO_ERROR) {
    SoGLError::post(static_cast<int>(error), kMethod, "OpenGL error 0x%x making a %d x %d buffer of format %d",
                    error, width, height, static_cast<int>(m_format));
    return false;
  }
  if (status != GL_FRAMEBUFFER_COMPLETE) {
    SoGLError::post(static_cast<int>(status), kMethod, "the driver cannot draw into format %d, target %d (status 0x%x)",
                    static_cast<int>(m_format), static_cast<int>(m_target), status);
    return false;
  }
  return true;
}

// Attaches the textures (the chosen face of a cube map) to the framebuffer
// bound now.
void SoGLRenderToBuffer::attachFace() {
  const GLenum target = getGLTarget();
  const GLenum image = target == GL_TEXTURE_CUBE_MAP ? cubeFace(m_face) : target;
  const auto attach = [&](GLenum attachment, GLuint texture) {
    if (!texture) return;
    if (target == GL_TEXTURE_1D)
      glFramebufferTexture1D(GL_FRAMEBUFFER, attachment, target, texture, 0);
    else
      glFramebufferTexture2D(GL_FRAMEBUFFER, attachment, image, texture, 0);
  };
  attach(GL_COLOR_ATTACHMENT0, m_colorTexture);
  const GLenum depthAttachment = m_format == TEXTUREDEPTHSTENCIL ? GL_DEPTH_STENCIL_ATTACHMENT : GL_DEPTH_ATTACHMENT;
  attach(depthAttachment, m_depthTexture);
  attach(GL_STENCIL_ATTACHMENT, m_stencilTexture);
}

void SoGLRenderToBuffer::destroy() {
  if (m_bound) unbind();
  // Without a current context there is nothing the names could be deleted
  // from (the context is gone with its objects).
  if (glGetString(GL_VERSION)) {
    if (m_framebuffer) glDeleteFramebuffers(1, &m_framebuffer);
    if (m_depthRenderbuffer) glDeleteRenderbuffers(1, &m_depthRenderbuffer);
    const GLuint textures[3] = {m_colorTexture, m_depthTexture, m_stencilTexture};
    for (GLuint t : textures)
      if (t) glDeleteTextures(1, &t);
  }
  m_framebuffer = m_depthRenderbuffer = m_colorTexture = m_depthTexture = m_stencilTexture = 0;
}

bool SoGLRenderToBuffer::bind() {
  if (!m_framebuffer) return false;
  if (!m_bound) {
    glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &m_previousDraw);
    glGetIntegerv(GL_READ_FRAMEBUFFER_BINDING, &m_previousRead);
  }
  glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer);
  if (m_target == TEXTURECUBEMAP) attachFace();
  m_bound = true;
  return true;
}

void SoGLRenderToBuffer::unbind() {
  if (!m_bound) return;
  glBindFramebuffer(GL_DRAW_FRAMEBUFFER, static_cast<GLuint>(m_previousDraw));
  glBindFramebuffer(GL_READ_FRAMEBUFFER, static_cast<GLuint>(m_previousRead));
  m_bound = false;
}
