#pragma once
#include <Orvex/fields/SoSubField.h>

// A field without a value: setting it (or touching it) only notifies. Used
// to start things, as an engine input or an event. It is never written.
class SoSFTrigger : public SoSField {
  SO_FIELD_HEADER(SoSFTrigger);

 public:
  SoSFTrigger();
  ~SoSFTrigger() override;
  void setValue() { touch(); }
  void getValue() const {}
  bool operator==(const SoSFTrigger&) const { return true; }
  bool operator!=(const SoSFTrigger&) const { return false; }
  bool readValue(SoInput* in) override;
  void writeValue(SoOutput* out) const override;
};
