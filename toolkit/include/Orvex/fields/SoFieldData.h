#pragma once
#include <Orvex/SbName.h>

#include <cstddef>
#include <memory>
#include <vector>

class SoField;
class SoFieldContainer;
class SoInput;
class SoOutput;

// The names and values of one enumeration type, shared by the enumerated
// fields that use it.
struct SoEnumTable {
  std::vector<int> values;
  std::vector<SbName> names;
  // Built from the names read for a field of an unknown node type.
  bool learned = false;
};

// Describes the fields of a class of field containers (or of one container
// whose fields are added at run time): their names, where each field lives,
// and the enumeration types the fields use.
//
// A field is recorded by its offset inside the container when it is added
// with a container (fields that are members of the container class), or by
// its own address when the container argument is null (fields that live
// apart from the container, as those of per-instance field data).
class SoFieldData {
 public:
  SoFieldData();
  SoFieldData(const SoFieldData& other);
  // A copy of `other` (nothing when null), to which a class adds its own fields.
  explicit SoFieldData(const SoFieldData* other);
  SoFieldData& operator=(const SoFieldData& other);
  ~SoFieldData();

  void addField(SoFieldContainer* base, const char* fieldName, const SoField* field);
  int getNumFields() const { return static_cast<int>(m_fields.size()); }
  const SbName& getFieldName(int index) const { return m_fields[static_cast<size_t>(index)].name; }
  SoField* getField(const SoFieldContainer* object, int index) const;
  // Index of the field in the object, or -1.
  int getIndex(const SoFieldContainer* object, const SoField* field) const;
  // Index of the field of that name, or -1.
  int getFieldIndex(const SbName& name) const;

  // Enumeration types of the fields, by type name.
  void addEnumValue(const SbName& typeName, const SbName& valueName, int value);
  void getEnumData(const SbName& typeName, int& num, const int*& values, const SbName*& names) const;
  std::shared_ptr<const SoEnumTable> getEnumTable(const SbName& typeName) const;

  // Copies the values of every field from one container to another of the
  // same kind.
  void overlay(SoFieldContainer* to, const SoFieldContainer* from, bool copyConnections) const;
  // True when every field of the two containers has the same value.
  bool isSame(const SoFieldContainer* c1, const SoFieldContainer* c2) const;

  // Reads "name value" pairs until a token that is not a field name, which
  // is put back. An unknown name is an error when errorOnUnknownField.
  bool read(SoInput* in, SoFieldContainer* object, bool errorOnUnknownField) const;
  // Reads the value of one field; foundName tells whether the name is a field.
  bool read(SoInput* in, SoFieldContainer* object, const SbName& fieldName, bool& foundName) const;
  // Writes the fields that are not at their default values.
  void write(SoOutput* out, const SoFieldContainer* object) const;
  // Counts the references made by node and path values (first write pass).
  void countWriteRefs(SoOutput* out, const SoFieldContainer* object) const;
  // Writes "fields [ SFFloat a, MFVec3f b ]" for readers that do not know the type.
  void writeFieldDescriptions(SoOutput* out, const SoFieldContainer* object) const;
  // The number of fields that write() would write.
  int getNumFieldsToWrite(const SoFieldContainer* object) const;

 private:
  struct Entry {
    SbName name;
    bool byOffset;
    ptrdiff_t offset;       // from the container, when byOffset
    const SoField* field;   // the field itself, otherwise
  };
  struct EnumType {
    SbName name;
    std::shared_ptr<SoEnumTable> table;
  };
  std::vector<Entry> m_fields;
  std::vector<EnumType> m_enums;
};
