#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding an unsigned 32-bit integer.
class SoSFUInt32 : public SoSField {
  SO_SFIELD_HEADER(SoSFUInt32, uint32_t, uint32_t);
};
