#pragma once
#include <Orvex/elements/SoInt32Element.h>

// The unit of length of the coordinates that follow.
class SoUnitsElement : public SoInt32Element {
  SO_ELEMENT_HEADER(SoUnitsElement);

 public:
  enum Units {
    METERS,
    CENTIMETERS,
    MILLIMETERS,
    MICROMETERS,
    MICRONS,
    NANOMETERS,
    ANGSTROMS,
    KILOMETERS,
    FEET,
    INCHES,
    POINTS,
    YARDS,
    MILES,
    NAUTICAL_MILES
  };

  void init(SoState* state) override;
  static void set(SoState* state, Units value);
  static Units get(SoState* state);
  static Units getDefault() { return METERS; }

 protected:
  ~SoUnitsElement() override;
};
