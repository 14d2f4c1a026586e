#pragma once
#include <Orvex/SbPlane.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a plane (normal and distance from the origin).
class SoSFPlane : public SoSField {
  SO_SFIELD_HEADER(SoSFPlane, SbPlane, const SbPlane&);
};
