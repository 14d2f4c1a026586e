#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoSFBool.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/fields/SoSFTime.h>
#include <Orvex/fields/SoSFTrigger.h>

// A stopwatch: timeOut is the time that went by since the engine was made
// or reset, scaled by speed, while on. timeIn follows the database's
// "realTime" field. While paused the output stands still but time keeps
// counting, so it jumps ahead when the pause ends.
class SoElapsedTime : public SoEngine {
  SO_ENGINE_HEADER(SoElapsedTime);

 public:
  SoSFTime timeIn;
  SoSFFloat speed;
  SoSFBool on;
  SoSFBool pause;
  SoSFTrigger reset;
  SoEngineOutput timeOut;  // SoSFTime

  SoElapsedTime();

 protected:
  ~SoElapsedTime() override;
  void inputChanged(SoField* whichField) override;
  void evaluate() override;

 private:
  // Adds the time since the last call, at the speed and on state that held.
  void accumulate();

  double m_elapsed = 0.0;
  double m_frozen = 0.0;
  SbTime m_last;
  bool m_started = false;
  bool m_running = true;
  float m_speed = 1.0f;
};
