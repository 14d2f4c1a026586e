#pragma once
#include <Orvex/sensors/SoDataSensor.h>

class SoNode;

// Watches a node: scheduled each time the node, one of its fields, or
// anything below it in the scene graph changes. When the node is destroyed
// the delete callback is called and the sensor detaches.
class SoNodeSensor : public SoDataSensor {
 public:
  SoNodeSensor();
  SoNodeSensor(SoSensorCB* func, void* data);
  // Detaches: a deleted sensor is never told of another change.
  ~SoNodeSensor() override;

  // Watches `node` instead of the node watched so far. The node is not
  // referenced.
  void attach(SoNode* node);
  // Stops watching and unschedules the sensor.
  void detach();
  SoNode* getAttachedNode() const;

 protected:
  void detachDying() override;

 private:
  mutable std::mutex m_attachMutex;  // guards m_node
  SoNode* m_node = nullptr;
};
