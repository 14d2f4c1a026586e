#pragma once
#include <Orvex/SbTime.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a time in seconds.
class SoSFTime : public SoSField {
  SO_SFIELD_HEADER(SoSFTime, SbTime, const SbTime&);
};
