#include <Orvex/events/SoControllerButtonEvent.h>
#include <Orvex/events/SoLocation2Event.h>
#include <Orvex/events/SoMotion3Event.h>
#include <Orvex/events/SoMouseWheelEvent.h>
#include <Orvex/events/SoTrackerEvent.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr float kHalfPi = 1.57079632679f;

void expectNear(const SbVec3f& a, const SbVec3f& b) {
  EXPECT_NEAR(a[0], b[0], 1e-5f);
  EXPECT_NEAR(a[1], b[1], 1e-5f);
  EXPECT_NEAR(a[2], b[2], 1e-5f);
}

TEST(MouseWheelEvent, Delta) {
  SoMouseWheelEvent e;
  EXPECT_EQ(e.getDelta(), 0);
  e.setDelta(-120);
  EXPECT_EQ(e.getDelta(), -120);
}

TEST(Location2Event, EventSources) {
  EXPECT_EQ(SoLocation2Event::MOUSEMOVE, 0);
  EXPECT_EQ(SoLocation2Event::MOUSEENTER, 1);
  EXPECT_EQ(SoLocation2Event::MOUSELEAVE, 2);
  EXPECT_EQ(SoLocation2Event::OTHER, 3);
  SoLocation2Event e;
  EXPECT_EQ(e.getEventSource(), SoLocation2Event::MOUSEMOVE);
  e.setEventSource(SoLocation2Event::MOUSELEAVE);
  EXPECT_EQ(e.getEventSource(), SoLocation2Event::MOUSELEAVE);
  e.setPosition(SbVec2s(3, 4));  // inherited state stays independent
  EXPECT_EQ(e.getEventSource(), SoLocation2Event::MOUSELEAVE);
}

TEST(Motion3Event, TranslationAndRotation) {
  SoMotion3Event e;
  EXPECT_EQ(e.getTranslation(), SbVec3f(0, 0, 0));
  EXPECT_EQ(e.getRotation(), SbRotation::identity());
  e.setTranslation(SbVec3f(1, 2, 3));
  const SbRotation r(SbVec3f(0, 1, 0), 0.5f);
  e.setRotation(r);
  EXPECT_EQ(e.getTranslation(), SbVec3f(1, 2, 3));
  EXPECT_EQ(e.getRotation(), r);
}

TEST(TrackerInfo, RayLeavesThePositionAlongTheOrientation) {
  SbTrackerInfo info;
  EXPECT_EQ(info.getPosition3(), SbVec3f(0, 0, 0));
  expectNear(info.getRay().getDirection(), SbVec3f(0, 0, -1));  // unrotated: down -z

  info.setPosition3(SbVec3f(1, 2, 3));
  info.setOrientation(SbVec3f(0, 1, 0), kHalfPi);  // a quarter turn about +y turns -z into -x
  const SbLine ray = info.getRay();
  expectNear(ray.getPosition(), SbVec3f(1, 2, 3));
  expectNear(ray.getDirection(), SbVec3f(-1, 0, 0));
}

TEST(TrackerInfo, OrientationOverloadsAgree) {
  const SbRotation expected(SbVec3f(1, 0, 0), kHalfPi);
  float q[4];
  expected.getValue(q[0], q[1], q[2], q[3]);
  SbTrackerInfo a, b, c, d, e;
  a.setOrientation(expected);
  b.setOrientation(SbVec3f(1, 0, 0), kHalfPi);
  c.setOrientation(q[0], q[1], q[2], q[3]);
  d.setOrientation(q);
  e.setOrientation(SbVec3f(0, 0, -1), SbVec3f(0, 1, 0));  // -z turned into +y: the same quarter turn
  for (const SbTrackerInfo* t : {&a, &b, &c, &d, &e}) {
    EXPECT_TRUE(t->getOrientation().equals(expected, 1e-5f));
    expectNear(t->getRay().getDirection(), SbVec3f(0, 1, 0));
  }
  EXPECT_EQ(a, c);
  SbTrackerInfo moved = a;
  moved.setPosition3(SbVec3f(0, 0, 1));
  EXPECT_NE(moved, a);
}

TEST(TrackerEvent, PositionOrientationAndRay) {
  SoTrackerEvent e;
  e.setPosition3(SbVec3f(0, 1, 0));
  e.setOrientation(SbVec3f(0, 1, 0), -kHalfPi);  // -z turned into +x
  EXPECT_EQ(e.getPosition3(), SbVec3f(0, 1, 0));
  expectNear(e.getRay().getDirection(), SbVec3f(1, 0, 0));
  expectNear(e.getRay().getPosition(), SbVec3f(0, 1, 0));
  // The tracker info is the event's own, both ways.
  EXPECT_EQ(e.trackerInfo().getPosition3(), SbVec3f(0, 1, 0));
  e.trackerInfo().setPosition3(SbVec3f(5, 5, 5));
  EXPECT_EQ(e.getPosition3(), SbVec3f(5, 5, 5));
  e.setOrientation(0, 0, 0, 1);
  expectNear(e.getRay().getDirection(), SbVec3f(0, 0, -1));
  e.setOrientation(SbRotation(SbVec3f(0, 0, 1), kHalfPi));
  EXPECT_TRUE(e.trackerInfo().getOrientation().equals(SbRotation(SbVec3f(0, 0, 1), kHalfPi), 1e-6f));
}

TEST(ControllerButtonEvent, CarriesTheControllerPose) {
  SoControllerButtonEvent e;
  e.setButton(SoControllerButtonEvent::BUTTON1);
  e.setState(SoButtonEvent::DOWN);
  e.setPosition3(SbVec3f(0, 0, 2));
  e.setOrientation(SbVec3f(1, 0, 0), kHalfPi);  // -z turned into +y
  expectNear(e.getRay().getDirection(), SbVec3f(0, 1, 0));
  expectNear(e.getRay().getPosition(), SbVec3f(0, 0, 2));
  e.trackerInfo().setPosition3(SbVec3f(1, 1, 1));
  EXPECT_EQ(e.getPosition3(), SbVec3f(1, 1, 1));
  EXPECT_EQ(e.getButton(), SoControllerButtonEvent::BUTTON1);  // untouched by the pose
  EXPECT_TRUE(SoControllerButtonEvent::isButtonPressEvent(&e, SoControllerButtonEvent::BUTTON1));
}

}  // namespace
