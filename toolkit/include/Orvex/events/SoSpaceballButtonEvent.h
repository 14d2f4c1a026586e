#pragma once
#include <Orvex/events/SoButtonEvent.h>

// A button of a spaceball pressed or released.
class SoSpaceballButtonEvent : public SoButtonEvent {
 public:
  enum Buttons {
    ANY = 0,
    BUTTON1 = 1, BUTTON2 = 2, BUTTON3 = 3, BUTTON4 = 4,
    BUTTON5 = 5, BUTTON6 = 6, BUTTON7 = 7, BUTTON8 = 8,
    PICK = 9
  };

  SoSpaceballButtonEvent();
  ~SoSpaceballButtonEvent() override;

  static SoType getClassTypeId();
  SoType getTypeId() const override;
  static void initClass();

  void setButton(Buttons button) { m_button = button; }
  Buttons getButton() const { return m_button; }

  static bool isButtonPressEvent(const SoEvent* e, Buttons whichButton);
  static bool isButtonReleaseEvent(const SoEvent* e, Buttons whichButton);

 private:
  Buttons m_button = ANY;
};
