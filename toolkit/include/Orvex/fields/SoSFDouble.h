#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding a double.
class SoSFDouble : public SoSField {
  SO_SFIELD_HEADER(SoSFDouble, double, double);
};
