#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoSFBool.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/fields/SoSFShort.h>
#include <Orvex/fields/SoSFTime.h>
#include <Orvex/fields/SoSFTrigger.h>

// Counts from min to max by step, on a timer: a whole cycle takes
// 1 / frequency seconds, each value's share of it given by duty (equal
// shares without). syncOut fires as each cycle begins; syncIn restarts the
// cycle; reset sets the output at once. timeIn follows the database's
// "realTime" field.
class SoTimeCounter : public SoEngine {
  SO_ENGINE_HEADER(SoTimeCounter);

 public:
  SoSFTime timeIn;
  SoSFShort min;
  SoSFShort max;
  SoSFShort step;
  SoSFBool on;
  SoSFFloat frequency;
  SoMFFloat duty;
  SoSFShort reset;
  SoSFTrigger syncIn;
  SoEngineOutput output;  // SoSFShort
  SoEngineOutput syncOut;  // SoSFTrigger

  SoTimeCounter();

 protected:
  ~SoTimeCounter() override;
  void inputChanged(SoField* whichField) override;
  void evaluate() override;

 private:
  double period() const;
  // The cycle a time falls in, and the value it shows.
  long cycleOf(const SbTime& t) const;
  short valueAt(const SbTime& t) const;

  SbTime m_cycleStart;
  long m_lastCycle = 0;
  short m_pausedValue = 0;
  SbTime m_pausedOffset;
};
