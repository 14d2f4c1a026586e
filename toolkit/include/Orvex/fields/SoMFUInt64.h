#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each an unsigned 64-bit integer.
class SoMFUInt64 : public SoMField {
  SO_MFIELD_HEADER(SoMFUInt64, uint64_t, uint64_t);

 protected:
  int getNumValuesPerLine() const override { return 8; }
};
