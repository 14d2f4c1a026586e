#pragma once
#include <Orvex/fields/SoFieldData.h>
#include <Orvex/nodes/SoGroup.h>

#include <memory>
#include <vector>

class SoField;

// A node of a type the reader does not know, read because the file
// described its fields ("fields [ SFFloat a, MFVec3f b ]"). It keeps the
// fields and children it read and writes them back under the same type
// name; traversals pass through its children.
class SoUnknownNode : public SoGroup {
 public:
  static SoType getClassTypeId();
  SoType getTypeId() const override;
  static void initClass();
  static void* createInstance();
  int getTypeActionMethodIndex() const override;

  SoUnknownNode();

  // The type name the file used.
  void setClassName(const char* name);
  const char* getFileFormatName() const override;
  const SoFieldData* getFieldData() const override;
  // Adds a field of that type and name; answers false for a type that is
  // not a field type, or a name already taken.
  bool addField(SoType fieldType, const SbName& fieldName);

  bool readInstance(SoInput* in, unsigned short flags) override;
  void write(SoWriteAction* action) override;
  void copyContents(const SoFieldContainer* from, bool copyConnections) override;

 protected:
  ~SoUnknownNode() override;
  bool readChildren(SoInput* in) override;

 private:
  static SoType s_classTypeId;
  static int s_actionMethodIndex;
  static const SoFieldData* s_fieldData;        // none: each node has its own
  static const SoFieldData** s_parentFieldData;
  SbName m_className;
  SoFieldData m_fieldData;
  std::vector<std::unique_ptr<SoField>> m_fields;
};
