#pragma once
#include <Orvex/SbPlane.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a plane (normal and distance from the origin).
class SoMFPlane : public SoMField {
  SO_MFIELD_HEADER(SoMFPlane, SbPlane, const SbPlane&);
};
