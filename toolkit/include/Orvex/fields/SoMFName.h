#pragma once
#include <Orvex/SbName.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a name.
class SoMFName : public SoMField {
  SO_MFIELD_HEADER(SoMFName, SbName, const SbName&);
};
