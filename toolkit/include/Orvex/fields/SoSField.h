#pragma once
#include <Orvex/fields/SoField.h>

// Base of the single-value fields.
class SoSField : public SoField {
 public:
  static SoType getClassTypeId();
  static void initClass();
 protected:
  SoSField() = default;
};
