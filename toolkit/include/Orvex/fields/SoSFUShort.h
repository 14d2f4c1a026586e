#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding an unsigned 16-bit integer.
class SoSFUShort : public SoSField {
  SO_SFIELD_HEADER(SoSFUShort, unsigned short, unsigned short);
};
