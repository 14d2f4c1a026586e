#include <ImageLux/SoImageLux.h>

#include <Orvex/SoDB.h>
#include <VolumeLux/SoVolumeRendering.h>

#include "ModuleState.h"

namespace {
orvex::ModuleState s_state;
}

// Images are shown as volume data, so volume rendering comes first.
void SoImageLux::init() {
  s_state.init([] {
    SoDB::init();
    SoVolumeRendering::init();
  });
}

bool SoImageLux::isInitialized() { return s_state.isInitialized(); }

void SoImageLux::finish() {
  s_state.finish([] { SoVolumeRendering::finish(); });
}
