#pragma once
#include <Orvex/SbString.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a string (quoted in files).
class SoSFString : public SoSField {
  SO_SFIELD_HEADER(SoSFString, SbString, const SbString&);
};
