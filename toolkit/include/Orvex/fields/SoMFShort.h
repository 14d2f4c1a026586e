#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a 16-bit integer.
class SoMFShort : public SoMField {
  SO_MFIELD_HEADER(SoMFShort, short, short);

 protected:
  int getNumValuesPerLine() const override { return 8; }
};
