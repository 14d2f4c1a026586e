#pragma once
#include <Orvex/SbViewVolume.h>
#include <Orvex/elements/SoSubElement.h>

// The ray of the current pick, as a thin view volume around it: its
// projection point and direction are the ray, its near and far distances
// bound it, and its width is the pick radius at the near distance.
class SoPickRayElement : public SoElement {
  SO_ELEMENT_HEADER(SoPickRayElement);

 public:
  void init(SoState* state) override;
  void push(SoState* state) override;
  // A cache never depends on the pick ray: every pick has its own.
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;

  static void set(SoState* state, const SbViewVolume& volume);
  static const SbViewVolume& get(SoState* state);

 protected:
  ~SoPickRayElement() override;

  SbViewVolume volume;
};
