#pragma once
#include <Orvex/SbMatrix.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a 4x4 float matrix (16 values, row by row).
class SoMFMatrix : public SoMField {
  SO_MFIELD_HEADER(SoMFMatrix, SbMatrix, const SbMatrix&);
};
