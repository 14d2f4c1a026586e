#pragma once
#include <Orvex/SbMatrix.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a 4x4 double matrix.
class SoMFMatrixd : public SoMField {
  SO_MFIELD_HEADER(SoMFMatrixd, SbMatrixd, const SbMatrixd&);
};
