#include <Orvex/SbCPUID.h>

#include <cstring>
#include <thread>

#if defined(__x86_64__) || defined(__i386__)
#include <cpuid.h>
#define ORVEX_HAVE_CPUID 1
#endif

SbCPUID::SbCPUID() {
  const unsigned hw = std::thread::hardware_concurrency();
  m_logical = hw > 0 ? static_cast<int>(hw) : 1;
#if defined(ORVEX_HAVE_CPUID)
  unsigned a = 0, b = 0, c = 0, d = 0;
  if (!__get_cpuid(0, &a, &b, &c, &d)) {
    m_vendor = "unknown";
    return;
  }
  const unsigned maxLeaf = a;
  char vendor[13];
  std::memcpy(vendor, &b, 4);
  std::memcpy(vendor + 4, &d, 4);
  std::memcpy(vendor + 8, &c, 4);
  vendor[12] = '\0';
  m_vendor = vendor;

  if (__get_cpuid(1, &a, &b, &c, &d)) {
    m_sse = (d >> 25) & 1;
    m_sse2 = (d >> 26) & 1;
    m_sse41 = (c >> 19) & 1;
    m_avx = (c >> 28) & 1;
  }
  if (maxLeaf >= 7) {
    __cpuid_count(7, 0, a, b, c, d);
    m_avx2 = (b >> 5) & 1;
  }
  // The brand string lives in extended leaves 0x80000002..4.
  if (__get_cpuid(0x80000000, &a, &b, &c, &d) && a >= 0x80000004) {
    char brand[49] = {};
    for (unsigned leaf = 0; leaf < 3; ++leaf) {
      unsigned regs[4];
      __get_cpuid(0x80000002 + leaf, &regs[0], &regs[1], &regs[2], &regs[3]);
      std::memcpy(brand + leaf * 16, regs, 16);
    }
    const char* start = brand;
    while (*start == ' ') ++start;
    m_brand = start;
  }
#else
  m_vendor = "unknown";
#endif
}
