#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding a float.
class SoSFFloat : public SoSField {
  SO_SFIELD_HEADER(SoSFFloat, float, float);
};
