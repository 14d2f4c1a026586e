#pragma once
#include <Orvex/fields/SoSubField.h>

class SoFieldContainer;

// A field referring to any number of field containers.
class SoMFFieldContainer : public SoMField {
  SO_MFIELD_HEADER(SoMFFieldContainer, SoFieldContainer*, SoFieldContainer*);

 public:
  void addFieldContainer(SoFieldContainer* container);
  void insertFieldContainer(SoFieldContainer* container, int newIndex);
  SoFieldContainer* getFieldContainer(int index) const;
  int findFieldContainer(const SoFieldContainer* container) const;
  int getNumFieldContainers() const { return num; }
  void removeFieldContainer(int index);
  void removeFieldContainer(SoFieldContainer* container);
  void removeAllFieldContainers();
  void replaceFieldContainer(int index, SoFieldContainer* newContainer);
  void replaceFieldContainer(SoFieldContainer* oldContainer, SoFieldContainer* newContainer);

  void countWriteRefs(SoOutput* out) const override;
  void fixCopy(bool copyConnections) override;
  bool referencesCopy() const override;
};
