#pragma once
#include <Orvex/SbTime.h>
#include <Orvex/SbVec2f.h>
#include <Orvex/SbVec2s.h>
#include <Orvex/SbViewportRegion.h>
#include <Orvex/SoTypedObject.h>

// Base of the input events that a window system hands to a scene: when the
// event happened, where the pointer was (window pixels, origin at the lower
// left) and which modifier keys and first mouse button were down.
//
// Event types are registered under their class names ("SoEvent",
// "SoKeyboardEvent", ...) the first time any event type is asked for.
class SoEvent : public SoTypedObject {
 public:
  // Time zero, position (0, 0), no modifier down.
  SoEvent();
  ~SoEvent() override;

  static SoType getClassTypeId();
  SoType getTypeId() const override;
  // Registers this class; initClasses() registers every event class.
  static void initClass();
  static void initClasses();

  void setTime(const SbTime& t) { m_time = t; }
  const SbTime& getTime() const { return m_time; }

  // Position in window pixels.
  const SbVec2s& getPosition() const { return m_position; }
  // Position in pixels relative to the viewport's lower left corner.
  SbVec2s getPosition(const SbViewportRegion& vpRgn) const;
  // The position with sub-pixel precision, when the window system gave it.
  const SbVec2f& getPositionFloat() const { return m_positionFloat; }
  SbVec2f getPositionFloat(const SbViewportRegion& vpRgn) const;
  // Position in the viewport, from (0, 0) at its lower left to (1, 1) at
  // its upper right.
  SbVec2f getNormalizedPosition(const SbViewportRegion& vpRgn) const;
  // Both set the pixel and the float position (the float one rounded to
  // pixels for the former).
  void setPosition(const SbVec2s& p);
  void setPosition(const SbVec2f& p);

  bool wasShiftDown() const { return m_shiftDown; }
  bool wasCtrlDown() const { return m_ctrlDown; }
  bool wasAltDown() const { return m_altDown; }
  bool wasButton1Down() const { return m_button1Down; }
  void setShiftDown(bool isDown) { m_shiftDown = isDown; }
  void setCtrlDown(bool isDown) { m_ctrlDown = isDown; }
  void setAltDown(bool isDown) { m_altDown = isDown; }
  void setButton1Down(bool isDown) { m_button1Down = isDown; }

 private:
  SbTime m_time;
  SbVec2s m_position;
  SbVec2f m_positionFloat;
  bool m_shiftDown = false;
  bool m_ctrlDown = false;
  bool m_altDown = false;
  bool m_button1Down = false;
};
