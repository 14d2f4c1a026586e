#include <Orvex/SbDataType.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdint>

namespace {
struct TypeInfo {
  SbDataType::DataType type;
  const char* name;
  unsigned size;
  bool isSigned;
  bool isInteger;
  double min;
  double max;
};

const TypeInfo kTypes[] = {
    {SbDataType::UNSIGNED_BYTE, "UNSIGNED_BYTE", 1, false, true, 0, UINT8_MAX},
    {SbDataType::UNSIGNED_SHORT, "UNSIGNED_SHORT", 2, false, true, 0, UINT16_MAX},
    {SbDataType::UNSIGNED_INT32, "UNSIGNED_INT32", 4, false, true, 0, UINT32_MAX},
    {SbDataType::SIGNED_BYTE, "SIGNED_BYTE", 1, true, true, INT8_MIN, INT8_MAX},
    {SbDataType::SIGNED_SHORT, "SIGNED_SHORT", 2, true, true, INT16_MIN, INT16_MAX},
    {SbDataType::SIGNED_INT32, "SIGNED_INT32", 4, true, true, INT32_MIN, INT32_MAX},
    {SbDataType::FLOAT, "FLOAT", 4, true, false, -FLT_MAX, FLT_MAX},
    {SbDataType::DOUBLE, "DOUBLE", 8, true, false, -DBL_MAX, DBL_MAX},
};
const TypeInfo kUnknown = {SbDataType::UNKNOWN, "UNKNOWN", 0, false, false, 0, 0};

const TypeInfo& infoOf(SbDataType::DataType t) {
  for (const TypeInfo& i : kTypes)
    if (i.type == t) return i;
  return kUnknown;
}
}  // namespace

SbDataType::SbDataType(const SbString& name) : m_type(UNKNOWN) {
  for (const TypeInfo& i : kTypes)
    if (name == i.name) m_type = i.type;
}

unsigned int SbDataType::getSize() const { return infoOf(m_type).size; }
bool SbDataType::isSigned() const { return infoOf(m_type).isSigned; }
bool SbDataType::isInteger() const { return infoOf(m_type).isInteger; }
double SbDataType::getMin() const { return infoOf(m_type).min; }
double SbDataType::getMax() const { return infoOf(m_type).max; }
double SbDataType::normalize(double value) const {
  const TypeInfo& i = infoOf(m_type);
  if (m_type == UNKNOWN) return value;
  const double v = std::clamp(value, i.min, i.max);
  return i.isInteger ? std::round(v) : v;
}
SbString SbDataType::getString() const { return SbString(infoOf(m_type).name); }
