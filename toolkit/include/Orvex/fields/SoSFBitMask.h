#pragma once
#include <Orvex/fields/SoSFEnum.h>

// A field holding a set of flags of an enumeration: written as one name or
// as "( A | B )".
class SoSFBitMask : public SoSFEnum {
  SO_FIELD_HEADER(SoSFBitMask);

 public:
  SoSFBitMask();
  ~SoSFBitMask() override;
  SoSFBitMask& operator=(int newValue) {
    setValue(newValue);
    return *this;
  }
  bool readValue(SoInput* in) override;
  void writeValue(SoOutput* out) const override;
};
