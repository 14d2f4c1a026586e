#pragma once
#include <Orvex/devices/SoGLFormat.h>
#include <Orvex/misc/SoRefCounter.h>

#include <memory>

namespace orvex {
class GLPlatformContext;
struct GLShareGroup;
GLShareGroup* currentShareGroup();
}  // namespace orvex

// An OpenGL rendering context with the drawable it renders into. Contexts
// are reference counted: create one with new, ref() it, and unref() it when
// done (the last unref() destroys it; it must not be current on another
// thread then).
//
// The context renders desktop OpenGL (a compatibility profile). Without a
// window system it is an offscreen context on EGL (Mesa's surfaceless
// platform): its own drawable is minimal, and rendering goes to
// framebuffer objects (see SoOffscreenRenderer).
//
// Contexts created sharing with another share their display lists, textures
// and buffer objects with it and with every context it shares with.
class SoGLContext : public SoRefCounter {
 public:
  // A context with that format, sharing nothing.
  explicit SoGLContext(const SoGLFormat& format);
  // A context with that format sharing lists and objects with `shareWith`
  // (when null, sharing nothing).
  SoGLContext(const SoGLFormat& format, const SoGLContext* shareWith);
  SoGLContext(const SoGLContext&) = delete;
  SoGLContext& operator=(const SoGLContext&) = delete;

  // Whether the platform created the context. An invalid context cannot be
  // bound.
  bool isValid() const;
  // The format the context was created with.
  const SoGLFormat& getFormat() const { return m_format; }

  // Makes the context current on the calling thread, remembering the
  // context that was current before (bind() calls nest). Answers false
  // when it could not (nothing changes then).
  bool bind();
  // Makes the context that was current before the matching bind() current
  // again (or none). Does nothing when this context is not the one bound
  // last on this thread.
  void unbind();
  // Shows what was drawn in the back buffer of a double-buffered drawable;
  // for an offscreen context it finishes the commands sent so far. The
  // context must be current. Marks the display valid again.
  void swapBuffers();

  // Whether the two contexts share lists and objects (a context shares
  // with itself).
  bool isSharedWith(const SoGLContext* other) const;

  // Marks what the drawable shows as out of date, so that whoever draws
  // into this context redraws before showing it.
  void invalidateDisplay();
  // False after invalidateDisplay() until the next swapBuffers().
  bool isDisplayValid() const { return m_displayValid; }

  // The context current on the calling thread through bind(), or null.
  static SoGLContext* getCurrent();

 protected:
  ~SoGLContext() override;

 private:
  // The objects kept for the current context's group live in the group.
  friend orvex::GLShareGroup* orvex::currentShareGroup();

  SoGLFormat m_format;
  std::unique_ptr<orvex::GLPlatformContext> m_platform;
  std::shared_ptr<orvex::GLShareGroup> m_shareGroup;
  bool m_displayValid = false;
};
