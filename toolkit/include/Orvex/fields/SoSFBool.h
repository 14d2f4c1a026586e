#pragma once
#include <Orvex/fields/SoSubField.h>

// A field holding a boolean (TRUE or FALSE in files).
class SoSFBool : public SoSField {
  SO_SFIELD_HEADER(SoSFBool, bool, bool);
};
