#pragma once
#include <Orvex/SbViewportRegion.h>
#include <Orvex/elements/SoSubElement.h>

// The part of the window the action works in (set by the action from the
// region it was given).
class SoViewportRegionElement : public SoElement {
  SO_ELEMENT_HEADER(SoViewportRegionElement);

 public:
  void init(SoState* state) override;
  void push(SoState* state) override;
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;
  void print(FILE* fp) const override;

  static void set(SoState* state, const SbViewportRegion& region);
  static const SbViewportRegion& get(SoState* state);
  static SbViewportRegion getDefault() { return SbViewportRegion(); }

 protected:
  ~SoViewportRegionElement() override;
  virtual void setElt(const SbViewportRegion& region);

  SbViewportRegion viewportRegion;
};
