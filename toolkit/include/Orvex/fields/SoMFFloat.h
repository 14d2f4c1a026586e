#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a float.
class SoMFFloat : public SoMField {
  SO_MFIELD_HEADER(SoMFFloat, float, float);

 protected:
  int getNumValuesPerLine() const override { return 8; }
};
