#include <RemoteLux/RemoteLuxClient.h>

#include <Orvex/SoDB.h>

#include "ModuleState.h"

namespace {
orvex::ModuleState s_state;
}

// The remote-rendering client needs only the database core.
void RemoteLuxClient::init() {
  s_state.init([] {
    SoDB::init();
  });
}

bool RemoteLuxClient::isInitialized() { return s_state.isInitialized(); }

void RemoteLuxClient::finish() {
  s_state.finish([] {});
}
