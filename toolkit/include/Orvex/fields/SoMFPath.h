#pragma once
#include <Orvex/fields/SoSubField.h>

class SoPath;

// A field referring to any number of paths.
class SoMFPath : public SoMField {
  SO_MFIELD_HEADER(SoMFPath, SoPath*, SoPath*);

 public:
  void countWriteRefs(SoOutput* out) const override;
  void fixCopy(bool copyConnections) override;
  bool referencesCopy() const override;
};
