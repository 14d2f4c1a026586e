#pragma once
#include <Orvex/fields/SoSubField.h>

class SoEngine;

// A field referring to any number of engines.
class SoMFEngine : public SoMField {
  SO_MFIELD_HEADER(SoMFEngine, SoEngine*, SoEngine*);

 public:
  void countWriteRefs(SoOutput* out) const override;
  void fixCopy(bool copyConnections) override;
  bool referencesCopy() const override;
};
