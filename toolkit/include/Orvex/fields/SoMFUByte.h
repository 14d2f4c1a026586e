#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each an unsigned 8-bit integer.
class SoMFUByte : public SoMField {
  SO_MFIELD_HEADER(SoMFUByte, uint8_t, uint8_t);

 protected:
  int getNumValuesPerLine() const override { return 8; }
};
