#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a double.
class SoMFDouble : public SoMField {
  SO_MFIELD_HEADER(SoMFDouble, double, double);

 protected:
  int getNumValuesPerLine() const override { return 8; }
};
