#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding a 32-bit integer.
class SoSFInt32 : public SoSField {
  SO_SFIELD_HEADER(SoSFInt32, int32_t, int32_t);
};
