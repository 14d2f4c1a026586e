#include <MeshLux/PoMeshLux.h>

#include <Orvex/SoDB.h>
#include <Orvex/nodekits/SoNodeKit.h>

#include "ModuleState.h"

namespace {
orvex::ModuleState s_state;
}

// Mesh representations are node kits.
void PoMeshLux::init() {
  s_state.init([] {
    SoDB::init();
    SoNodeKit::init();
  });
}

bool PoMeshLux::isInitialized() { return s_state.isInitialized(); }

void PoMeshLux::finish() {
  s_state.finish([] { SoNodeKit::finish(); });
}
