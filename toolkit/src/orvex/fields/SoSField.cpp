#include <Orvex/fields/SoSField.h>

namespace {
SoType s_sfieldType;
}

SoType SoSField::getClassTypeId() { return s_sfieldType; }

void SoSField::initClass() {
  SoField::initClass();
  if (s_sfieldType.isBad()) s_sfieldType = SoType::createType(SoField::getClassTypeId(), "SField");
}
