#pragma once
#include <Orvex/SbVec2i32.h>

#include <cstddef>

// One tile of a picture that SoOffscreenRenderer draws in several pieces
// (see SoOffscreenRenderer::setMaxTileSize()): where it lies in the
// picture, and its pixels while an SoOffscreenTileObserver looks at it.
class SoOffscreenTileProperty {
 public:
  SoOffscreenTileProperty() = default;

  // The tile's lower-left corner in the picture, in pixels from the
  // picture's lower-left corner, and its width and height.
  const SbVec2i32& getOrigin() const { return m_origin; }
  const SbVec2i32& getSize() const { return m_size; }
  // Column and row of the tile (from the lower left, columns first), and
  // how many columns and rows the picture has.
  const SbVec2i32& getIndex() const { return m_index; }
  const SbVec2i32& getNumTiles() const { return m_numTiles; }
  // The size of the whole picture.
  const SbVec2i32& getPictureSize() const { return m_pictureSize; }

  // The tile's pixels, laid out like the renderer's buffer (components
  // bytes per pixel, rows from the bottom up, no padding); valid during
  // the observer's call only. Null when not set.
  const unsigned char* getBuffer() const { return m_buffer; }
  size_t getBufferSize() const { return m_bufferSize; }
  int getNumComponents() const { return m_components; }

  void setOrigin(const SbVec2i32& origin) { m_origin = origin; }
  void setSize(const SbVec2i32& size) { m_size = size; }
  void setIndex(const SbVec2i32& index) { m_index = index; }
  void setNumTiles(const SbVec2i32& numTiles) { m_numTiles = numTiles; }
  void setPictureSize(const SbVec2i32& size) { m_pictureSize = size; }
  void setBuffer(const unsigned char* buffer, size_t size, int components) {
    m_buffer = buffer;
    m_bufferSize = size;
    m_components = components;
  }

 private:
  SbVec2i32 m_origin{0, 0};
  SbVec2i32 m_size{0, 0};
  SbVec2i32 m_index{0, 0};
  SbVec2i32 m_numTiles{0, 0};
  SbVec2i32 m_pictureSize{0, 0};
  const unsigned char* m_buffer = nullptr;
  size_t m_bufferSize = 0;
  int m_components = 0;
};
