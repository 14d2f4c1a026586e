#pragma once
#include <Orvex/SbTime.h>
#include <Orvex/fields/SoSField.h>

// A single time value.
class SoSFTime : public SoSField {
 public:
  SoSFTime() = default;
  static SoType getClassTypeId();
  SoType getTypeId() const override;
  static void initClass();
  static void* createInstance();

  const SbTime& getValue() const { return m_value; }
  void setValue(const SbTime& value);
  SoSFTime& operator=(const SbTime& value) { setValue(value); return *this; }
  bool operator==(const SoSFTime& f) const { return m_value == f.m_value; }
  bool operator!=(const SoSFTime& f) const { return !(*this == f); }

 private:
  SbTime m_value;
};
