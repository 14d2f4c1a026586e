#pragma once
#include <Orvex/events/SbTrackerInfo.h>
#include <Orvex/events/SoEvent.h>

// A tracked 3D device moved: its new position and orientation.
class SoTrackerEvent : public SoEvent {
 public:
  SoTrackerEvent();
  ~SoTrackerEvent() override;

  static SoType getClassTypeId();
  SoType getTypeId() const override;
  static void initClass();

  void setPosition3(const SbVec3f& p) { m_tracker.setPosition3(p); }
  const SbVec3f& getPosition3() const { return m_tracker.getPosition3(); }
  void setOrientation(const SbRotation& orientation) { m_tracker.setOrientation(orientation); }
  void setOrientation(const SbVec3f& axis, float radians) { m_tracker.setOrientation(axis, radians); }
  void setOrientation(float q0, float q1, float q2, float q3) { m_tracker.setOrientation(q0, q1, q2, q3); }
  const SbRotation& getOrientation() const { return m_tracker.getOrientation(); }
  // The line from the device's position in the direction it points.
  SbLine getRay() const { return m_tracker.getRay(); }
  SbTrackerInfo& trackerInfo() { return m_tracker; }

 private:
  SbTrackerInfo m_tracker;
};
