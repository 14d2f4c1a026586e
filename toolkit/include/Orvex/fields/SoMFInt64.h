#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a 64-bit integer.
class SoMFInt64 : public SoMField {
  SO_MFIELD_HEADER(SoMFInt64, int64_t, int64_t);

 protected:
  int getNumValuesPerLine() const override { return 8; }
};
