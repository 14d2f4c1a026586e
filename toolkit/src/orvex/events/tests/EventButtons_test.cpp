#include <Orvex/events/SoControllerButtonEvent.h>
#include <Orvex/events/SoKeyboardEvent.h>
#include <Orvex/events/SoMouseButtonEvent.h>
#include <Orvex/events/SoSpaceballButtonEvent.h>

#include <gtest/gtest.h>

namespace {

using Mouse = SoMouseButtonEvent;
using Ball = SoSpaceballButtonEvent;
using Ctrl = SoControllerButtonEvent;

TEST(ButtonValues, ToolkitValues) {
  EXPECT_EQ(Mouse::ANY, 0);
  EXPECT_EQ(Mouse::BUTTON1, 1);
  EXPECT_EQ(Mouse::BUTTON2, 2);
  EXPECT_EQ(Mouse::BUTTON3, 3);
  EXPECT_EQ(Ball::ANY, 0);
  EXPECT_EQ(Ball::BUTTON1, 1);
  EXPECT_EQ(Ball::BUTTON7, 7);
  EXPECT_EQ(Ball::BUTTON8, 8);
  EXPECT_EQ(Ball::PICK, 9);
  EXPECT_EQ(Ctrl::ANY, 0);
  EXPECT_EQ(Ctrl::BUTTON3, 3);
}

TEST(MouseButtonEvent, MatchesPressReleaseAndDoubleClick) {
  Mouse e;
  EXPECT_EQ(e.getButton(), Mouse::ANY);
  e.setButton(Mouse::BUTTON2);
  EXPECT_EQ(e.getButton(), Mouse::BUTTON2);

  e.setState(SoButtonEvent::DOWN);
  EXPECT_TRUE(Mouse::isButtonPressEvent(&e, Mouse::BUTTON2));
  EXPECT_TRUE(Mouse::isButtonPressEvent(&e, Mouse::ANY));
  EXPECT_FALSE(Mouse::isButtonPressEvent(&e, Mouse::BUTTON1));
  EXPECT_FALSE(Mouse::isButtonReleaseEvent(&e, Mouse::ANY));
  EXPECT_FALSE(Mouse::isButtonDoubleClickEvent(&e, Mouse::ANY));

  e.setState(SoButtonEvent::UP);
  EXPECT_TRUE(Mouse::isButtonReleaseEvent(&e, Mouse::BUTTON2));
  EXPECT_FALSE(Mouse::isButtonReleaseEvent(&e, Mouse::BUTTON3));
  EXPECT_FALSE(Mouse::isButtonPressEvent(&e, Mouse::ANY));

  e.setState(SoButtonEvent::DBCLK);
  EXPECT_TRUE(Mouse::isButtonDoubleClickEvent(&e, Mouse::BUTTON2));
  EXPECT_TRUE(Mouse::isButtonDoubleClickEvent(&e, Mouse::ANY));
  EXPECT_FALSE(Mouse::isButtonDoubleClickEvent(&e, Mouse::BUTTON1));
  EXPECT_FALSE(Mouse::isButtonPressEvent(&e, Mouse::ANY));
}

TEST(MouseButtonEvent, MatchersRejectOtherEvents) {
  SoKeyboardEvent key;  // key A pressed; its numbers must not pass for a button
  key.setKey(SoKeyboardEvent::A);
  key.setState(SoButtonEvent::DOWN);
  EXPECT_FALSE(Mouse::isButtonPressEvent(&key, Mouse::ANY));
  Ball ball;
  ball.setButton(Ball::BUTTON1);
  ball.setState(SoButtonEvent::DOWN);
  EXPECT_FALSE(Mouse::isButtonPressEvent(&ball, Mouse::BUTTON1));
  EXPECT_FALSE(Mouse::isButtonPressEvent(nullptr, Mouse::ANY));
}

TEST(SpaceballButtonEvent, MatchesItsButtons) {
  Ball e;
  e.setButton(Ball::PICK);
  e.setState(SoButtonEvent::DOWN);
  EXPECT_EQ(e.getButton(), Ball::PICK);
  EXPECT_TRUE(Ball::isButtonPressEvent(&e, Ball::PICK));
  EXPECT_TRUE(Ball::isButtonPressEvent(&e, Ball::ANY));
  EXPECT_FALSE(Ball::isButtonPressEvent(&e, Ball::BUTTON8));
  EXPECT_FALSE(Ball::isButtonReleaseEvent(&e, Ball::PICK));
  e.setState(SoButtonEvent::UP);
  EXPECT_TRUE(Ball::isButtonReleaseEvent(&e, Ball::PICK));
  Mouse m;
  m.setState(SoButtonEvent::DOWN);
  EXPECT_FALSE(Ball::isButtonPressEvent(&m, Ball::ANY));
}

TEST(ControllerButtonEvent, MatchesItsButtons) {
  Ctrl e;
  e.setButton(Ctrl::BUTTON3);
  e.setState(SoButtonEvent::UP);
  EXPECT_TRUE(Ctrl::isButtonReleaseEvent(&e, Ctrl::BUTTON3));
  EXPECT_TRUE(Ctrl::isButtonReleaseEvent(&e, Ctrl::ANY));
  EXPECT_FALSE(Ctrl::isButtonReleaseEvent(&e, Ctrl::BUTTON1));
  EXPECT_FALSE(Ctrl::isButtonPressEvent(&e, Ctrl::ANY));
  Mouse m;
  m.setButton(Mouse::BUTTON3);
  m.setState(SoButtonEvent::UP);
  EXPECT_FALSE(Ctrl::isButtonReleaseEvent(&m, Ctrl::BUTTON3));
}

}  // namespace
