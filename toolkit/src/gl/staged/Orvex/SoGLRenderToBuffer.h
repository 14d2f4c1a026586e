#pragma once
#include <Orvex/SbVec2i32.h>
#include <Orvex/SbVec2s.h>

#include <cstdint>

class SoGLContext;

// A framebuffer object whose attachments are textures, so that a picture
// drawn into it (with SoGLRenderAction, or raw OpenGL) can be used as a
// texture afterwards. Made in the OpenGL context current at create();
// that context (or one sharing with it) must be current when the buffer
// is bound, resized or destroyed.
//
// What the texture format attaches: the colour formats (RGB, RGBA, their
// 16- and 32-bit float kinds) a colour texture with a depth renderbuffer;
// DEPTH and DEPTH16 a depth texture only; DEPTHRGBA an RGBA colour texture
// and a depth texture; DEPTHSTENCIL a combined depth-stencil texture;
// STENCILINDEX and STENCILINDEX8 an 8-bit stencil texture. Targets: 2D,
// RECTANGLE, CUBEMAP (drawing into the chosen face) and 1D (height 1).
// A 3D target, TEXTUREUNKNOW, a 1D target taller than one pixel, and any
// combination the driver cannot draw into are refused: create() then
// posts an SoGLError and answers false, and the buffer stays empty.
class SoGLRenderToBuffer {
 public:
  enum TextureFormat {
    TEXTUREUNKNOW,
    TEXTURERGB,
    TEXTURERGBA,
    TEXTURERGBFLOAT16,
    TEXTURERGBFLOAT32,
    TEXTURERGBAFLOAT16,
    TEXTURERGBAFLOAT32,
    TEXTUREDEPTH,
    TEXTUREDEPTH16,
    TEXTUREDEPTHRGBA,
    TEXTUREDEPTHSTENCIL,
    TEXTURESTENCILINDEX,
    TEXTURESTENCILINDEX8
  };
  enum TextureTarget { TEXTURE1D, TEXTURE2D, TEXTURE3D, TEXTURECUBEMAP, TEXTURERECTANGLE };
  enum CubeMapTextureFace {
    TEXTURECUBEMAPPOSITIVEX,
    TEXTURECUBEMAPNEGATIVEX,
    TEXTURECUBEMAPPOSITIVEY,
    TEXTURECUBEMAPNEGATIVEY,
    TEXTURECUBEMAPPOSITIVEZ,
    TEXTURECUBEMAPNEGATIVEZ
  };

  explicit SoGLRenderToBuffer(TextureFormat format = TEXTURERGBA, TextureTarget target = TEXTURE2D);
  virtual ~SoGLRenderToBuffer();
  SoGLRenderToBuffer(const SoGLRenderToBuffer&) = delete;
  SoGLRenderToBuffer& operator=(const SoGLRenderToBuffer&) = delete;

  // Format and target of the next create().
  void setTextureFormat(TextureFormat format) { m_format = format; }
  TextureFormat getTextureFormat() const { return m_format; }
  void setTextureTarget(TextureTarget target) { m_target = target; }
  TextureTarget getTextureTarget() const { return m_target; }
  // The cube face drawn into (cube maps); takes effect at the next bind().
  void setCubeMapFace(CubeMapTextureFace face) { m_face = face; }
  CubeMapTextureFace getCubeMapFace() const { return m_face; }

  // Makes the buffer of that size (replacing one made before). False, with
  // an SoGLError posted, when the format, target or size cannot be drawn
  // into or no context is current.
  virtual bool create(const SbVec2s& size);
  // The same size, format and target again at another size.
  virtual bool resize(const SbVec2s& size);
  // Deletes what create() made (with its context current).
  void destroy();
  bool isValid() const { return m_framebuffer != 0; }
  SbVec2s getSize() const { return SbVec2s(static_cast<short>(m_size[0]), static_cast<short>(m_size[1])); }
  SbVec2i32 getSizei32() const { return m_size; }

  // Directs drawing (and reading) into the buffer, remembering what was
  // bound; unbind() goes back to it. False when the buffer is not valid.
  bool bind();
  void unbind();

  // The OpenGL names of the textures (0 when the format has none).
  uint32_t getColorTexture() const { return m_colorTexture; }
  uint32_t getDepthTexture() const { return m_depthTexture; }
  uint32_t getStencilTexture() const { return m_stencilTexture; }
  // The OpenGL texture target of the textures (GL_TEXTURE_2D...).
  uint32_t getGLTarget() const;

 private:
  bool build();
  void attachFace();

  TextureFormat m_format;
  TextureTarget m_target;
  CubeMapTextureFace m_face = TEXTURECUBEMAPPOSITIVEX;
  SbVec2i32 m_size{0, 0};
  uint32_t m_framebuffer = 0;
  uint32_t m_colorTexture = 0;
  uint32_t m_depthTexture = 0;
  uint32_t m_stencilTexture = 0;
  uint32_t m_depthRenderbuffer = 0;
  int32_t m_previousDraw = 0;
  int32_t m_previousRead = 0;
  bool m_bound = false;
};
