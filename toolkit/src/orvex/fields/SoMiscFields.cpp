// The trigger field and the file-name string fields.

#include <Orvex/fields/SoMFFilePathString.h>
#include <Orvex/fields/SoSFFilePathString.h>
#include <Orvex/fields/SoSFTrigger.h>

#include "FieldSource.h"

SO_FIELD_SOURCE(SoSFTrigger, SoSField, "SFTrigger")
SoSFTrigger::SoSFTrigger() = default;
SoSFTrigger::~SoSFTrigger() = default;
SoSFTrigger& SoSFTrigger::operator=(const SoSFTrigger&) {
  touch();
  return *this;
}
// A trigger has no value: nothing to read or write.
bool SoSFTrigger::readValue(SoInput*) { return true; }
void SoSFTrigger::writeValue(SoOutput*) const {}

SO_FIELD_SOURCE(SoSFFilePathString, SoSFString, "SFFilePathString")
SoSFFilePathString::SoSFFilePathString() = default;
SoSFFilePathString::~SoSFFilePathString() = default;
SoSFFilePathString& SoSFFilePathString::operator=(const SoSFFilePathString& f) {
  SoSFString::operator=(f);
  return *this;
}

SO_FIELD_SOURCE(SoMFFilePathString, SoMFString, "MFFilePathString")
SoMFFilePathString::SoMFFilePathString() = default;
SoMFFilePathString::~SoMFFilePathString() = default;
SoMFFilePathString& SoMFFilePathString::operator=(const SoMFFilePathString& f) {
  SoMFString::operator=(f);
  return *this;
}
