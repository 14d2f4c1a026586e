#include <Orvex/SbTime.h>

#include <chrono>
#include <cmath>
#include <ctime>
#include <limits>

SbTime SbTime::getTimeOfDay() {
  const auto since = std::chrono::system_clock::now().time_since_epoch();
  const auto us = std::chrono::duration_cast<std::chrono::microseconds>(since).count();
  return SbTime(static_cast<int64_t>(us / 1000000), static_cast<long>(us % 1000000));
}

SbTime SbTime::max() { return SbTime(std::numeric_limits<double>::max()); }

unsigned long SbTime::getMsecValue() const {
  // Rounded, so that setMsecValue(n) reads back as n despite binary fractions.
  const double ms = m_seconds * 1000.0;
  if (!(std::fabs(ms) < 9.0e18)) return std::numeric_limits<unsigned long>::max();  // e.g. max()
  return static_cast<unsigned long>(std::llround(ms));
}

void SbTime::getValue(int64_t& sec, long& usec) const {
  const double whole = std::floor(m_seconds);
  sec = static_cast<int64_t>(whole);
  usec = static_cast<long>(std::llround((m_seconds - whole) * 1e6));
  if (usec >= 1000000) {
    sec += 1;
    usec -= 1000000;
  }
}

SbTime SbTime::operator%(const SbTime& t) const { return SbTime(std::fmod(m_seconds, t.m_seconds)); }

// Duration codes: %D days, %H hours, %M minutes, %S seconds, %I milliseconds
// and %U microseconds (each the total); %h %m %s %i %u the remainder within
// the next larger unit, zero-padded. %% is a percent sign.
SbString SbTime::format(const char* fmt) const {
  SbString out;
  if (!fmt) return out;
  const bool negative = m_seconds < 0;
  const int64_t totalUs = std::llround(std::fabs(m_seconds) * 1e6);
  const int64_t totalMs = totalUs / 1000;
  const int64_t totalS = totalUs / 1000000;
  const int64_t totalM = totalS / 60;
  const int64_t totalH = totalM / 60;
  const int64_t totalD = totalH / 24;
  if (negative) out += '-';

  for (const char* p = fmt; *p; ++p) {
    if (*p != '%' || p[1] == '\0') {
      out += *p;
      continue;
    }
    const char code = *++p;
    switch (code) {
      case 'D': out += SbString::sprintf("%lld", static_cast<long long>(totalD)); break;
      case 'H': out += SbString::sprintf("%lld", static_cast<long long>(totalH)); break;
      case 'h': out += SbString::sprintf("%02lld", static_cast<long long>(totalH % 24)); break;
      case 'M': out += SbString::sprintf("%lld", static_cast<long long>(totalM)); break;
      case 'm': out += SbString::sprintf("%02lld", static_cast<long long>(totalM % 60)); break;
      case 'S': out += SbString::sprintf("%lld", static_cast<long long>(totalS)); break;
      case 's': out += SbString::sprintf("%02lld", static_cast<long long>(totalS % 60)); break;
      case 'I': out += SbString::sprintf("%lld", static_cast<long long>(totalMs)); break;
      case 'i': out += SbString::sprintf("%03lld", static_cast<long long>(totalMs % 1000)); break;
      case 'U': out += SbString::sprintf("%lld", static_cast<long long>(totalUs)); break;
      case 'u': out += SbString::sprintf("%06lld", static_cast<long long>(totalUs % 1000000)); break;
      case '%': out += '%'; break;
      default:
        out += '%';
        out += code;
        break;
    }
  }
  return out;
}

// Calendar formatting in local time with strftime() codes; the default
// gives e.g. "Tuesday, 03/05/24 02:15:07 PM".
SbString SbTime::formatDate(const char* fmt) const {
  const std::time_t secs = static_cast<std::time_t>(std::floor(m_seconds));
  std::tm local{};
#if defined(_WIN32)
  localtime_s(&local, &secs);
#else
  localtime_r(&secs, &local);
#endif
  char buffer[256];
  const size_t n = std::strftime(buffer, sizeof buffer, fmt ? fmt : "%A, %D %r", &local);
  return SbString(std::string(buffer, n));
}

namespace {
int64_t monotonicNs() {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}
}  // namespace

SbElapsedTime::SbElapsedTime() : m_startNs(monotonicNs()) {}

void SbElapsedTime::reset() { m_startNs = monotonicNs(); }

double SbElapsedTime::getElapsed() const { return double(monotonicNs() - m_startNs) * 1e-9; }
