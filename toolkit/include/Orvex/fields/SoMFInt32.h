#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a 32-bit integer.
class SoMFInt32 : public SoMField {
  SO_MFIELD_HEADER(SoMFInt32, int32_t, int32_t);

 protected:
  int getNumValuesPerLine() const override { return 8; }
};
