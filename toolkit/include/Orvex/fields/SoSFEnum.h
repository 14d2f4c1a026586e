#pragma once
#include <Orvex/SbName.h>
#include <Orvex/fields/SoSubField.h>

#include <memory>

struct SoEnumTable;

// A field holding one value of an enumeration. The field knows the names of
// the values (set with setEnums, or shared from its container's field data)
// and is written and read by name.
class SoSFEnum : public SoSField {
  SO_SFIELD_HEADER(SoSFEnum, int, int);

 public:
  // Sets the value by name; posts an error and keeps the value when the
  // name is not one of the enumeration's.
  void setValue(const SbName& name);
  // Gives the field its own table of values and names.
  void setEnums(int num, const int* vals, const SbName* names);
  // Shares a table (the one in the container's field data).
  void setEnumTable(std::shared_ptr<const SoEnumTable> table);
  int getNumEnums() const;
  // The value and name of entry `index`.
  int getEnum(int index, SbName& name) const;
  bool findEnumValue(const SbName& name, int& val) const;
  bool findEnumName(int val, SbName& name) const;

 protected:
  std::shared_ptr<const SoEnumTable> m_enums;
};
