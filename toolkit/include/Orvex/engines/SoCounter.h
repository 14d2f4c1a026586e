#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoSFShort.h>
#include <Orvex/fields/SoSFTrigger.h>

// Counts triggers: each one adds step to the output, going back to min
// (and firing syncOut) past max; reset sets the output to its value (kept
// between min and max). Counting happens when the trigger arrives, the
// output is written when read.
class SoCounter : public SoEngine {
  SO_ENGINE_HEADER(SoCounter);

 public:
  SoSFShort min;
  SoSFShort max;
  SoSFShort step;
  SoSFTrigger trigger;
  SoSFShort reset;
  SoEngineOutput output;  // SoSFShort
  SoEngineOutput syncOut;  // SoSFTrigger

  SoCounter();

 protected:
  ~SoCounter() override;
  void inputChanged(SoField* whichField) override;
  void evaluate() override;

 private:
  short m_value = 0;
};
