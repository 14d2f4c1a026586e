#include <Orvex/fields/SoField.h>

#include <Orvex/fields/SoSFTime.h>
#include <Orvex/fields/SoSField.h>

#include <algorithm>

namespace {
SoType s_fieldType;
}

SoField::SoField() = default;

SoField::~SoField() {
  if (!m_auditors) return;
  const std::vector<SoFieldAuditor*> auditors = *m_auditors;
  for (SoFieldAuditor* a : auditors) a->fieldDestroyed(this);
}

SoType SoField::getClassTypeId() { return s_fieldType; }

void SoField::initClass() {
  SoTypedObject::initClass();
  if (s_fieldType.isBad()) s_fieldType = SoType::createType(SoTypedObject::getClassTypeId(), "Field");
}

void SoField::initClasses() {
  initClass();
  SoSField::initClass();
  SoSFTime::initClass();
}

bool SoField::enableNotify(bool flag) {
  const bool previous = m_notifyEnabled;
  m_notifyEnabled = flag;
  return previous;
}

void SoField::touch() {
  if (m_notifyEnabled) startNotify();
}

void SoField::valueChanged(bool resetDefault) {
  if (resetDefault) m_isDefault = false;
  if (m_notifyEnabled) startNotify();
}

void SoField::addAuditor(SoFieldAuditor* auditor) {
  if (!auditor) return;
  if (!m_auditors) m_auditors = std::make_unique<std::vector<SoFieldAuditor*>>();
  m_auditors->push_back(auditor);
}

void SoField::removeAuditor(SoFieldAuditor* auditor) {
  if (!m_auditors) return;
  auto it = std::find(m_auditors->begin(), m_auditors->end(), auditor);
  if (it != m_auditors->end()) m_auditors->erase(it);
}

void SoField::startNotify() {
  if (!m_auditors) return;
  // A copy: auditors may detach themselves while being told.
  const std::vector<SoFieldAuditor*> auditors = *m_auditors;
  for (SoFieldAuditor* a : auditors) a->fieldChanged(this);
}
