#include <Orvex/gui/SoGui.h>

#include <Orvex/SoDB.h>
#include <Orvex/SoInteraction.h>

#include "ModuleState.h"

namespace {
orvex::ModuleState s_state;
}

// Viewers carry draggers and manipulators, so interaction comes up first.
void SoGui::init() {
  s_state.init([] {
    SoDB::init();
    SoInteraction::init();
  });
}

bool SoGui::isInitialized() { return s_state.isInitialized(); }

void SoGui::finish() {
  s_state.finish([] { SoInteraction::finish(); });
}
