#pragma once
#include <Orvex/misc/SoNotification.h>

#include <memory>
#include <vector>

class SoBase;

// An object outside the scene graph that hears about changes of the objects
// it audits (data sensors). Registered with SoBase::addAuditor(SoAuditor*).
class SoAuditor {
 public:
  // A change reached an audited object.
  virtual void notify(SoNotList* list) = 0;
  // An audited object is about to be destroyed; it is still intact.
  virtual void dyingReference(SoBase* dying) {}

 protected:
  virtual ~SoAuditor() = default;
};

// The auditors of one object: parents, fields that refer to it, paths,
// sensors. The first entry is kept inline because most scene-graph nodes
// have exactly one auditor, their parent.
//
// The meaning of an entry's pointer depends on its type: SoNotRec::PARENT and
// ENGINE entries are SoBase objects, FIELD entries SoField objects, SENSOR
// entries SoAuditor objects.
class SoAuditorList {
 public:
  SoAuditorList() = default;
  SoAuditorList(const SoAuditorList&) = delete;
  SoAuditorList& operator=(const SoAuditorList&) = delete;

  void append(void* auditor, SoNotRec::Type type);
  // Index of the first entry of that auditor and type, or -1.
  int find(void* auditor, SoNotRec::Type type) const;
  void remove(int index);
  void remove(void* auditor, SoNotRec::Type type);
  int getLength() const {
    if (m_first == 0) return 0;
    return 1 + (m_rest ? static_cast<int>(m_rest->size()) : 0);
  }
  void* getObject(int index) const;
  SoNotRec::Type getType(int index) const;

  // Tells every auditor, each with its own copy of the list. Auditors may
  // remove themselves (or others) while being told.
  void notify(SoNotList* list) const;
  // Tells the sensors that `dying` is about to be destroyed.
  void notifyDying(SoBase* dying) const;

 private:
  static uintptr_t pack(void* auditor, SoNotRec::Type type);
  uintptr_t entry(int index) const;

  uintptr_t m_first = 0;                               // 0 when empty
  std::unique_ptr<std::vector<uintptr_t>> m_rest;      // entries 1..n-1
};
