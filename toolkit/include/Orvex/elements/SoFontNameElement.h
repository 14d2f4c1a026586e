#pragma once
#include <Orvex/SbName.h>
#include <Orvex/elements/SoReplacedElement.h>

// The name of the current font.
class SoFontNameElement : public SoReplacedElement {
  SO_ELEMENT_HEADER(SoFontNameElement);

 public:
  void init(SoState* state) override;
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;

  static void set(SoState* state, SoNode* node, const SbName& fontName);
  static const SbName& get(SoState* state);
  static SbName getDefault() { return SbName("defaultFont"); }

 protected:
  ~SoFontNameElement() override;

  SbName fontName;
};
