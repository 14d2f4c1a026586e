#pragma once
#include <Orvex/fields/SoSubField.h>

class SoFieldContainer;

// A field referring to any field container (a node, an engine...).
class SoSFFieldContainer : public SoSField {
  SO_SFIELD_HEADER(SoSFFieldContainer, SoFieldContainer*, SoFieldContainer*);

 public:
  void countWriteRefs(SoOutput* out) const override;
  void fixCopy(bool copyConnections) override;
  bool referencesCopy() const override;
};
