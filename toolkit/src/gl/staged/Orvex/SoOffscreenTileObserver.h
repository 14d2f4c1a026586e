#pragma once
#include <Orvex/SoOffscreenRenderer.h>
#include <Orvex/SoOffscreenTileProperty.h>

// Told by an SoOffscreenRenderer about each tile it has drawn and read,
// bottom row of tiles first, left to right; it may stop the rendering.
// Derive from it and override tileRendered(); the renderer does not own
// its observer.
class SoOffscreenTileObserver {
 public:
  SoOffscreenTileObserver() = default;
  virtual ~SoOffscreenTileObserver() = default;
  SoOffscreenTileObserver(const SoOffscreenTileObserver&) = delete;
  SoOffscreenTileObserver& operator=(const SoOffscreenTileObserver&) = delete;

  // Called once the tile's pixels are in the renderer's buffer (and in
  // tile.getBuffer()). CONTINUE (the default) goes on with the next tile;
  // ABORT ends the rendering, which then reports failure.
  virtual SoOffscreenRenderer::AbortCodes tileRendered(const SoOffscreenTileProperty& tile);
};
