// The static tests of the mouse, spaceball and controller button events.
#include <Orvex/events/SoControllerButtonEvent.h>
#include <Orvex/events/SoMouseButtonEvent.h>
#include <Orvex/events/SoSpaceballButtonEvent.h>

namespace {

// True when `e` is an event of class T in `state` for `which` (any for 0).
template <class T>
bool matches(const SoEvent* e, typename T::Buttons which, SoButtonEvent::States state) {
  if (!e || !e->isOfType(T::getClassTypeId())) return false;
  auto* b = static_cast<const T*>(e);
  return b->getState() == state && (which == T::ANY || b->getButton() == which);
}

}  // namespace

bool SoMouseButtonEvent::isButtonPressEvent(const SoEvent* e, Buttons whichButton) {
  return matches<SoMouseButtonEvent>(e, whichButton, DOWN);
}
bool SoMouseButtonEvent::isButtonReleaseEvent(const SoEvent* e, Buttons whichButton) {
  return matches<SoMouseButtonEvent>(e, whichButton, UP);
}
bool SoMouseButtonEvent::isButtonDoubleClickEvent(const SoEvent* e, Buttons whichButton) {
  return matches<SoMouseButtonEvent>(e, whichButton, DBCLK);
}

bool SoSpaceballButtonEvent::isButtonPressEvent(const SoEvent* e, Buttons whichButton) {
  return matches<SoSpaceballButtonEvent>(e, whichButton, DOWN);
}
bool SoSpaceballButtonEvent::isButtonReleaseEvent(const SoEvent* e, Buttons whichButton) {
  return matches<SoSpaceballButtonEvent>(e, whichButton, UP);
}

bool SoControllerButtonEvent::isButtonPressEvent(const SoEvent* e, Buttons whichButton) {
  return matches<SoControllerButtonEvent>(e, whichButton, DOWN);
}
bool SoControllerButtonEvent::isButtonReleaseEvent(const SoEvent* e, Buttons whichButton) {
  return matches<SoControllerButtonEvent>(e, whichButton, UP);
}
