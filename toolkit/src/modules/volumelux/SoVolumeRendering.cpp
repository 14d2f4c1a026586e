#include <VolumeLux/SoVolumeRendering.h>

#include <Orvex/SoDB.h>
#include <Orvex/SoInteraction.h>

#include "ModuleState.h"

namespace {
orvex::ModuleState s_state;
}

// Volume slices and regions are moved with draggers, so interaction comes first.
void SoVolumeRendering::init() {
  s_state.init([] {
    SoDB::init();
    SoInteraction::init();
  });
}

bool SoVolumeRendering::isInitialized() { return s_state.isInitialized(); }

void SoVolumeRendering::finish() {
  s_state.finish([] { SoInteraction::finish(); });
}
