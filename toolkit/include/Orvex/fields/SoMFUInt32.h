#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each an unsigned 32-bit integer.
class SoMFUInt32 : public SoMField {
  SO_MFIELD_HEADER(SoMFUInt32, uint32_t, uint32_t);

 protected:
  int getNumValuesPerLine() const override { return 8; }
};
