#include <Orvex/SoInteraction.h>

#include <Orvex/SoDB.h>
#include <Orvex/nodekits/SoNodeKit.h>

#include "ModuleState.h"

namespace {
orvex::ModuleState s_state;
}

// Draggers and manipulators are node kits, so the node kits come first.
void SoInteraction::init() {
  s_state.init([] {
    SoDB::init();
    SoNodeKit::init();
  });
}

bool SoInteraction::isInitialized() { return s_state.isInitialized(); }

void SoInteraction::finish() {
  s_state.finish([] { SoNodeKit::finish(); });
}
