#pragma once
#include <Orvex/SbName.h>
#include <Orvex/fields/SoSubField.h>

#include <memory>

struct SoEnumTable;

// A field holding any number of values of an enumeration, written by name.
class SoMFEnum : public SoMField {
  SO_MFIELD_HEADER(SoMFEnum, int, int);

 public:
  void setValue(const SbName& name);
  void set1Value(int index, const SbName& name);
  void setEnums(int num, const int* vals, const SbName* names);
  void setEnumTable(std::shared_ptr<const SoEnumTable> table);
  int getNumEnums() const;
  int getEnum(int index, SbName& name) const;
  bool findEnumValue(const SbName& name, int& val) const;
  bool findEnumName(int val, SbName& name) const;

 protected:
  std::shared_ptr<const SoEnumTable> m_enums;
};
