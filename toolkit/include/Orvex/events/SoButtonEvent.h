#pragma once
#include <Orvex/events/SoEvent.h>

// An event of a button (keyboard key, mouse or device button) changing state.
class SoButtonEvent : public SoEvent {
 public:
  enum States {
    UNKNOWN,
    UP,     // released
    DOWN,   // pressed
    DBCLK   // pressed a second time quickly (double click)
  };

  SoButtonEvent();
  ~SoButtonEvent() override;

  static SoType getClassTypeId();
  SoType getTypeId() const override;
  static void initClass();

  void setState(States state) { m_state = state; }
  States getState() const { return m_state; }

 private:
  States m_state = UNKNOWN;
};
