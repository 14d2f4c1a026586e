#pragma once
#include <Orvex/SbTime.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a time in seconds.
class SoMFTime : public SoMField {
  SO_MFIELD_HEADER(SoMFTime, SbTime, const SbTime&);
};
