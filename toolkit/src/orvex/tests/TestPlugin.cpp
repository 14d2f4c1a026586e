// A plug-in for the plug-in tests: each time a copy of it is loaded, it
// counts itself in the global field "testPluginLoads".

#include <Orvex/SoDB.h>
#include <Orvex/fields/SoSFInt32.h>

namespace {

struct CountLoad {
  CountLoad() {
    auto* loads = static_cast<SoSFInt32*>(SoDB::createGlobalField("testPluginLoads", SoSFInt32::getClassTypeId()));
    if (loads) loads->setValue(loads->getValue() + 1);
  }
};

const CountLoad countLoad;

}  // namespace
