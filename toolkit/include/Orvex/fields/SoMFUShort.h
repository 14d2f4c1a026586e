#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each an unsigned 16-bit integer.
class SoMFUShort : public SoMField {
  SO_MFIELD_HEADER(SoMFUShort, unsigned short, unsigned short);

 protected:
  int getNumValuesPerLine() const override { return 8; }
};
