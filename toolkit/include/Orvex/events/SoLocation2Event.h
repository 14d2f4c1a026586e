#pragma once
#include <Orvex/events/SoEvent.h>

// The pointer moved in the window, or entered or left it.
class SoLocation2Event : public SoEvent {
 public:
  enum EventSources { MOUSEMOVE, MOUSEENTER, MOUSELEAVE, OTHER };

  SoLocation2Event();
  ~SoLocation2Event() override;

  static SoType getClassTypeId();
  SoType getTypeId() const override;
  static void initClass();

  void setEventSource(EventSources source) { m_source = source; }
  EventSources getEventSource() const { return m_source; }

 private:
  EventSources m_source = MOUSEMOVE;
};
