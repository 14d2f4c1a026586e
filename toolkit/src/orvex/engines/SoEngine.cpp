#include <Orvex/engines/SoEngine.h>

namespace {
SoType s_engineType;
}

SoEngine::SoEngine() = default;
SoEngine::~SoEngine() = default;

SoType SoEngine::getClassTypeId() { return s_engineType; }

void SoEngine::initClass() {
  SoFieldContainer::initClass();
  if (s_engineType.isBad()) s_engineType = SoType::createType(SoFieldContainer::getClassTypeId(), "Engine");
}
