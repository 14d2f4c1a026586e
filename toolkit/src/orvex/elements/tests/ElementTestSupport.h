#pragma once
// A traversal state with every element the callback action enables, for
// driving elements directly.

#include <Orvex/SoDB.h>
#include <Orvex/actions/SoCallbackAction.h>
#include <Orvex/misc/SoState.h>

#include <memory>

namespace elementtest {

inline std::unique_ptr<SoState> makeState() {
  SoDB::init();
  return std::make_unique<SoState>(nullptr, SoCallbackAction::getClassEnabledElements()->getElements());
}

}  // namespace elementtest
