#pragma once
#include <Orvex/SbViewVolume.h>
#include <Orvex/elements/SoReplacedElement.h>

// The volume the current camera sees, in world space.
class SoViewVolumeElement : public SoReplacedElement {
  SO_ELEMENT_HEADER(SoViewVolumeElement);

 public:
  void init(SoState* state) override;
  static void set(SoState* state, SoNode* node, const SbViewVolume& viewVolume);
  static const SbViewVolume& get(SoState* state);
  // The 2 x 2 x 2 orthographic box around the origin.
  static SbViewVolume getDefault() { return SbViewVolume(); }

 protected:
  ~SoViewVolumeElement() override;

  SbViewVolume viewVolume;
};
