#pragma once
#include <Orvex/SbString.h>

// What the processor that runs the toolkit offers: vendor, brand and the
// vector instruction sets the toolkit's fast paths may use. Filled once at
// construction.
class SbCPUID {
 public:
  SbCPUID();

  SbString getVendor() const { return m_vendor; }
  SbString getBrandString() const { return m_brand; }
  bool hasSSE() const { return m_sse; }
  bool hasSSE2() const { return m_sse2; }
  bool hasSSE41() const { return m_sse41; }
  bool hasAVX() const { return m_avx; }
  bool hasAVX2() const { return m_avx2; }
  // Logical processors the process may run on.
  int getNumLogicalProcessors() const { return m_logical; }

 private:
  SbString m_vendor;
  SbString m_brand;
  bool m_sse = false;
  bool m_sse2 = false;
  bool m_sse41 = false;
  bool m_avx = false;
  bool m_avx2 = false;
  int m_logical = 1;
};
