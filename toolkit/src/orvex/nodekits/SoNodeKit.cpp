#include <Orvex/nodekits/SoNodeKit.h>

#include <Orvex/SoDB.h>

#include "../ModuleState.h"

namespace {
orvex::ModuleState s_state;
}

// The node-kit classes register here as they join the toolkit.
void SoNodeKit::init() {
  s_state.init([] { SoDB::init(); });
}

bool SoNodeKit::isInitialized() { return s_state.isInitialized(); }

void SoNodeKit::finish() {
  s_state.finish([] {});
}
