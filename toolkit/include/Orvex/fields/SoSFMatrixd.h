#pragma once
#include <Orvex/SbMatrix.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a 4x4 double matrix.
class SoSFMatrixd : public SoSField {
  SO_SFIELD_HEADER(SoSFMatrixd, SbMatrixd, const SbMatrixd&);
};
