#pragma once
#include <Orvex/SbString.h>

// A time value or interval, in seconds, with microsecond resolution.
class SbTime {
 public:
  SbTime() = default;
  explicit SbTime(double seconds) : m_seconds(seconds) {}
  SbTime(int64_t sec, long usec) : m_seconds(double(sec) + usec * 1e-6) {}

  static SbTime getTimeOfDay();  // wall-clock time since the epoch
  void setToTimeOfDay() { *this = getTimeOfDay(); }
  static SbTime zero() { return SbTime(0.0); }
  static SbTime max();
  static SbTime maxTime() { return max(); }

  void setValue(double seconds) { m_seconds = seconds; }
  void setValue(int64_t sec, long usec) { m_seconds = double(sec) + usec * 1e-6; }
  void setMsecValue(unsigned long msec) { m_seconds = double(msec) / 1000.0; }
  double getValue() const { return m_seconds; }
  unsigned long getMsecValue() const;
  void getValue(int64_t& sec, long& usec) const;

  // strftime-like formatting with the extra %D %h %m %s %i %S %M %H for
  // durations; format() defaults to "%S.%i".
  SbString format(const char* fmt = "%S.%i") const;
  SbString formatDate(const char* fmt = nullptr) const;

  SbTime& operator+=(const SbTime& t) { m_seconds += t.m_seconds; return *this; }
  SbTime& operator-=(const SbTime& t) { m_seconds -= t.m_seconds; return *this; }
  SbTime operator-() const { return SbTime(-m_seconds); }
  SbTime& operator*=(double s) { m_seconds *= s; return *this; }
  SbTime& operator/=(double s) { m_seconds /= s; return *this; }
  friend SbTime operator+(const SbTime& a, const SbTime& b) { return SbTime(a.m_seconds + b.m_seconds); }
  friend SbTime operator-(const SbTime& a, const SbTime& b) { return SbTime(a.m_seconds - b.m_seconds); }
  friend SbTime operator*(const SbTime& t, double s) { return SbTime(t.m_seconds * s); }
  friend SbTime operator*(double s, const SbTime& t) { return SbTime(t.m_seconds * s); }
  friend SbTime operator/(const SbTime& t, double s) { return SbTime(t.m_seconds / s); }
  friend double operator/(const SbTime& a, const SbTime& b) { return a.m_seconds / b.m_seconds; }
  SbTime operator%(const SbTime& t) const;

  friend bool operator==(const SbTime& a, const SbTime& b) { return a.m_seconds == b.m_seconds; }
  friend bool operator!=(const SbTime& a, const SbTime& b) { return a.m_seconds != b.m_seconds; }
  friend bool operator<(const SbTime& a, const SbTime& b) { return a.m_seconds < b.m_seconds; }
  friend bool operator>(const SbTime& a, const SbTime& b) { return a.m_seconds > b.m_seconds; }
  friend bool operator<=(const SbTime& a, const SbTime& b) { return a.m_seconds <= b.m_seconds; }
  friend bool operator>=(const SbTime& a, const SbTime& b) { return a.m_seconds >= b.m_seconds; }

 private:
  double m_seconds = 0.0;
};

// Measures the time elapsed since construction or the last reset().
class SbElapsedTime {
 public:
  SbElapsedTime();
  void reset();
  double getElapsed() const;  // seconds, monotonic clock
 private:
  int64_t m_startNs;
};
