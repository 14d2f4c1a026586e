#pragma once
#include <Orvex/misc/SoBase.h>

class SoField;
class SoFieldData;
class SoFieldList;

// An object with fields (nodes, engines). A change of one of its fields
// notifies the container, which passes the notification on to its auditors;
// disabling notification on the container stops it there.
class SoFieldContainer : public SoBase {
 public:
  static SoType getClassTypeId();
  static void initClass();

  // Describes the fields: shared by the class, or the instance's own.
  virtual const SoFieldData* getFieldData() const;

  // The field of that name, or nullptr.
  virtual SoField* getField(const SbName& fieldName) const;
  // Fields that receive events: input and exposed fields, also reached as
  // "set_<name>" for an exposed field.
  virtual SoField* getEventIn(const SbName& fieldName) const;
  // Fields that send events: output and exposed fields, also reached as
  // "<name>_changed" for an exposed field.
  virtual SoField* getEventOut(const SbName& fieldName) const;
  bool getFieldName(const SoField* field, SbName& fieldName) const;
  // Appends the fields; answers how many.
  virtual int getFields(SoFieldList& list) const;
  virtual int getAllFields(SoFieldList& list) const;

  // Gives every field the value of a freshly made instance.
  void setToDefaults();
  bool hasDefaultValues() const;
  bool fieldsAreEqual(const SoFieldContainer* fc) const;
  void copyFieldValues(const SoFieldContainer* fc, bool copyConnections = false);
  // Field values as scene-file text ("radius 2 height 3") and back.
  bool set(const char* fieldDataString);
  void get(SbString& fieldDataString) const;

  // Turns notification of this container on or off; returns the previous setting.
  bool enableNotify(bool flag);
  bool isNotifyEnabled() const { return m_notifyEnabled; }
  void notify(SoNotList* list) override;

  bool readInstance(SoInput* in, unsigned short flags) override;
  void writeInstance(SoOutput* out) override;

  // Copying graphs: a dictionary maps originals to copies while a copy is
  // being made, so that shared objects stay shared in the copy. Calls nest.
  static void initCopyDict();
  static void addCopy(const SoFieldContainer* original, const SoFieldContainer* copy);
  // The copy made of `original` so far, or nullptr.
  static SoFieldContainer* checkCopy(const SoFieldContainer* original);
  // The copy of `original`, made (with its contents) when there is none yet.
  static SoFieldContainer* findCopy(const SoFieldContainer* original, bool copyConnections);
  static void copyDone();
  // Copies the field values (and more, in derived classes) from `from`.
  virtual void copyContents(const SoFieldContainer* from, bool copyConnections);
  // What a connection to a field of this container refers to in a copy.
  virtual SoFieldContainer* copyThroughConnection() const;

 protected:
  SoFieldContainer();
  ~SoFieldContainer() override;

 private:
  bool m_notifyEnabled = true;
};
