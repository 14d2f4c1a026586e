#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding a 16-bit integer.
class SoSFShort : public SoSField {
  SO_SFIELD_HEADER(SoSFShort, short, short);
};
