// Run-time types of the event classes, registered together the first time
// any of them is asked for, so events work without SoDB::init().
#include <Orvex/events/SoControllerButtonEvent.h>
#include <Orvex/events/SoKeyboardEvent.h>
#include <Orvex/events/SoLocation2Event.h>
#include <Orvex/events/SoMotion3Event.h>
#include <Orvex/events/SoMouseButtonEvent.h>
#include <Orvex/events/SoMouseWheelEvent.h>
#include <Orvex/events/SoSpaceballButtonEvent.h>
#include <Orvex/events/SoTrackerEvent.h>

namespace {

struct EventTypes {
  SoType event, button, keyboard, mouseButton, spaceballButton, controllerButton;
  SoType mouseWheel, location2, motion3, tracker;
};

// Instances are returned as SoEvent*, the root of the family.
template <class T>
void* create() {
  return static_cast<void*>(static_cast<SoEvent*>(new T));
}

EventTypes registerAll() {
  SoTypedObject::initClass();
  EventTypes t;
  t.event = SoType::createType(SoTypedObject::getClassTypeId(), "SoEvent", &create<SoEvent>);
  t.button = SoType::createType(t.event, "SoButtonEvent", &create<SoButtonEvent>);
  t.keyboard = SoType::createType(t.button, "SoKeyboardEvent", &create<SoKeyboardEvent>);
  t.mouseButton = SoType::createType(t.button, "SoMouseButtonEvent", &create<SoMouseButtonEvent>);
  t.spaceballButton = SoType::createType(t.button, "SoSpaceballButtonEvent", &create<SoSpaceballButtonEvent>);
  t.controllerButton = SoType::createType(t.button, "SoControllerButtonEvent", &create<SoControllerButtonEvent>);
  t.mouseWheel = SoType::createType(t.event, "SoMouseWheelEvent", &create<SoMouseWheelEvent>);
  t.location2 = SoType::createType(t.event, "SoLocation2Event", &create<SoLocation2Event>);
  t.motion3 = SoType::createType(t.event, "SoMotion3Event", &create<SoMotion3Event>);
  t.tracker = SoType::createType(t.event, "SoTrackerEvent", &create<SoTrackerEvent>);
  return t;
}

// Thread-safe, once: a function-local static.
const EventTypes& types() {
  static const EventTypes t = registerAll();
  return t;
}

}  // namespace

void SoEvent::initClasses() { types(); }

#define ORVEX_EVENT_TYPE(Class, member)                              \
  Class::Class() = default;                                          \
  Class::~Class() = default;                                         \
  SoType Class::getClassTypeId() { return types().member; }          \
  SoType Class::getTypeId() const { return types().member; }         \
  void Class::initClass() { types(); }

ORVEX_EVENT_TYPE(SoEvent, event)
ORVEX_EVENT_TYPE(SoButtonEvent, button)
ORVEX_EVENT_TYPE(SoKeyboardEvent, keyboard)
ORVEX_EVENT_TYPE(SoMouseButtonEvent, mouseButton)
ORVEX_EVENT_TYPE(SoSpaceballButtonEvent, spaceballButton)
ORVEX_EVENT_TYPE(SoControllerButtonEvent, controllerButton)
ORVEX_EVENT_TYPE(SoMouseWheelEvent, mouseWheel)
ORVEX_EVENT_TYPE(SoLocation2Event, location2)
ORVEX_EVENT_TYPE(SoMotion3Event, motion3)
ORVEX_EVENT_TYPE(SoTrackerEvent, tracker)

#undef ORVEX_EVENT_TYPE
