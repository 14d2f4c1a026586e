#pragma once
#include <Orvex/SbString.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a string (quoted in files).
class SoMFString : public SoMField {
  SO_MFIELD_HEADER(SoMFString, SbString, const SbString&);
};
