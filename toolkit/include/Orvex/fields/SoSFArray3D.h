#pragma once
#include <Orvex/fields/SoSFArray.h>

// A three-dimensional array field.
class SoSFArray3D : public SoSFArray {
  SO_FIELD_HEADER(SoSFArray3D);

 public:
  SoSFArray3D();
  ~SoSFArray3D() override;
};
