#pragma once
#include <Orvex/fields/SoSubField.h>

class SoNode;

// A field referring to a node (or nothing). The field holds a reference to
// the node and passes the node's changes on to its own container. In files
// the value is a node, "USE name" or "NULL".
class SoSFNode : public SoSField {
  SO_SFIELD_HEADER(SoSFNode, SoNode*, SoNode*);

 public:
  void countWriteRefs(SoOutput* out) const override;
  void fixCopy(bool copyConnections) override;
  bool referencesCopy() const override;
};
