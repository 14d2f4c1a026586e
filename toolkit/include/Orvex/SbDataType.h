#pragma once
#include <Orvex/SbString.h>

// The element type of a data buffer (images, volumes, meshes): its size,
// signedness and range.
class SbDataType {
 public:
  enum DataType {
    UNSIGNED_BYTE = 0,
    UNSIGNED_SHORT = 1,
    UNSIGNED_INT32 = 2,
    SIGNED_BYTE = 4,
    SIGNED_SHORT = 5,
    SIGNED_INT32 = 6,
    FLOAT = 10,
    DOUBLE = 11,
    UNKNOWN = 0xFFFF
  };

  SbDataType() = default;
  SbDataType(DataType type) : m_type(type) {}
  // From the name that getString() gives ("FLOAT", "UNSIGNED_SHORT"...);
  // UNKNOWN for any other text.
  explicit SbDataType(const SbString& name);

  DataType getType() const { return m_type; }
  // Size of one element in bytes (0 for UNKNOWN).
  unsigned int getSize() const;
  unsigned int getNumBits() const { return getSize() * 8; }
  bool isSigned() const;
  bool isInteger() const;
  // The smallest and largest values of the type (lowest finite for FLOAT/DOUBLE).
  double getMin() const;
  double getMax() const;
  // Clamps `value` into the type's range and, for integer types, rounds it.
  double normalize(double value) const;
  SbString getString() const;

  friend bool operator==(const SbDataType& a, const SbDataType& b) { return a.m_type == b.m_type; }
  friend bool operator!=(const SbDataType& a, const SbDataType& b) { return a.m_type != b.m_type; }

 private:
  DataType m_type = UNSIGNED_BYTE;
};
