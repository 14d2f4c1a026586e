#pragma once
#include <Orvex/SbVec2s.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbVec2s vector.
class SoSFVec2s : public SoSField {
  SO_SFIELD_HEADER(SoSFVec2s, SbVec2s, const SbVec2s&);

 public:
  void setValue(short x, short y);
  void setValue(const short v[2]);
};
