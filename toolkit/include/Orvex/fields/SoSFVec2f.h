#pragma once
#include <Orvex/SbVec2f.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbVec2f vector.
class SoSFVec2f : public SoSField {
  SO_SFIELD_HEADER(SoSFVec2f, SbVec2f, const SbVec2f&);

 public:
  void setValue(float x, float y);
  void setValue(const float v[2]);
};
