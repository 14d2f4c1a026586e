#pragma once
#include <Orvex/fields/SoSubField.h>

class SoEngine;

// A field referring to an engine (or nothing). The field holds a reference
// to the engine and passes the engine's changes on to its own container.
class SoSFEngine : public SoSField {
  SO_SFIELD_HEADER(SoSFEngine, SoEngine*, SoEngine*);

 public:
  void countWriteRefs(SoOutput* out) const override;
  void fixCopy(bool copyConnections) override;
  bool referencesCopy() const override;
};
