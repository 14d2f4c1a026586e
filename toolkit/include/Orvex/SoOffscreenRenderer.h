#pragma once
#include <Orvex/SbColor.h>
#include <Orvex/SbVec2s.h>
#include <Orvex/SbViewportRegion.h>

#include <cstddef>
#include <memory>
#include <vector>

class SoGLContext;
class SoGLRenderAction;
class SoNode;
class SoPath;

namespace orvex {
class GLFramebuffer;
}

// Renders a scene graph into memory, without a window: into a framebuffer
// object of an offscreen OpenGL context that the renderer owns. The
// picture can then be read from getBuffer() or written to a PNG or JPEG
// file.
//
// The size of the picture is the window size of the viewport region; the
// scene is drawn into the region's viewport within it, over the background
// colour. Sizes beyond getMaximumResolution() are refused for now (drawing
// them tile by tile is not done yet).
class SoOffscreenRenderer {
 public:
  // The channels of each pixel in the buffer, one byte each. LUMINANCE is
  // 0.299 red + 0.587 green + 0.114 blue (rounded). RGBA is another name
  // for RGBTRANSPARENCY: red, green, blue, alpha.
  enum Components { LUMINANCE = 1, LUMINANCETRANSPARENCY = 2, RGB = 3, RGBTRANSPARENCY = 4, RGBA = 4 };
  // What a buffer holds: raw pixels, or a JPEG-compressed picture.
  enum BufferTypes { RGBBUFFER, JPEGBUFFER };
  // What a rendering in several tiles can be told after each tile: stop,
  // or go on.
  enum AbortCodes { ABORT, CONTINUE };

  // A renderer with its own render action, drawing into `viewportRegion`.
  explicit SoOffscreenRenderer(const SbViewportRegion& viewportRegion);
  // A renderer drawing with `action` (which stays the caller's and must
  // outlive the renderer or be replaced first), into the action's region.
  explicit SoOffscreenRenderer(SoGLRenderAction* action);
  ~SoOffscreenRenderer();
  SoOffscreenRenderer(const SoOffscreenRenderer&) = delete;
  SoOffscreenRenderer& operator=(const SoOffscreenRenderer&) = delete;

  // The size of the picture (window size) and where the scene goes in it.
  void setViewportRegion(const SbViewportRegion& region);
  const SbViewportRegion& getViewportRegion() const { return m_viewport; }

  // The colour of the pixels nothing is drawn on; their alpha is 0.
  // Black by default.
  void setBackgroundColor(const SbColor& color) { m_background = color; }
  const SbColor& getBackgroundColor() const { return m_background; }

  // The channels of the buffer and of the files written; RGB by default.
  void setComponents(Components components) { m_components = components; }
  Components getComponents() const { return m_components; }

  // The action that draws (the renderer's own unless one was given).
  // Passing null goes back to the renderer's own action.
  void setGLRenderAction(SoGLRenderAction* action);
  SoGLRenderAction* getGLRenderAction() const;

  // Draws the graph, or the path, and reads the picture into the buffer.
  // Answers false when nothing could be drawn (no OpenGL context, a size
  // beyond the maximum, a null argument); the buffer is then empty.
  bool render(SoNode* scene);
  bool render(SoPath* scene);

  // The picture of the last successful render(): getComponents() bytes per
  // pixel, rows one after the other without padding, from the bottom row
  // of the picture up to the top one (the order OpenGL reads them in).
  // Null before a successful render.
  const unsigned char* getBuffer() const;
  // The size of the buffer in bytes: width * height * components.
  size_t getBufferSize() const { return m_buffer.size(); }

  // Writes the picture of the last render as a PNG file (top row first, as
  // the format wants), with the buffer's components. False on failure or
  // before a successful render.
  bool writeToPNG(const char* filename) const;
  // Writes the picture as a JPEG file of that quality (0 to 1); alpha is
  // left out, luminance gives a grey-scale file. False on failure or
  // before a successful render.
  bool writeToJPEG(const char* filename, float quality = 0.75f) const;

  // The largest width and height this machine's OpenGL renders offscreen
  // in one piece; (0, 0) when no OpenGL context can be made.
  static SbVec2s getMaximumResolution();

 private:
  bool renderGraph(SoNode* node, SoPath* path);
  bool prepare();
  void readPixels(int width, int height);

  SbViewportRegion m_viewport;
  SbColor m_background{0.0f, 0.0f, 0.0f};
  Components m_components = RGB;
  std::unique_ptr<SoGLRenderAction> m_ownAction;
  SoGLRenderAction* m_userAction = nullptr;
  SoGLContext* m_context = nullptr;  // referenced
  std::unique_ptr<orvex::GLFramebuffer> m_framebuffer;
  std::vector<unsigned char> m_buffer;
  int m_bufferWidth = 0;
  int m_bufferHeight = 0;
};
