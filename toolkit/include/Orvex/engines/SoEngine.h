#pragma once
#include <Orvex/fields/SoFieldContainer.h>

// Base of the engines: field containers outside the scene graph that
// compute values, referred to by engine fields (SoSFEngine, SoMFEngine).
// This base gives engines their type, reference counting, notification and
// reading and writing as field containers; the engine classes themselves
// (inputs, outputs and their evaluation) are built on it.
class SoEngine : public SoFieldContainer {
 public:
  static SoType getClassTypeId();
  static void initClass();

 protected:
  SoEngine();
  ~SoEngine() override;
};
