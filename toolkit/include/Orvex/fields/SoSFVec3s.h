#pragma once
#include <Orvex/SbVec3s.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbVec3s vector.
class SoSFVec3s : public SoSField {
  SO_SFIELD_HEADER(SoSFVec3s, SbVec3s, const SbVec3s&);

 public:
  void setValue(short x, short y, short z);
  void setValue(const short v[3]);
};
