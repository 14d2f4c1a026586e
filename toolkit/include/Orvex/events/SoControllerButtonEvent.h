#pragma once
#include <Orvex/events/SbTrackerInfo.h>
#include <Orvex/events/SoButtonEvent.h>

// A button of a tracked 3D controller pressed or released, with where the
// controller was and where it pointed at that moment.
class SoControllerButtonEvent : public SoButtonEvent {
 public:
  enum Buttons { ANY = 0, BUTTON1 = 1, BUTTON2 = 2, BUTTON3 = 3 };

  SoControllerButtonEvent();
  ~SoControllerButtonEvent() override;

  static SoType getClassTypeId();
  SoType getTypeId() const override;
  static void initClass();

  void setButton(Buttons button) { m_button = button; }
  Buttons getButton() const { return m_button; }

  static bool isButtonPressEvent(const SoEvent* e, Buttons whichButton);
  static bool isButtonReleaseEvent(const SoEvent* e, Buttons whichButton);

  void setPosition3(const SbVec3f& p) { m_tracker.setPosition3(p); }
  const SbVec3f& getPosition3() const { return m_tracker.getPosition3(); }
  void setOrientation(const SbRotation& orientation) { m_tracker.setOrientation(orientation); }
  void setOrientation(const SbVec3f& axis, float radians) { m_tracker.setOrientation(axis, radians); }
  void setOrientation(float q0, float q1, float q2, float q3) { m_tracker.setOrientation(q0, q1, q2, q3); }
  const SbRotation& getOrientation() const { return m_tracker.getOrientation(); }
  SbLine getRay() const { return m_tracker.getRay(); }
  SbTrackerInfo& trackerInfo() { return m_tracker; }

 private:
  Buttons m_button = ANY;
  SbTrackerInfo m_tracker;
};
