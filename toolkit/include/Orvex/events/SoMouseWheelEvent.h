#pragma once
#include <Orvex/events/SoEvent.h>

// The mouse wheel turned; the delta is in the window system's wheel units
// (positive away from the user).
class SoMouseWheelEvent : public SoEvent {
 public:
  SoMouseWheelEvent();
  ~SoMouseWheelEvent() override;

  static SoType getClassTypeId();
  SoType getTypeId() const override;
  static void initClass();

  void setDelta(int delta) { m_delta = delta; }
  int getDelta() const { return m_delta; }

 private:
  int m_delta = 0;
};
