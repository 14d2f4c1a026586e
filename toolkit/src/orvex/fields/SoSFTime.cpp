#include <Orvex/fields/SoSFTime.h>

namespace {
SoType s_sfTimeType;
}

SoType SoSFTime::getClassTypeId() { return s_sfTimeType; }
SoType SoSFTime::getTypeId() const { return s_sfTimeType; }

void SoSFTime::initClass() {
  SoSField::initClass();
  if (s_sfTimeType.isBad())
    s_sfTimeType = SoType::createType(SoSField::getClassTypeId(), "SFTime", &SoSFTime::createInstance);
}

void* SoSFTime::createInstance() { return static_cast<SoField*>(new SoSFTime); }

void SoSFTime::setValue(const SbTime& value) {
  m_value = value;
  valueChanged();
}
