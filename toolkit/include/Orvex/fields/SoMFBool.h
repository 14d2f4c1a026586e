#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a boolean (TRUE or FALSE in files).
class SoMFBool : public SoMField {
  SO_MFIELD_HEADER(SoMFBool, bool, bool);

 protected:
  int getNumValuesPerLine() const override { return 8; }
};
