#include <Orvex/engines/SoElapsedTime.h>

#include <Orvex/SoDB.h>

SO_ENGINE_SOURCE(SoElapsedTime)

void SoElapsedTime::initClass() { SO_ENGINE_INIT_CLASS(SoElapsedTime, SoEngine, "Engine"); }

SoElapsedTime::SoElapsedTime() {
  SO_ENGINE_CONSTRUCTOR(SoElapsedTime);
  SO_ENGINE_ADD_INPUT(timeIn, (SbTime::zero()));
  SO_ENGINE_ADD_INPUT(speed, (1.0f));
  SO_ENGINE_ADD_INPUT(on, (true));
  SO_ENGINE_ADD_INPUT(pause, (false));
  SO_ENGINE_ADD_INPUT(reset, ());
  SO_ENGINE_ADD_OUTPUT(timeOut, SoSFTime);
  if (SoField* realTime = SoDB::getGlobalField("realTime")) timeIn.connectFrom(realTime);
  m_last = timeIn.getValue();
  m_started = true;
}

SoElapsedTime::~SoElapsedTime() = default;

void SoElapsedTime::accumulate() {
  const SbTime now = timeIn.getValue();
  if (!m_started) {
    m_last = now;
    m_started = true;
  }
  if (m_running) m_elapsed += (now - m_last).getValue() * m_speed;
  m_last = now;
  m_running = on.getValue();
  m_speed = speed.getValue();
}

void SoElapsedTime::inputChanged(SoField* whichField) {
  if (whichField == &reset) {
    m_last = timeIn.getValue();
    m_elapsed = 0.0;
    m_frozen = 0.0;
  } else if (whichField == &on || whichField == &speed) {
    // The time so far counts with the old setting, kept until now.
    accumulate();
  } else if (whichField == &pause) {
    accumulate();
    if (pause.getValue()) m_frozen = m_elapsed;
  }
}

void SoElapsedTime::evaluate() {
  accumulate();
  SO_ENGINE_OUTPUT(timeOut, SoSFTime, setValue(SbTime(pause.getValue() ? m_frozen : m_elapsed)));
}
