#pragma once
#include <Orvex/fields/SoSubField.h>

class SoPath;

// A field referring to a path (or nothing); changes of the path reach the
// field's container.
class SoSFPath : public SoSField {
  SO_SFIELD_HEADER(SoSFPath, SoPath*, SoPath*);

 public:
  void countWriteRefs(SoOutput* out) const override;
  void fixCopy(bool copyConnections) override;
  bool referencesCopy() const override;
};
