// Drawing into textures: what lands in the colour, depth and cube-face
// textures, float values beyond 1, and the combinations refused with an
// OpenGL error report.

#include <Orvex/SoGLRenderToBuffer.h>
#include <Orvex/actions/SoGLRenderAction.h>
#include <Orvex/devices/SoGLContext.h>
#include <Orvex/errors/SoGLError.h>
#include <GL/gl.h>
#include <GL/glext.h>

#include <string>
#include <vector>

#include "RenderTestSupport.h"

using gltest::addQuad;
using gltest::baseColor;
using gltest::diffuse;
using gltest::orthoCamera;
using gltest::Root;

namespace {

const ::testing::Environment* const kEnv = ::testing::AddGlobalTestEnvironment(new gltest::DatabaseEnvironment);

// A context current for the scope of a test.
class CurrentContext {
 public:
  CurrentContext() : m_context(new SoGLContext(SoGLFormat())) {
    m_context->ref();
    m_bound = m_context->bind();
  }
  ~CurrentContext() {
    if (m_bound) m_context->unbind();
    m_context->unref();
  }
  CurrentContext(const CurrentContext&) = delete;
  CurrentContext& operator=(const CurrentContext&) = delete;
  bool isBound() const { return m_bound; }

 private:
  SoGLContext* m_context;
  bool m_bound;
};

// Collects the OpenGL errors posted while it lives.
class GLErrorCatcher {
 public:
  GLErrorCatcher() : m_previous(SoGLError::getHandlerCallback()), m_previousData(SoGLError::getHandlerCallbackData()) {
    SoGLError::setHandlerCallback(&GLErrorCatcher::handler, this);
  }
  ~GLErrorCatcher() { SoGLError::setHandlerCallback(m_previous, m_previousData); }
  GLErrorCatcher(const GLErrorCatcher&) = delete;
  GLErrorCatcher& operator=(const GLErrorCatcher&) = delete;
  std::vector<std::string> messages;

 private:
  static void handler(const SoError* error, void* data) {
    static_cast<GLErrorCatcher*>(data)->messages.emplace_back(error->getDebugString().getString());
  }
  SoErrorCB* m_previous;
  void* m_previousData;
};

// A red 2 x 2 square in the middle of an orthographic view 4 units high,
// at z = 0 seen from z = 10 (near 1, far 20).
void buildSquare(SoSeparator* root) {
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  root->addChild(diffuse(1.0f, 0.0f, 0.0f));
  addQuad(root, -1.0f, -1.0f, 1.0f, 1.0f, 0.0f);
}

void drawInto(SoGLRenderToBuffer& buffer, SoNode* scene, int width, int height) {
  ASSERT_TRUE(buffer.bind());
  glViewport(0, 0, width, height);
  glClearColor(0.0f, 0.0f, 0.0f, 0.0f);
  glClearDepth(1.0);
  glDepthMask(GL_TRUE);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  SoGLRenderAction action(SbViewportRegion(static_cast<short>(width), static_cast<short>(height)));
  action.apply(scene);
  glFinish();
  buffer.unbind();
}

TEST(RenderToBuffer, ColourTextureHoldsThePicture) {
  CurrentContext context;
  ASSERT_TRUE(context.isBound());
  Root root;
  buildSquare(root.node);
  SoGLRenderToBuffer buffer;
  EXPECT_EQ(buffer.getTextureFormat(), SoGLRenderToBuffer::TEXTURERGBA);
  EXPECT_EQ(buffer.getTextureTarget(), SoGLRenderToBuffer::TEXTURE2D);
  EXPECT_FALSE(buffer.isValid());
  EXPECT_FALSE(buffer.bind());
  ASSERT_TRUE(buffer.create(SbVec2s(40, 20)));
  EXPECT_EQ(buffer.getSize(), SbVec2s(40, 20));
  EXPECT_EQ(buffer.getSizei32(), SbVec2i32(40, 20));
  EXPECT_NE(buffer.getColorTexture(), 0u);
  drawInto(buffer, root.node, 40, 20);

  std::vector<unsigned char> pixels(40 * 20 * 4);
  glBindTexture(GL_TEXTURE_2D, buffer.getColorTexture());
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
  glBindTexture(GL_TEXTURE_2D, 0);
  // 4 units over 20 rows: 5 pixels a unit; the view is 8 units wide. The
  // square covers columns 15 to 24 and rows 5 to 14.
  for (int y = 0; y < 20; ++y) {
    for (int x = 0; x < 40; ++x) {
      const unsigned char* p = &pixels[(static_cast<size_t>(y) * 40 + x) * 4];
      const bool inside = x >= 15 && x < 25 && y >= 5 && y < 15;
      EXPECT_EQ(p[0], inside ? 255 : 0) << x << ", " << y;
      EXPECT_EQ(p[3], inside ? 255 : 0) << x << ", " << y;
    }
  }

  // Resized, it draws at the new size.
  ASSERT_TRUE(buffer.resize(SbVec2s(8, 4)));
  EXPECT_EQ(buffer.getSize(), SbVec2s(8, 4));
  drawInto(buffer, root.node, 8, 4);
  std::vector<unsigned char> small(8 * 4 * 4);
  glBindTexture(GL_TEXTURE_2D, buffer.getColorTexture());
  glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, small.data());
  glBindTexture(GL_TEXTURE_2D, 0);
  EXPECT_EQ(small[(1 * 8 + 4) * 4], 255);  // (4, 1): inside
  EXPECT_EQ(small[(0 * 8 + 1) * 4], 0);    // (1, 0): outside
}

TEST(RenderToBuffer, DepthTextureHoldsTheOrthographicDepth) {
  CurrentContext context;
  ASSERT_TRUE(context.isBound());
  Root root;
  buildSquare(root.node);
  for (const auto format : {SoGLRenderToBuffer::TEXTUREDEPTH, SoGLRenderToBuffer::TEXTUREDEPTH16,
                            SoGLRenderToBuffer::TEXTUREDEPTHRGBA, SoGLRenderToBuffer::TEXTUREDEPTHSTENCIL}) {
    SoGLRenderToBuffer buffer(format);
    ASSERT_TRUE(buffer.create(SbVec2s(16, 8))) << format;
    EXPECT_NE(buffer.getDepthTexture(), 0u);
    EXPECT_EQ(buffer.getColorTexture() != 0, format == SoGLRenderToBuffer::TEXTUREDEPTHRGBA);
    drawInto(buffer, root.node, 16, 8);
    std::vector<float> depth(16 * 8);
    glBindTexture(GL_TEXTURE_2D, buffer.getDepthTexture());
    glGetTexImage(GL_TEXTURE_2D, 0, GL_DEPTH_COMPONENT, GL_FLOAT, depth.data());
    glBindTexture(GL_TEXTURE_2D, 0);
    // Orthographic depth is linear in the eye distance: 10 from the
    // camera, between near 1 and far 20.
    const float expected = (10.0f - 1.0f) / (20.0f - 1.0f);
    EXPECT_NEAR(depth[4 * 16 + 8], expected, 1e-3f) << format;
    EXPECT_EQ(depth[0], 1.0f) << format;  // the cleared corner
  }
}

TEST(RenderToBuffer, CubeMapFacesAreDrawnSeparately) {
  CurrentContext context;
  ASSERT_TRUE(context.isBound());
  SoGLRenderToBuffer buffer(SoGLRenderToBuffer::TEXTURERGBA, SoGLRenderToBuffer::TEXTURECUBEMAP);
  ASSERT_TRUE(buffer.create(SbVec2s(4, 4)));
  // Each face cleared to its own grey level.
  for (int face = 0; face < 6; ++face) {
    buffer.setCubeMapFace(static_cast<SoGLRenderToBuffer::CubeMapTextureFace>(face));
    ASSERT_TRUE(buffer.bind());
    glViewport(0, 0, 4, 4);
    glClearColor(face / 10.0f, 0.0f, 0.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    buffer.unbind();
  }
  glBindTexture(GL_TEXTURE_CUBE_MAP, buffer.getColorTexture());
  for (int face = 0; face < 6; ++face) {
    unsigned char p[4 * 4 * 4];
    glGetTexImage(GL_TEXTURE_CUBE_MAP_POSITIVE_X + static_cast<GLenum>(face), 0, GL_RGBA, GL_UNSIGNED_BYTE, p);
    EXPECT_NEAR(p[0], face / 10.0 * 255.0, 1.0) << "face " << face;
    EXPECT_EQ(p[3], 255);
  }
  glBindTexture(GL_TEXTURE_CUBE_MAP, 0);
}

TEST(RenderToBuffer, FloatColoursKeepValuesAboveOne) {
  CurrentContext context;
  ASSERT_TRUE(context.isBound());
  for (const auto format : {SoGLRenderToBuffer::TEXTURERGBAFLOAT16, SoGLRenderToBuffer::TEXTURERGBAFLOAT32}) {
    SoGLRenderToBuffer buffer(format, SoGLRenderToBuffer::TEXTURERECTANGLE);
    ASSERT_TRUE(buffer.create(SbVec2s(3, 2))) << format;
    ASSERT_TRUE(buffer.bind());
    glClearColor(2.5f, -1.0f, 0.25f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    buffer.unbind();
    float p[3 * 2 * 4];
    glBindTexture(GL_TEXTURE_RECTANGLE, buffer.getColorTexture());
    glGetTexImage(GL_TEXTURE_RECTANGLE, 0, GL_RGBA, GL_FLOAT, p);
    glBindTexture(GL_TEXTURE_RECTANGLE, 0);
    EXPECT_FLOAT_EQ(p[0], 2.5f) << format;
    EXPECT_FLOAT_EQ(p[1], -1.0f) << format;
    EXPECT_FLOAT_EQ(p[2], 0.25f) << format;
  }
}

TEST(RenderToBuffer, OneDimensionalAndStencilTargetsWork) {
  CurrentContext context;
  ASSERT_TRUE(context.isBound());
  SoGLRenderToBuffer line(SoGLRenderToBuffer::TEXTURERGB, SoGLRenderToBuffer::TEXTURE1D);
  ASSERT_TRUE(line.create(SbVec2s(16, 1)));
  ASSERT_TRUE(line.bind());
  glClearColor(0.0f, 1.0f, 0.0f, 1.0f);
  glClear(GL_COLOR_BUFFER_BIT);
  line.unbind();
  unsigned char p[16 * 4];
  glBindTexture(GL_TEXTURE_1D, line.getColorTexture());
  glGetTexImage(GL_TEXTURE_1D, 0, GL_RGBA, GL_UNSIGNED_BYTE, p);
  glBindTexture(GL_TEXTURE_1D, 0);
  EXPECT_EQ(p[15 * 4 + 1], 255);

  // Stencil-only and RGB float buffers: created where the driver can draw
  // into them, refused with one report where it cannot; never a crash.
  for (const auto format : {SoGLRenderToBuffer::TEXTURESTENCILINDEX8, SoGLRenderToBuffer::TEXTURESTENCILINDEX,
                            SoGLRenderToBuffer::TEXTURERGBFLOAT16, SoGLRenderToBuffer::TEXTURERGBFLOAT32}) {
    GLErrorCatcher errors;
    SoGLRenderToBuffer buffer(format);
    const bool made = buffer.create(SbVec2s(8, 8));
    EXPECT_EQ(errors.messages.size(), made ? 0u : 1u) << format;
    EXPECT_EQ(buffer.isValid(), made) << format;
    const bool stencil = format == SoGLRenderToBuffer::TEXTURESTENCILINDEX8 || format == SoGLRenderToBuffer::TEXTURESTENCILINDEX;
    if (made) {
      EXPECT_NE(stencil ? buffer.getStencilTexture() : buffer.getColorTexture(), 0u) << format;
    }
    RecordProperty("format" + std::to_string(format), made ? "made" : "refused");
  }
}

TEST(RenderToBuffer, RefusedCombinationsPostAnErrorAndLeaveNothing) {
  CurrentContext context;
  ASSERT_TRUE(context.isBound());
  struct Case {
    SoGLRenderToBuffer::TextureFormat format;
    SoGLRenderToBuffer::TextureTarget target;
    SbVec2s size;
  };
  const Case refused[] = {
      {SoGLRenderToBuffer::TEXTUREUNKNOW, SoGLRenderToBuffer::TEXTURE2D, SbVec2s(8, 8)},
      {SoGLRenderToBuffer::TEXTURERGBA, SoGLRenderToBuffer::TEXTURE3D, SbVec2s(8, 8)},
      {SoGLRenderToBuffer::TEXTURERGBA, SoGLRenderToBuffer::TEXTURE1D, SbVec2s(8, 2)},
      {SoGLRenderToBuffer::TEXTURERGBA, SoGLRenderToBuffer::TEXTURECUBEMAP, SbVec2s(8, 4)},
      {SoGLRenderToBuffer::TEXTURERGBA, SoGLRenderToBuffer::TEXTURE2D, SbVec2s(0, 8)},
      {SoGLRenderToBuffer::TEXTURERGBA, SoGLRenderToBuffer::TEXTURE2D, SbVec2s(-5, 8)},
      {SoGLRenderToBuffer::TEXTURERGBA, SoGLRenderToBuffer::TEXTURE2D, SbVec2s(32767, 32767)},
      {static_cast<SoGLRenderToBuffer::TextureFormat>(99), SoGLRenderToBuffer::TEXTURE2D, SbVec2s(8, 8)},
  };
  for (const Case& c : refused) {
    GLErrorCatcher errors;
    SoGLRenderToBuffer buffer(c.format, c.target);
    EXPECT_FALSE(buffer.create(c.size)) << c.format << " " << c.target;
    EXPECT_EQ(errors.messages.size(), 1u) << c.format << " " << c.target;
    EXPECT_FALSE(buffer.isValid());
    EXPECT_EQ(buffer.getColorTexture(), 0u);
    EXPECT_FALSE(buffer.bind());
  }
}

TEST(RenderToBuffer, WithoutAContextCreateIsRefused) {
  GLErrorCatcher errors;
  SoGLRenderToBuffer buffer;
  EXPECT_FALSE(buffer.create(SbVec2s(8, 8)));
  ASSERT_EQ(errors.messages.size(), 1u);
  EXPECT_NE(errors.messages[0].find("no OpenGL context"), std::string::npos) << errors.messages[0];
}

}  // namespace
