#pragma once
#include <Orvex/SbVec3f.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbVec3f vector.
class SoSFVec3f : public SoSField {
  SO_SFIELD_HEADER(SoSFVec3f, SbVec3f, const SbVec3f&);

 public:
  void setValue(float x, float y, float z);
  void setValue(const float v[3]);
};
