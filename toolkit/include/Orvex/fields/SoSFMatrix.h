#pragma once
#include <Orvex/SbMatrix.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a 4x4 float matrix (16 values, row by row).
class SoSFMatrix : public SoSField {
  SO_SFIELD_HEADER(SoSFMatrix, SbMatrix, const SbMatrix&);
};
