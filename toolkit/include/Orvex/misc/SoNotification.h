#pragma once
#include <Orvex/SbBase.h>

class SoBase;
class SoField;

// One step of a change notification: the object the notification reached,
// how it got there and what kind of change started it. Records live on the
// stack of the notifying calls and are chained from the newest back to the
// origin of the change.
class SoNotRec {
 public:
  // How the notification reached the record's object.
  enum Type {
    CONTAINER,  // one of the object's own fields changed (or the object itself)
    PARENT,     // a child of the object (a group) changed
    SENSOR,     // reserved for sensors, which are told but add no record
    FIELD,      // a node or path that one of the object's fields refers to changed
    ENGINE      // an engine the object depends on changed
  };
  // What changed at the origin.
  enum OperationType {
    UNSPECIFIED,
    FIELD_UPDATE,
    GROUP_ADDCHILD,
    GROUP_INSERTCHILD,
    GROUP_REPLACECHILD,
    GROUP_REMOVECHILD,
    GROUP_REMOVEALLCHILDREN,
    FIELD_MULTIVALUE
  };

  explicit SoNotRec(SoBase* base) : m_base(base) {}

  SoBase* getBase() const { return m_base; }
  void setBase(SoBase* base) { m_base = base; }
  Type getType() const { return m_type; }
  void setType(Type type) { m_type = type; }
  const SoNotRec* getPrevious() const { return m_previous; }
  void setPrevious(const SoNotRec* rec) { m_previous = rec; }

  OperationType getOperationType() const { return m_operation; }
  void setOperationType(OperationType op) { m_operation = op; }
  // Group changes: the child concerned, the child it replaced, its index.
  SoBase* getGroupChild() const { return m_groupChild; }
  void setGroupChild(SoBase* child) { m_groupChild = child; }
  SoBase* getGroupPrevChild() const { return m_groupPrevChild; }
  void setGroupPrevChild(SoBase* child) { m_groupPrevChild = child; }
  int getIndex() const { return m_index; }
  void setIndex(int index) { m_index = index; }
  // Multiple-value field changes: the first value changed and how many.
  int getFieldNumIndex() const { return m_fieldNumIndex; }
  void setFieldNumIndex(int index) { m_fieldNumIndex = index; }
  int getFieldNumChanged() const { return m_fieldNumChanged; }
  void setFieldNumChanged(int num) { m_fieldNumChanged = num; }

 private:
  SoBase* m_base;
  Type m_type = CONTAINER;
  OperationType m_operation = UNSPECIFIED;
  const SoNotRec* m_previous = nullptr;
  SoBase* m_groupChild = nullptr;
  SoBase* m_groupPrevChild = nullptr;
  int m_index = -1;
  int m_fieldNumIndex = -1;
  int m_fieldNumChanged = -1;
};

// The chain of records of one notification as it travels from the changed
// object towards the roots of the graph. Each auditor receives its own copy,
// so that branches of the propagation do not see each other's records.
class SoNotList {
 public:
  SoNotList();
  SoNotList(const SoNotList& other) = default;
  SoNotList& operator=(const SoNotList& other) = default;

  // Appends a record (which must outlive the list's use of it).
  void append(SoNotRec* rec);
  // Appends a record reached through `field` (the field that changed, or the
  // field through which the notification passes).
  void append(SoNotRec* rec, SoField* field);
  void setLastType(SoNotRec::Type type);

  SoNotRec* getFirstRec() const { return m_first; }
  SoNotRec* getLastRec() const { return m_last; }
  // The first record whose object is a node (where the change entered the
  // scene graph).
  SoNotRec* getFirstRecAtNode() const { return m_firstAtNode; }
  void setFirstRecAtNode(SoNotRec* rec) { m_firstAtNode = rec; }
  // The field that changed first, and the field most recently passed through.
  SoField* getFirstField() const { return m_firstField; }
  SoField* getLastField() const { return m_lastField; }
  // Number of the notification this list belongs to; increases with every
  // notification started in the process.
  uint64_t getTimeStamp() const { return m_timeStamp; }
  int getNumRecs() const { return m_numRecs; }

 private:
  SoNotRec* m_first = nullptr;
  SoNotRec* m_last = nullptr;
  SoNotRec* m_firstAtNode = nullptr;
  SoField* m_firstField = nullptr;
  SoField* m_lastField = nullptr;
  uint64_t m_timeStamp;
  int m_numRecs = 0;
};
