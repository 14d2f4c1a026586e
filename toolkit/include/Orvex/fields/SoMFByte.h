#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each an 8-bit integer.
class SoMFByte : public SoMField {
  SO_MFIELD_HEADER(SoMFByte, int8_t, int8_t);

 protected:
  int getNumValuesPerLine() const override { return 8; }
};
