#pragma once
#include <Orvex/fields/SoField.h>
#include <Orvex/sensors/SoDataSensor.h>

// Watches one field: scheduled each time the field's value changes (or the
// field is touched). When the field is destroyed the delete callback is
// called and the sensor detaches.
class SoFieldSensor : public SoDataSensor, private SoFieldAuditor {
 public:
  SoFieldSensor();
  SoFieldSensor(SoSensorCB* func, void* data);
  // Detaches: a deleted sensor is never told of another change.
  ~SoFieldSensor() override;

  // Watches `field` instead of the field watched so far.
  void attach(SoField* field);
  // Stops watching and unschedules the sensor.
  void detach();
  SoField* getAttachedField() const;

 protected:
  void detachDying() override;

 private:
  void fieldChanged(SoField* field) override;
  // Records a multiple-value change's first index and count.
  void fieldChanged(SoField* field, SoNotRec::OperationType operation, int index, int numChanged) override;
  void fieldDestroyed(SoField* field) override;

  mutable std::mutex m_attachMutex;  // guards m_field
  SoField* m_field = nullptr;
};
