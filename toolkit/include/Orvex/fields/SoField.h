#pragma once
#include <Orvex/SbString.h>
#include <Orvex/SoTypedObject.h>

#include <memory>
#include <vector>

class SoField;
class SoFieldContainer;

// Something that watches fields (field sensors, connected fields, engines):
// told after each notified change and when a watched field is destroyed.
class SoFieldAuditor {
 public:
  virtual void fieldChanged(SoField* field) = 0;
  virtual void fieldDestroyed(SoField* field) {}

 protected:
  virtual ~SoFieldAuditor() = default;
};

// Base of all fields. A field holds a value of its container (or stands
// alone); a change of value notifies the field's auditors unless
// notification is disabled on the field. The container is recorded here so
// that containers can join the notification when they are added.
class SoField : public SoTypedObject {
 public:
  ~SoField() override;
  SoField(const SoField&) = delete;
  SoField& operator=(const SoField&) = delete;

  static SoType getClassTypeId();
  static void initClass();
  static void initClasses();  // every field class

  // Turns notification on or off; returns the previous setting.
  bool enableNotify(bool flag);
  bool isNotifyEnabled() const { return m_notifyEnabled; }

  // Notifies the auditors as if the value had changed.
  virtual void touch();

  bool isDefault() const { return m_isDefault; }
  void setDefault(bool def) { m_isDefault = def; }
  bool isIgnored() const { return m_ignored; }
  void setIgnored(bool ig) { m_ignored = ig; }

  SoFieldContainer* getContainer() const { return m_container; }
  void setContainer(SoFieldContainer* container) { m_container = container; }

  // Auditors are told in the order they were added; an auditor added twice
  // is told twice. The field does not own them.
  void addAuditor(SoFieldAuditor* auditor);
  void removeAuditor(SoFieldAuditor* auditor);  // removes one registration
  int getNumAuditors() const { return m_auditors ? static_cast<int>(m_auditors->size()) : 0; }

 protected:
  SoField();
  // Called by every setter after the value changed: clears the default flag
  // and notifies when notification is enabled.
  void valueChanged(bool resetDefault = true);

 private:
  // Tells the auditors that the value changed.
  void startNotify();

  SoFieldContainer* m_container = nullptr;
  std::unique_ptr<std::vector<SoFieldAuditor*>> m_auditors;  // most fields have none
  bool m_notifyEnabled = true;
  bool m_isDefault = true;
  bool m_ignored = false;
};
