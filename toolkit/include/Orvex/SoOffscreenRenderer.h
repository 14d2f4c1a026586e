#pragma once
#include <Orvex/SbColor.h>
#include <Orvex/SbVec2i32.h>
#include <Orvex/SbVec2s.h>
#include <Orvex/SbViewportRegion.h>

#include <cstddef>
#include <memory>
#include <vector>

class SoGLContext;
class SoGLRenderAction;
class SoOffscreenTileObserver;
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
// colour. A picture wider or taller than the tile size (getMaxTileSize(),
// at most getMaximumResolution()) is drawn in tiles, each with the part of
// the projection that falls on it, and put together in the buffer; an
// SoOffscreenTileObserver can look at each tile and stop the rendering.
class SoOffscreenRenderer {
 public:
  // The channels of each pixel in the buffer, one byte each (see
  // getNumComponents()). LUMINANCE is 0.299 red + 0.587 green + 0.114 blue
  // (rounded). The ...TRANSPARENCY kinds add the alpha channel; RGBA holds
  // the same four channels as RGBTRANSPARENCY. Alpha is 0 where nothing
  // was drawn and the opacity of what was drawn elsewhere.
  enum Components { LUMINANCE = 1, LUMINANCETRANSPARENCY = 2, RGB = 3, RGBTRANSPARENCY = 4, RGBA = 5 };
  // What the buffer holds after render(): the raw pixels, or the picture
  // as a JPEG file's bytes (grey or RGB, without alpha).
  enum BufferTypes { RGBBUFFER, JPEGBUFFER };
  // What a tile observer answers after each tile: stop, or go on.
  enum AbortCodes { ABORT, CONTINUE };

  // The bytes per pixel of a kind of components: 1 to 4.
  static int getNumComponents(Components components);

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

  // Raw pixels (the default) or JPEG bytes in the buffer.
  void setBufferType(BufferTypes type) { m_bufferType = type; }
  BufferTypes getBufferType() const { return m_bufferType; }
  // The JPEG quality (0 to 1, default 0.75) of a JPEGBUFFER buffer.
  void setJPEGQuality(float quality) { m_jpegQuality = quality; }
  float getJPEGQuality() const { return m_jpegQuality; }

  // The largest tile drawn in one piece; a component of 0 or less (the
  // default) stands for getMaximumResolution(), and so does anything
  // larger than it.
  void setMaxTileSize(const SbVec2s& size) { m_maxTileSize = size; }
  SbVec2s getMaxTileSize() const;
  // Told about each tile as it is done (the renderer does not own it);
  // null for none.
  void setTileObserver(SoOffscreenTileObserver* observer) { m_tileObserver = observer; }
  SoOffscreenTileObserver* getTileObserver() const { return m_tileObserver; }

  // The action that draws (the renderer's own unless one was given).
  // Passing null goes back to the renderer's own action.
  void setGLRenderAction(SoGLRenderAction* action);
  SoGLRenderAction* getGLRenderAction() const;

  // Draws the graph, or the path, and reads the picture into the buffer.
  // Answers false when nothing could be drawn (no OpenGL context, an empty
  // size, a null argument, memory for the picture short) or when the tile
  // observer stopped the rendering; the buffer is then empty.
  bool render(SoNode* scene);
  bool render(SoPath* scene);

  // The picture of the last successful render(): getNumComponents() bytes
  // per pixel, rows one after the other without padding, from the bottom
  // row of the picture up to the top one (the order OpenGL reads them in);
  // with JPEGBUFFER, the bytes of a JPEG file. Null before a successful
  // render.
  const unsigned char* getBuffer() const;
  // The size of the buffer in bytes: width * height * components for raw
  // pixels.
  size_t getBufferSize() const;

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
  // Draws the tile at (x, y) of size (width, height) of the picture and
  // copies it into the buffer; false when the observer aborts.
  bool renderTile(SoNode* node, SoPath* path, const SbVec2i32& origin, const SbVec2i32& size,
                  const SbVec2i32& index, const SbVec2i32& numTiles);
  bool finishBuffer();

  SbViewportRegion m_viewport;
  SbColor m_background{0.0f, 0.0f, 0.0f};
  Components m_components = RGB;
  BufferTypes m_bufferType = RGBBUFFER;
  float m_jpegQuality = 0.75f;
  SbVec2s m_maxTileSize{0, 0};
  SoOffscreenTileObserver* m_tileObserver = nullptr;
  std::vector<unsigned char> m_tilePixels;  // one tile as read, RGBA
  std::vector<unsigned char> m_jpeg;        // the picture as JPEG bytes (JPEGBUFFER)
  std::unique_ptr<SoGLRenderAction> m_ownAction;
  SoGLRenderAction* m_userAction = nullptr;
  SoGLContext* m_context = nullptr;  // referenced
  std::unique_ptr<orvex::GLFramebuffer> m_framebuffer;
  std::vector<unsigned char> m_buffer;
  int m_bufferWidth = 0;
  int m_bufferHeight = 0;
};
