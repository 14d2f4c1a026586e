#include <ScaleLux/SoScaleLux.h>

#include <Orvex/SoDB.h>

#include "ModuleState.h"

namespace {
orvex::ModuleState s_state;
}

// Distributed rendering needs only the database core.
void SoScaleLux::init() {
  s_state.init([] {
    SoDB::init();
  });
}

bool SoScaleLux::isInitialized() { return s_state.isInitialized(); }

void SoScaleLux::finish() {
  s_state.finish([] {});
}
