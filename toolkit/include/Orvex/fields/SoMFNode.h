#pragma once
#include <Orvex/fields/SoSubField.h>

class SoNode;

// A field referring to any number of nodes; each is referenced while held.
class SoMFNode : public SoMField {
  SO_MFIELD_HEADER(SoMFNode, SoNode*, SoNode*);

 public:
  void addNode(SoNode* node);
  void insertNode(SoNode* node, int newNodeIndex);
  SoNode* getNode(int index) const;
  int findNode(const SoNode* node) const;
  int getNumNodes() const { return num; }
  void removeNode(int index);
  void removeNode(SoNode* node);
  void removeAllNodes();
  void replaceNode(int index, SoNode* newNode);
  void replaceNode(SoNode* oldNode, SoNode* newNode);

  void countWriteRefs(SoOutput* out) const override;
  void fixCopy(bool copyConnections) override;
  bool referencesCopy() const override;
};
