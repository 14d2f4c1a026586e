// Offscreen OpenGL contexts: creation without a display server, binding
// (nested), sharing of objects, and extension queries.

#include <Orvex/devices/SoGLContext.h>
#include <Orvex/devices/SoGLExtension.h>
#include <gtest/gtest.h>

#include <GL/gl.h>
#include <GL/glext.h>

#include <cstdlib>
#include <cstring>

namespace {

// Holds one reference for the test's duration.
struct ContextRef {
  explicit ContextRef(SoGLContext* c) : ctx(c) { ctx->ref(); }
  ~ContextRef() { ctx->unref(); }
  SoGLContext* operator->() const { return ctx; }
  SoGLContext* get() const { return ctx; }
  SoGLContext* ctx;
};

TEST(SoGLContext, CreatesDesktopGLWithoutDisplay) {
  const char* display = std::getenv("DISPLAY");
  EXPECT_TRUE(display == nullptr || *display == '\0');
  ContextRef ctx(new SoGLContext(SoGLFormat()));
  ASSERT_TRUE(ctx->isValid());
  EXPECT_EQ(SoGLContext::getCurrent(), nullptr);
  ASSERT_TRUE(ctx->bind());
  EXPECT_EQ(SoGLContext::getCurrent(), ctx.get());
  const char* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
  ASSERT_NE(version, nullptr);
  // Desktop OpenGL: an OpenGL ES version string starts with "OpenGL ES".
  EXPECT_NE(std::strstr(version, "OpenGL ES"), version);
  GLint major = 0;
  glGetIntegerv(GL_MAJOR_VERSION, &major);
  EXPECT_GE(major, 3);
  ctx->unbind();
  EXPECT_EQ(SoGLContext::getCurrent(), nullptr);
}

TEST(SoGLContext, BindNestsAndUnbindRestores) {
  ContextRef a(new SoGLContext(SoGLFormat()));
  ContextRef b(new SoGLContext(SoGLFormat()));
  ASSERT_TRUE(a->bind());
  ASSERT_TRUE(b->bind());
  EXPECT_EQ(SoGLContext::getCurrent(), b.get());
  // Not the last bound: ignored.
  a->unbind();
  EXPECT_EQ(SoGLContext::getCurrent(), b.get());
  b->unbind();
  EXPECT_EQ(SoGLContext::getCurrent(), a.get());
  a->unbind();
  EXPECT_EQ(SoGLContext::getCurrent(), nullptr);
}

TEST(SoGLContext, SharedContextsSeeTheSameObjects) {
  ContextRef a(new SoGLContext(SoGLFormat()));
  ContextRef b(new SoGLContext(SoGLFormat(), a.get()));
  ContextRef c(new SoGLContext(SoGLFormat()));
  EXPECT_TRUE(a->isSharedWith(b.get()));
  EXPECT_TRUE(b->isSharedWith(a.get()));
  EXPECT_TRUE(a->isSharedWith(a.get()));
  EXPECT_FALSE(a->isSharedWith(c.get()));
  EXPECT_FALSE(a->isSharedWith(nullptr));

  ASSERT_TRUE(a->bind());
  GLuint texture = 0;
  glGenTextures(1, &texture);
  glBindTexture(GL_TEXTURE_2D, texture);
  const unsigned char texel[4] = {1, 2, 3, 4};
  glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, texel);
  glFinish();
  a->unbind();

  ASSERT_TRUE(b->bind());
  EXPECT_EQ(glIsTexture(texture), GL_TRUE);
  b->unbind();
  ASSERT_TRUE(c->bind());
  EXPECT_EQ(glIsTexture(texture), GL_FALSE);
  c->unbind();

  ASSERT_TRUE(a->bind());
  glDeleteTextures(1, &texture);
  a->unbind();
}

TEST(SoGLContext, DisplayValidity) {
  ContextRef ctx(new SoGLContext(SoGLFormat()));
  ASSERT_TRUE(ctx->bind());
  ctx->swapBuffers();
  EXPECT_TRUE(ctx->isDisplayValid());
  ctx->invalidateDisplay();
  EXPECT_FALSE(ctx->isDisplayValid());
  ctx->swapBuffers();
  EXPECT_TRUE(ctx->isDisplayValid());
  ctx->unbind();
}

TEST(SoGLExtension, AnswersForTheCurrentContext) {
  EXPECT_FALSE(SoGLExtension::isAvailable("GL_ARB_framebuffer_object"));
  ContextRef ctx(new SoGLContext(SoGLFormat()));
  ASSERT_TRUE(ctx->bind());
  // Mesa's desktop drivers all offer framebuffer objects.
  EXPECT_TRUE(SoGLExtension::isAvailable("GL_ARB_framebuffer_object"));
  EXPECT_FALSE(SoGLExtension::isAvailable("GL_ARB_framebuffer"));
  EXPECT_FALSE(SoGLExtension::isAvailable("GL_NOT_AN_EXTENSION"));
  EXPECT_FALSE(SoGLExtension::isAvailable(""));
  EXPECT_FALSE(SoGLExtension::isAvailable(nullptr));
  ctx->unbind();
}

TEST(SoGLFormat, DefaultsAndComparison) {
  SoGLFormat f;
  EXPECT_EQ(f.getColorBits(), 8);
  EXPECT_EQ(f.getDepthBits(), 24);
  EXPECT_TRUE(f.isDoubleBuffer());
  SoGLFormat g = f;
  EXPECT_EQ(f, g);
  g.setSamples(4);
  EXPECT_NE(f, g);
  EXPECT_EQ(g.getSamples(), 4);
}

}  // namespace
