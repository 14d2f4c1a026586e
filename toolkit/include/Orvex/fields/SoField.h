#pragma once
#include <Orvex/SbString.h>
#include <Orvex/SoTypedObject.h>
#include <Orvex/misc/SoNotification.h>

#include <memory>
#include <vector>

class SoEngineOutput;
class SoField;
class SoFieldContainer;
class SoFieldList;
class SoInput;
class SoOutput;

// Something that watches fields (field sensors, connected fields, engines):
// told after each notified change and when a watched field is destroyed.
class SoFieldAuditor {
 public:
  virtual void fieldChanged(SoField* field) = 0;
  // The same with what changed: the operation (FIELD_MULTIVALUE for some
  // values of a multiple-value field, then the first index and how many
  // changed; -1 otherwise). This is what the field calls; by default it
  // forwards to the call without them.
  virtual void fieldChanged(SoField* field, SoNotRec::OperationType operation, int index, int numChanged) {
    fieldChanged(field);
  }
  virtual void fieldDestroyed(SoField* field) {}

 protected:
  virtual ~SoFieldAuditor() = default;
};

// Base of all fields. A field holds a value of its container (or stands
// alone). A change of value notifies, unless notification is disabled on the
// field: first the field's auditors, then the container, which passes the
// notification on to its parents up to the roots of the graph.
//
// A field may be connected from other fields: it then takes the value of its
// master whenever the master changes (converted through text when the types
// differ).
class SoField : public SoTypedObject {
 public:
  // How a field takes part in events: only NORMAL and EXPOSED fields are
  // written to files; INTERNAL fields never are.
  enum FieldType { NORMAL_FIELD, EVENTIN_FIELD, EVENTOUT_FIELD, EXPOSED_FIELD, INTERNAL_FIELD };

  ~SoField() override;
  SoField(const SoField&) = delete;
  SoField& operator=(const SoField&) = delete;

  static SoType getClassTypeId();
  static void initClass();
  static void initClasses();  // every field class

  // Turns notification on or off; returns the previous setting.
  bool enableNotify(bool flag);
  bool isNotifyEnabled() const { return m_notifyEnabled; }

  // Notifies the auditors and the container as if the value had changed.
  virtual void touch();

  bool isDefault() const { return m_isDefault; }
  void setDefault(bool def) { m_isDefault = def; }
  bool isIgnored() const { return m_ignored; }
  void setIgnored(bool ig) { m_ignored = ig; }

  SoFieldContainer* getContainer() const { return m_container; }
  void setContainer(SoFieldContainer* container) { m_container = container; }
  void setFieldType(int type) { m_fieldType = static_cast<unsigned char>(type); }
  int getFieldType() const { return m_fieldType; }

  // Auditors are told in the order they were added; an auditor added twice
  // is told twice. The field does not own them.
  void addAuditor(SoFieldAuditor* auditor);
  void removeAuditor(SoFieldAuditor* auditor);  // removes one registration
  int getNumAuditors() const;

  // The value as scene-file text ("1 0 0", "[ 1, 2 ]") and back. set()
  // answers false and keeps the value when the text does not parse.
  bool set(const char* valueString);
  void get(SbString& valueString) const;

  // Equality of type and value.
  bool operator==(const SoField& f) const { return isSame(f); }
  bool operator!=(const SoField& f) const { return !isSame(f); }
  // The field classes of the toolkit compare and copy their values
  // directly; a class that does not falls back on the text form.
  virtual bool isSame(const SoField& f) const;
  // Copies the value of a field of the same type.
  virtual void copyFrom(const SoField& f);
  // Size in bytes of one value (0 for fields without a plain value).
  virtual size_t getValueSize() const { return 0; }

  // Connections. A field may have several masters (the last one to change
  // gives the value); with append false a new connection replaces the old.
  // With notify the field takes the master's value at once.
  bool connectFrom(SoField* master, bool notify = true, bool append = false);
  void disconnect();
  void disconnect(SoField* master);
  bool isConnected() const;
  bool isConnectedFromField() const { return isConnected(); }
  bool getConnectedField(SoField*& master) const;
  int getNumConnections() const;
  // Appends the masters, or the fields connected from this one; answers how many.
  int getConnections(SoFieldList& list) const;
  int getForwardConnections(SoFieldList& list) const;
  // A disabled connection ignores the master's changes.
  void enableConnection(bool flag);
  bool isConnectionEnabled() const;
  // Connects this field from the master of `from` (used when copying).
  void copyConnection(const SoField* from);

  // Connections from engine outputs. The field holds a reference to the
  // engine. When the engine's inputs change the field is only marked out of
  // date (and notifies); reading it lets the engine write its value first.
  bool connectFrom(SoEngineOutput* engineOutput, bool notify = true, bool append = false);
  bool isConnectedFromEngine() const;
  bool getConnectedEngine(SoEngineOutput*& engineOutput) const;
  // Brings a field connected from an engine up to date; every getter calls it.
  void evaluate() const {
    if (m_needsEvaluation) evaluateConnection();
  }
  // Told by the engine output the field is connected from.
  void engineOutputChanged(SoNotList* list);
  void engineOutputDestroyed(SoEngineOutput* engineOutput);

  // Reading and writing. read() parses the value that follows the field's
  // name in a file; write() writes the name and the value.
  bool read(SoInput* in, const SbName& name);
  void write(SoOutput* out, const SbName& name) const;
  // The value alone. A field class without a text form reads nothing
  // (answering false) and writes nothing.
  virtual bool readValue(SoInput* in);
  virtual void writeValue(SoOutput* out) const;
  // Counts references to the objects the value refers to (node fields).
  virtual void countWriteRefs(SoOutput* out) const {}

  // Passes on a notification that reached the field from an object its
  // value refers to.
  virtual void notify(SoNotList* list);

  // After a container was copied: node and path values that are part of the
  // copy are replaced by their copies.
  virtual void fixCopy(bool copyConnections) {}
  virtual bool referencesCopy() const { return false; }

 protected:
  SoField();
  // Called by every setter after the value changed: clears the default flag
  // and notifies when notification is enabled.
  void valueChanged(bool resetDefault = true);
  // The same for a range of values of a multiple-value field.
  void valueChanged(int index, int numChanged, bool resetDefault = true);

 private:
  struct Extra;
  struct Connection;
  friend struct Connection;
  friend class SoEngineOutput;  // takes fields it did not write as current
  Extra& extra();
  void startNotify(SoNotRec::OperationType op, int index, int numChanged);
  void notifyChange(SoNotList* list, SoNotRec::OperationType op, int index, int numChanged);
  void takeValueFrom(SoField* master);
  void evaluateConnection() const;
  void disconnectEngine();

  SoFieldContainer* m_container = nullptr;
  std::unique_ptr<Extra> m_extra;  // auditors and connections; most fields have none
  bool m_notifyEnabled = true;
  bool m_isDefault = true;
  bool m_ignored = false;
  bool m_inNotify = false;
  mutable bool m_needsEvaluation = false;  // connected from an engine whose inputs changed
  unsigned char m_fieldType = NORMAL_FIELD;
};
