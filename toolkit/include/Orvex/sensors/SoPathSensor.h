#pragma once
#include <Orvex/sensors/SoDataSensor.h>

class SoPath;

// Watches a path: scheduled each time a change in the scene graph concerns
// the path: a change of a node on it (a field, or its children), of anything
// below its tail, or of a node left of the path that affects the traversal
// state on the path.
// When the path is destroyed the delete callback is called and the sensor
// detaches.
class SoPathSensor : public SoDataSensor {
 public:
  SoPathSensor();
  SoPathSensor(SoSensorCB* func, void* data);
  // Detaches: a deleted sensor is never told of another change.
  ~SoPathSensor() override;

  // Watches `path` instead of the path watched so far. The path is not
  // referenced.
  void attach(SoPath* path);
  // Stops watching and unschedules the sensor.
  void detach();
  SoPath* getAttachedPath() const;

 protected:
  void detachDying() override;
  // The trigger path starts at the path's head, whose record comes just
  // before the path's own.
  const SoNotRec* watchedRecord(const SoNotList* list) const override;

 private:
  mutable std::mutex m_attachMutex;  // guards m_path
  SoPath* m_path = nullptr;
};
