#pragma once
#include <Orvex/fields/SoMFEnum.h>

// A field holding any number of flag sets of an enumeration.
class SoMFBitMask : public SoMFEnum {
  SO_FIELD_HEADER(SoMFBitMask);

 public:
  SoMFBitMask();
  ~SoMFBitMask() override;
  SoMFBitMask& operator=(int newValue) {
    setValue(newValue);
    return *this;
  }

 protected:
  bool read1Value(SoInput* in, int index) override;
  void write1Value(SoOutput* out, int index) const override;
};
