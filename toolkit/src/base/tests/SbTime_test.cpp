#include <Orvex/SbTime.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <ctime>
#include <limits>
#include <thread>

TEST(SbTime, MillisecondsRoundTrip) {
  for (unsigned long ms : {0ul, 1ul, 999ul, 1001ul, 123456789ul, 1700000000123ul, 4294967295ul}) {
    SbTime t;
    t.setMsecValue(ms);
    EXPECT_EQ(t.getMsecValue(), ms);
    EXPECT_DOUBLE_EQ(t.getValue(), ms / 1000.0);
  }
  EXPECT_EQ(SbTime::max().getMsecValue(), std::numeric_limits<unsigned long>::max());
}

TEST(SbTime, SecondsAndMicroseconds) {
  SbTime t(12, 345678);
  EXPECT_NEAR(t.getValue(), 12.345678, 1e-9);
  int64_t sec;
  long usec;
  t.getValue(sec, usec);
  EXPECT_EQ(sec, 12);
  EXPECT_EQ(usec, 345678);
  SbTime(1.9999999).getValue(sec, usec);  // rounds up into the next second
  EXPECT_EQ(sec, 2);
  EXPECT_EQ(usec, 0);
  SbTime(-1.25).getValue(sec, usec);
  EXPECT_EQ(sec, -2);
  EXPECT_EQ(usec, 750000);
}

TEST(SbTime, ArithmeticAndComparison) {
  const SbTime a(2.5), b(1.0);
  EXPECT_EQ(a + b, SbTime(3.5));
  EXPECT_EQ(a - b, SbTime(1.5));
  EXPECT_EQ(a * 2.0, SbTime(5.0));
  EXPECT_EQ(2.0 * a, SbTime(5.0));
  EXPECT_EQ(a / 2.0, SbTime(1.25));
  EXPECT_DOUBLE_EQ(a / b, 2.5);
  EXPECT_EQ(a % b, SbTime(0.5));
  EXPECT_EQ(-a, SbTime(-2.5));
  SbTime c = a;
  c += b;
  c -= SbTime(0.5);
  c *= 2.0;
  c /= 4.0;
  EXPECT_EQ(c, SbTime(1.5));
  EXPECT_TRUE(b < a && a > b && b <= b && a >= a && a != b);
  EXPECT_TRUE(SbTime::zero() < a);
  EXPECT_TRUE(a < SbTime::max());
}

TEST(SbTime, TimeOfDayFollowsTheClock) {
  const double before = static_cast<double>(std::time(nullptr));
  const double now = SbTime::getTimeOfDay().getValue();
  EXPECT_GE(now, before - 1.0);
  EXPECT_LE(now, before + 2.0);
  SbTime t;
  t.setToTimeOfDay();
  EXPECT_GE(t.getValue(), now);
}

TEST(SbTime, DurationFormatting) {
  EXPECT_STREQ(SbTime(1.5).format().getString(), "1.500");
  EXPECT_STREQ(SbTime(-2.25).format().getString(), "-2.250");
  EXPECT_STREQ(SbTime(3723.0456).format("%H:%m:%s.%i").getString(), "1:02:03.045");
  EXPECT_STREQ(SbTime(90061.0).format("%D %h %m %s").getString(), "1 01 01 01");
  EXPECT_STREQ(SbTime(61.000007).format("%M min, %I ms, %U us, %u").getString(),
               "1 min, 61000 ms, 61000007 us, 000007");
  EXPECT_STREQ(SbTime(5.0).format("100%% %S %q").getString(), "100% 5 %q");
}

TEST(SbTime, DateFormattingUsesStrftime) {
  const SbTime t(86400.0 * 365 + 3600 * 12);  // mid-1971, well clear of time zones
  EXPECT_STREQ(t.formatDate("%Y").getString(), "1971");
  EXPECT_FALSE(t.formatDate().isEmpty());
}

TEST(SbElapsedTime, MeasuresForward) {
  SbElapsedTime timer;
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  const double elapsed = timer.getElapsed();
  EXPECT_GE(elapsed, 0.015);
  EXPECT_LT(elapsed, 5.0);
  timer.reset();
  EXPECT_LT(timer.getElapsed(), elapsed);
}
