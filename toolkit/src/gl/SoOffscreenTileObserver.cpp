#include <Orvex/SoOffscreenTileObserver.h>

SoOffscreenRenderer::AbortCodes SoOffscreenTileObserver::tileRendered(const SoOffscreenTileProperty&) {
  return SoOffscreenRenderer::CONTINUE;
}
