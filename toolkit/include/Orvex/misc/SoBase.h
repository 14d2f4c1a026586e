#pragma once
#include <Orvex/SbName.h>
#include <Orvex/SoTypedObject.h>
#include <Orvex/misc/SoAuditorList.h>
#include <Orvex/misc/SoRefCounter.h>

#include <atomic>

class SoBaseList;
class SoInput;
class SoOutput;

// Base of every reference-counted toolkit object (nodes, paths, engines...).
// An object may carry a name, by which it can be found. It keeps a list of
// auditors (parents, fields referring to it, paths, sensors) that hear about
// its changes, and knows how to be read from and written to scene files.
class SoBase : public SoRefCounter, public SoTypedObject {
 public:
  static SoType getClassTypeId();
  static void initClass();

  virtual SbName getName() const;
  virtual void setName(const SbName& name);

  // Finds the last object registered under `name` whose type derives from `type`.
  static SoBase* getNamedBase(const SbName& name, SoType type);
  // Appends every object of that name and type; returns how many.
  static int getNamedBases(const SbName& name, SoBaseList& result, SoType type);

  // Notifies the auditors as if the object had changed.
  virtual void touch();
  virtual const char* getFileFormatName() const;

  // Auditors. `auditor` is an SoBase for PARENT and ENGINE entries, an
  // SoField for FIELD entries and an SoAuditor for SENSOR entries.
  void addAuditor(void* auditor, SoNotRec::Type type);
  void removeAuditor(void* auditor, SoNotRec::Type type);
  // Sensors and other observers outside the graph.
  void addAuditor(SoAuditor* auditor) { addAuditor(static_cast<void*>(auditor), SoNotRec::SENSOR); }
  void removeAuditor(SoAuditor* auditor) { removeAuditor(static_cast<void*>(auditor), SoNotRec::SENSOR); }
  const SoAuditorList& getAuditors() const { return m_auditors; }

  // Passes a notification on to the auditors. The record for this object is
  // already in the list. A notification that comes back to an object it is
  // still passing through (a cycle through node fields) stops there.
  virtual void notify(SoNotList* list);

  // Reads one object from the input: "DEF name Type { ... }", "USE name",
  // or "NULL" (which gives nullptr and succeeds). The object's type must
  // derive from `expectedType`. Answers false after posting a read error.
  static bool read(SoInput* in, SoBase*& base, SoType expectedType);
  // Reads the body of the object between the braces.
  virtual bool readInstance(SoInput* in, unsigned short flags);

  // Writing happens in two passes over the graph (see SoOutput::Stages):
  // the first counts references, the second writes. Counts a reference to
  // this object; answers true when this was the first, so the caller goes
  // on counting inside the object.
  bool addWriteReference(SoOutput* out, bool isFromField = false) const;
  // Writes the header of the object: "USE name" when it was written before
  // (answers true: nothing more to write), else "[DEF name] Type {".
  bool writeHeader(SoOutput* out, bool isGroup, bool isEngine) const;
  void writeFooter(SoOutput* out) const;
  // Writes the whole object (both passes are driven by the caller's stage).
  virtual void writeInstance(SoOutput* out);

 protected:
  SoBase();
  ~SoBase() override;
  // Tells sensors that the object dies, then deletes it.
  void destroy() override;

 private:
  SoAuditorList m_auditors;
  bool m_notifying = false;
  // Whether the object has a name: most have none, and they then need not
  // look into the (locked) table of names.
  std::atomic<bool> m_named{false};
};
