#include <Orvex/events/SoControllerButtonEvent.h>
#include <Orvex/events/SoKeyboardEvent.h>
#include <Orvex/events/SoLocation2Event.h>
#include <Orvex/events/SoMotion3Event.h>
#include <Orvex/events/SoMouseButtonEvent.h>
#include <Orvex/events/SoMouseWheelEvent.h>
#include <Orvex/events/SoSpaceballButtonEvent.h>
#include <Orvex/events/SoTrackerEvent.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

TEST(EventTypes, RegisteredUnderTheirClassNamesInOneTree) {
  struct Expect {
    SoType type;
    const char* name;
    SoType parent;
  };
  const SoType event = SoEvent::getClassTypeId(), button = SoButtonEvent::getClassTypeId();
  const Expect all[] = {
      {event, "SoEvent", SoTypedObject::getClassTypeId()},
      {button, "SoButtonEvent", event},
      {SoKeyboardEvent::getClassTypeId(), "SoKeyboardEvent", button},
      {SoMouseButtonEvent::getClassTypeId(), "SoMouseButtonEvent", button},
      {SoSpaceballButtonEvent::getClassTypeId(), "SoSpaceballButtonEvent", button},
      {SoControllerButtonEvent::getClassTypeId(), "SoControllerButtonEvent", button},
      {SoMouseWheelEvent::getClassTypeId(), "SoMouseWheelEvent", event},
      {SoLocation2Event::getClassTypeId(), "SoLocation2Event", event},
      {SoMotion3Event::getClassTypeId(), "SoMotion3Event", event},
      {SoTrackerEvent::getClassTypeId(), "SoTrackerEvent", event},
  };
  for (const Expect& e : all) {
    SCOPED_TRACE(e.name);
    ASSERT_FALSE(e.type.isBad());
    EXPECT_STREQ(e.type.getName().getString(), e.name);
    EXPECT_EQ(SoType::fromName(e.name), e.type);
    EXPECT_EQ(e.type.getParent(), e.parent);
    // Each type builds an instance of itself.
    ASSERT_TRUE(e.type.canCreateInstance());
    std::unique_ptr<SoEvent> made(static_cast<SoEvent*>(e.type.createInstance()));
    EXPECT_EQ(made->getTypeId(), e.type);
  }
}

TEST(EventTypes, InstancesKnowTheirFamily) {
  SoKeyboardEvent key;
  EXPECT_TRUE(key.isOfType(SoEvent::getClassTypeId()));
  EXPECT_TRUE(key.isOfType(SoButtonEvent::getClassTypeId()));
  EXPECT_FALSE(key.isOfType(SoMouseButtonEvent::getClassTypeId()));
  SoLocation2Event move;
  EXPECT_FALSE(move.isOfType(SoButtonEvent::getClassTypeId()));
}

TEST(Event, StartsEmpty) {
  SoEvent e;
  EXPECT_EQ(e.getTime(), SbTime::zero());
  EXPECT_EQ(e.getPosition(), SbVec2s(0, 0));
  EXPECT_EQ(e.getPositionFloat(), SbVec2f(0, 0));
  EXPECT_FALSE(e.wasShiftDown());
  EXPECT_FALSE(e.wasCtrlDown());
  EXPECT_FALSE(e.wasAltDown());
  EXPECT_FALSE(e.wasButton1Down());
}

TEST(Event, TimeAndModifiersAreKeptApart) {
  SoEvent e;
  e.setTime(SbTime(12.5));
  EXPECT_EQ(e.getTime(), SbTime(12.5));
  e.setShiftDown(true);
  EXPECT_TRUE(e.wasShiftDown());
  EXPECT_FALSE(e.wasCtrlDown() || e.wasAltDown() || e.wasButton1Down());
  e.setCtrlDown(true);
  e.setShiftDown(false);
  EXPECT_TRUE(e.wasCtrlDown());
  EXPECT_FALSE(e.wasShiftDown() || e.wasAltDown() || e.wasButton1Down());
  e.setAltDown(true);
  e.setButton1Down(true);
  EXPECT_TRUE(e.wasAltDown());
  EXPECT_TRUE(e.wasButton1Down());
}

TEST(Event, PixelPositionAlsoSetsTheFloatPosition) {
  SoEvent e;
  e.setPosition(SbVec2s(30, 40));
  EXPECT_EQ(e.getPosition(), SbVec2s(30, 40));
  EXPECT_EQ(e.getPositionFloat(), SbVec2f(30, 40));
}

TEST(Event, FloatPositionRoundsToPixels) {
  SoEvent e;
  e.setPosition(SbVec2f(10.4f, 19.6f));
  EXPECT_EQ(e.getPositionFloat(), SbVec2f(10.4f, 19.6f));
  EXPECT_EQ(e.getPosition(), SbVec2s(10, 20));
  e.setPosition(SbVec2f(-2.6f, 0.5f));
  EXPECT_EQ(e.getPosition(), SbVec2s(-3, 1));
}

TEST(Event, PositionsRelativeToAViewport) {
  // A 200 x 100 window whose viewport is its right half.
  SbViewportRegion vp(200, 100);
  vp.setViewportPixels(100, 0, 100, 100);
  SoEvent e;
  e.setPosition(SbVec2f(150.5f, 25.0f));
  EXPECT_EQ(e.getPosition(vp), SbVec2s(51, 25));  // (151, 25) in the window
  const SbVec2f inViewport = e.getPositionFloat(vp);
  EXPECT_FLOAT_EQ(inViewport[0], 50.5f);
  EXPECT_FLOAT_EQ(inViewport[1], 25.0f);
  const SbVec2f n = e.getNormalizedPosition(vp);
  EXPECT_FLOAT_EQ(n[0], 0.505f);
  EXPECT_FLOAT_EQ(n[1], 0.25f);
}

TEST(Event, NormalizedCornersOfTheViewport) {
  SbViewportRegion vp(400, 300);
  vp.setViewportPixels(40, 30, 200, 100);
  SoEvent e;
  e.setPosition(SbVec2s(40, 30));
  EXPECT_EQ(e.getNormalizedPosition(vp), SbVec2f(0, 0));
  e.setPosition(SbVec2s(240, 130));
  EXPECT_EQ(e.getNormalizedPosition(vp), SbVec2f(1, 1));
  e.setPosition(SbVec2s(0, 0));  // outside: below and left of the viewport
  const SbVec2f n = e.getNormalizedPosition(vp);
  EXPECT_FLOAT_EQ(n[0], -0.2f);
  EXPECT_FLOAT_EQ(n[1], -0.3f);
}

TEST(Event, EmptyViewportDoesNotDivideByZero) {
  SbViewportRegion vp(0, 0);
  SoEvent e;
  e.setPosition(SbVec2s(5, 5));
  EXPECT_EQ(e.getNormalizedPosition(vp), SbVec2f(0, 0));
}

TEST(Event, ButtonStates) {
  EXPECT_EQ(SoButtonEvent::UNKNOWN, 0);
  EXPECT_EQ(SoButtonEvent::UP, 1);
  EXPECT_EQ(SoButtonEvent::DOWN, 2);
  EXPECT_EQ(SoButtonEvent::DBCLK, 3);
  SoButtonEvent b;
  EXPECT_EQ(b.getState(), SoButtonEvent::UNKNOWN);
  b.setState(SoButtonEvent::DBCLK);
  EXPECT_EQ(b.getState(), SoButtonEvent::DBCLK);
}

}  // namespace
