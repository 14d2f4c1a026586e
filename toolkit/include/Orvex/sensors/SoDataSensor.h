#pragma once
#include <Orvex/misc/SoAuditorList.h>
#include <Orvex/sensors/SoDelayQueueSensor.h>

#include <memory>
#include <mutex>

class SoBase;
class SoField;
class SoNode;
class SoPath;

// Base of the sensors that watch data (fields, nodes, paths): scheduled on the
// delay queue each time the watched data changes, so it fires once for all
// the changes made before the queue is processed.
//
// Trigger information (which node or field changed, and how) describes the
// change that fired the sensor. It is recorded only for immediate sensors
// (priority 0), which fire during the change itself; a delayed sensor may
// stand for several changes whose objects may be gone by the time it fires,
// so its trigger information is empty. It stays until the next change,
// except the trigger path, which goes when the sensor's function returns.
class SoDataSensor : public SoDelayQueueSensor, public SoAuditor {
 public:
  // How a group's children or a multiple-value field changed.
  enum ChangeTypes {
    UNSPECIFIED,
    GROUPADDCHILD,
    GROUPINSERTCHILD,
    GROUPREPLACECHILD,
    GROUPREMOVECHILD,
    GROUPREMOVEALLCHILDREN,
    FIELDMULTIVALUE
  };

  SoDataSensor();
  SoDataSensor(SoSensorCB* func, void* data);
  ~SoDataSensor() override;

  // Called (with the sensor) when the watched object is about to be
  // destroyed, after the sensor has detached from it; the function may
  // attach the sensor to something else or delete it.
  void setDeleteCallback(SoSensorCB* func, void* data = nullptr);

  // The node where the change entered the scene graph (for a field, its
  // node), or null.
  SoNode* getTriggerNode() const;
  // The field that changed, or null (a group change, or a node touched).
  SoField* getTriggerField() const;
  // The path from the watched node (or the head of the watched path) down to
  // the trigger node; recorded only when the trigger path flag is set, since
  // it costs a new path per change. The path references its nodes, so it
  // is released when the sensor's function returns: ref() it to keep it.
  SoPath* getTriggerPath() const;
  void setTriggerPathFlag(bool flag);
  bool getTriggerPathFlag() const;
  ChangeTypes getTriggerType() const;
  // For group changes: the child added, inserted, removed or put in place
  // (null when all children went), and its index.
  SoNode* getTriggerChild() const;
  int getTriggerChildIndex() const;
  // For FIELDMULTIVALUE: the first changed value and how many changed.
  int getTriggerMFieldStartIndex() const;
  int getTriggerMFieldNumValues() const;
  // Whether the change can be applied in place by fast editing: it changed
  // field values only, no child was added, removed or replaced. Recorded
  // only when the fast-edit info flag is set.
  bool getTriggerFastEditInfo() const;
  void setTriggerFastEditInfoFlag(bool flag);
  bool getTriggerFastEditInfoFlag() const;

  // A change reached the watched object: records it and schedules.
  void notify(SoNotList* list) override;
  // The watched object is about to be destroyed.
  void dyingReference(SoBase* dying) override;

  // Calls the function, then releases the trigger path.
  void trigger() override;

 protected:
  // What one change of the watched data was.
  struct TriggerInfo {
    SoNode* node = nullptr;
    SoField* field = nullptr;
    ChangeTypes type = UNSPECIFIED;
    SoNode* child = nullptr;
    int childIndex = -1;
    int mfieldStart = -1;
    int mfieldNumValues = 0;
  };

  // A change of the watched data: records it (for immediate sensors) and
  // schedules the sensor. `list`, when given, is the notification, from
  // which the trigger path is made when asked for.
  void dataChanged(const TriggerInfo& info, const SoNotList* list = nullptr);
  // The watched object is about to be destroyed: detaches through
  // detachDying(), unschedules, then calls the delete callback.
  void watchedObjectDying();
  // Forgets the dying watched object without touching it afterwards.
  virtual void detachDying() = 0;
  // The record of the watched object in a notification that reached it:
  // where the trigger path starts. The newest record by default.
  virtual const SoNotRec* watchedRecord(const SoNotList* list) const;

 private:
  static TriggerInfo infoFrom(const SoNotList* list);
  SoPath* makeTriggerPath(const SoNotList* list) const;
  void setTriggerPath(SoPath* path);  // takes a reference; releases the old one

  mutable std::mutex m_infoMutex;  // everything below
  TriggerInfo m_info;
  SoPath* m_triggerPath = nullptr;  // referenced while held
  bool m_fastEdit = false;
  bool m_pathFlag = false;
  bool m_fastEditFlag = false;
  SoSensorCB* m_deleteFunc = nullptr;
  void* m_deleteData = nullptr;
  // Cleared by the destructor: lets trigger() notice that the function
  // deleted the sensor.
  std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};
