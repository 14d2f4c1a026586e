#pragma once
#include <Orvex/SbVec4f.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbVec4f vector.
class SoSFVec4f : public SoSField {
  SO_SFIELD_HEADER(SoSFVec4f, SbVec4f, const SbVec4f&);

 public:
  void setValue(float x, float y, float z, float w);
  void setValue(const float v[4]);
};
