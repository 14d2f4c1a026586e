#pragma once
#include <Orvex/events/SoButtonEvent.h>

// A mouse button pressed, released or double-clicked.
class SoMouseButtonEvent : public SoButtonEvent {
 public:
  enum Buttons { ANY = 0, BUTTON1 = 1, BUTTON2 = 2, BUTTON3 = 3 };

  SoMouseButtonEvent();
  ~SoMouseButtonEvent() override;

  static SoType getClassTypeId();
  SoType getTypeId() const override;
  static void initClass();

  void setButton(Buttons button) { m_button = button; }
  Buttons getButton() const { return m_button; }

  // True when `e` is a mouse button event of `whichButton` (any button for
  // ANY) in state DOWN, UP, respectively DBCLK.
  static bool isButtonPressEvent(const SoEvent* e, Buttons whichButton);
  static bool isButtonReleaseEvent(const SoEvent* e, Buttons whichButton);
  static bool isButtonDoubleClickEvent(const SoEvent* e, Buttons whichButton);

 private:
  Buttons m_button = ANY;
};
