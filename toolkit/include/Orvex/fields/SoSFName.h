#pragma once
#include <Orvex/SbName.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a name.
class SoSFName : public SoSField {
  SO_SFIELD_HEADER(SoSFName, SbName, const SbName&);
};
