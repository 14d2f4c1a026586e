// Boolean operations, counters and the gate.

#include <Orvex/engines/SoBoolOperation.h>
#include <Orvex/engines/SoCounter.h>
#include <Orvex/engines/SoGate.h>
#include <Orvex/engines/SoTimeCounter.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/fields/SoMFFloat.h>

#include <Orvex/SoDB.h>

#include <algorithm>
#include <cmath>

#include "EngineValues.h"

using orvex::valueAt;

// ---- SoBoolOperation --------------------------------------------------------------------

SO_ENGINE_SOURCE(SoBoolOperation)

void SoBoolOperation::initClass() { SO_ENGINE_INIT_CLASS(SoBoolOperation, SoEngine, "Engine"); }

SoBoolOperation::SoBoolOperation() {
  SO_ENGINE_CONSTRUCTOR(SoBoolOperation);
  SO_ENGINE_DEFINE_ENUM_VALUE(Operation, CLEAR);
  SO_ENGINE_DEFINE_ENUM_VALUE(Operation, SET);
  SO_ENGINE_DEFINE_ENUM_VALUE(Operation, A);
  SO_ENGINE_DEFINE_ENUM_VALUE(Operation, NOT_A);
  SO_ENGINE_DEFINE_ENUM_VALUE(Operation, B);
  SO_ENGINE_DEFINE_ENUM_VALUE(Operation, NOT_B);
  SO_ENGINE_DEFINE_ENUM_VALUE(Operation, A_OR_B);
  SO_ENGINE_DEFINE_ENUM_VALUE(Operation, NOT_A_OR_B);
  SO_ENGINE_DEFINE_ENUM_VALUE(Operation, A_OR_NOT_B);
  SO_ENGINE_DEFINE_ENUM_VALUE(Operation, NOT_A_OR_NOT_B);
  SO_ENGINE_DEFINE_ENUM_VALUE(Operation, A_AND_B);
  SO_ENGINE_DEFINE_ENUM_VALUE(Operation, NOT_A_AND_B);
  SO_ENGINE_DEFINE_ENUM_VALUE(Operation, A_AND_NOT_B);
  SO_ENGINE_DEFINE_ENUM_VALUE(Operation, NOT_A_AND_NOT_B);
  SO_ENGINE_DEFINE_ENUM_VALUE(Operation, A_EQUALS_B);
  SO_ENGINE_DEFINE_ENUM_VALUE(Operation, A_NOT_EQUALS_B);
  SO_ENGINE_ADD_INPUT(a, (false));
  SO_ENGINE_ADD_INPUT(b, (false));
  SO_ENGINE_ADD_INPUT(operation, (A));
  SO_ENGINE_SET_MF_ENUM_TYPE(operation, Operation);
  SO_ENGINE_ADD_OUTPUT(output, SoMFBool);
  SO_ENGINE_ADD_OUTPUT(inverse, SoMFBool);
}

SoBoolOperation::~SoBoolOperation() = default;

namespace {
bool combine(int op, bool a, bool b) {
  switch (op) {
    case SoBoolOperation::CLEAR: return false;
    case SoBoolOperation::SET: return true;
    case SoBoolOperation::A: return a;
    case SoBoolOperation::NOT_A: return !a;
    case SoBoolOperation::B: return b;
    case SoBoolOperation::NOT_B: return !b;
    case SoBoolOperation::A_OR_B: return a || b;
    case SoBoolOperation::NOT_A_OR_B: return !a || b;
    case SoBoolOperation::A_OR_NOT_B: return a || !b;
    case SoBoolOperation::NOT_A_OR_NOT_B: return !a || !b;
    case SoBoolOperation::A_AND_B: return a && b;
    case SoBoolOperation::NOT_A_AND_B: return !a && b;
    case SoBoolOperation::A_AND_NOT_B: return a && !b;
    case SoBoolOperation::NOT_A_AND_NOT_B: return !a && !b;
    case SoBoolOperation::A_EQUALS_B: return a == b;
    case SoBoolOperation::A_NOT_EQUALS_B: return a != b;
    default: return false;
  }
}
}  // namespace

void SoBoolOperation::evaluate() {
  const int n = orvex::longest(a, b, operation);
  std::vector<bool> out, inv;
  for (int i = 0; i < n; ++i) {
    const bool r = combine(valueAt(operation, i, static_cast<int>(A)), valueAt(a, i, false), valueAt(b, i, false));
    out.push_back(r);
    inv.push_back(!r);
  }
  orvex::outputBools<SoMFBool>(output, out);
  orvex::outputBools<SoMFBool>(inverse, inv);
}

// ---- SoCounter ----------------------------------------------------------------------------

SO_ENGINE_SOURCE(SoCounter)

void SoCounter::initClass() { SO_ENGINE_INIT_CLASS(SoCounter, SoEngine, "Engine"); }

SoCounter::SoCounter() {
  SO_ENGINE_CONSTRUCTOR(SoCounter);
  SO_ENGINE_ADD_INPUT(min, (static_cast<short>(0)));
  SO_ENGINE_ADD_INPUT(max, (static_cast<short>(1)));
  SO_ENGINE_ADD_INPUT(step, (static_cast<short>(1)));
  SO_ENGINE_ADD_INPUT(trigger, ());
  SO_ENGINE_ADD_INPUT(reset, (static_cast<short>(0)));
  SO_ENGINE_ADD_OUTPUT(output, SoSFShort);
  SO_ENGINE_ADD_OUTPUT(syncOut, SoSFTrigger);
  syncOut.enable(false);  // fires only when the count wraps
}

SoCounter::~SoCounter() = default;

void SoCounter::inputChanged(SoField* whichField) {
  const short lo = min.getValue(), hi = max.getValue();
  bool wrapped = false;
  if (whichField == &trigger) {
    const int next = m_value + step.getValue();
    if (next > hi) {
      m_value = lo;
      wrapped = true;
    } else if (next < lo) {
      m_value = hi;
      wrapped = true;
    } else {
      m_value = static_cast<short>(next);
    }
  } else if (whichField == &reset) {
    m_value = reset.getValue();
  }
  if (lo <= hi) m_value = std::max(lo, std::min(hi, m_value));
  syncOut.enable(wrapped);
}

void SoCounter::evaluate() {
  SO_ENGINE_OUTPUT(output, SoSFShort, setValue(m_value));
  SO_ENGINE_OUTPUT(syncOut, SoSFTrigger, setValue());
}

// ---- SoTimeCounter ------------------------------------------------------------------------

SO_ENGINE_SOURCE(SoTimeCounter)

void SoTimeCounter::initClass() { SO_ENGINE_INIT_CLASS(SoTimeCounter, SoEngine, "Engine"); }

SoTimeCounter::SoTimeCounter() {
  SO_ENGINE_CONSTRUCTOR(SoTimeCounter);
  SO_ENGINE_ADD_INPUT(timeIn, (SbTime::zero()));
  SO_ENGINE_ADD_INPUT(min, (static_cast<short>(0)));
  SO_ENGINE_ADD_INPUT(max, (static_cast<short>(1)));
  SO_ENGINE_ADD_INPUT(step, (static_cast<short>(1)));
  SO_ENGINE_ADD_INPUT(on, (true));
  SO_ENGINE_ADD_INPUT(frequency, (1.0f));
  SO_ENGINE_ADD_INPUT(duty, (1.0f));
  SO_ENGINE_ADD_INPUT(reset, (static_cast<short>(0)));
  SO_ENGINE_ADD_INPUT(syncIn, ());
  SO_ENGINE_ADD_OUTPUT(output, SoSFShort);
  SO_ENGINE_ADD_OUTPUT(syncOut, SoSFTrigger);
  syncOut.enable(false);  // fires only as a cycle begins
  if (SoField* realTime = SoDB::getGlobalField("realTime")) timeIn.connectFrom(realTime);
  m_cycleStart = timeIn.getValue();
  m_lastCycle = 0;
}

SoTimeCounter::~SoTimeCounter() = default;

namespace {
// The number of values from min to max by step.
int valueCount(short lo, short hi, short step) {
  if (step <= 0 || hi < lo) return 1;
  return (hi - lo) / step + 1;
}
// A value's share of the cycle (equal shares where duty gives none).
double weightOf(const SoMFFloat& duty, int k) {
  const double w = k < duty.getNum() ? duty[k] : 1.0;
  return w > 0.0 ? w : 0.0;
}
}  // namespace

double SoTimeCounter::period() const {
  const float f = frequency.getValue();
  return f > 0.0f ? 1.0 / f : 0.0;
}

long SoTimeCounter::cycleOf(const SbTime& t) const {
  const double p = period();
  if (p <= 0.0) return 0;
  return static_cast<long>(std::floor(std::max(0.0, (t - m_cycleStart).getValue()) / p));
}

short SoTimeCounter::valueAt(const SbTime& t) const {
  const int n = valueCount(min.getValue(), max.getValue(), step.getValue());
  const double p = period();
  double total = 0.0;
  for (int k = 0; k < n; ++k) total += weightOf(duty, k);
  if (p <= 0.0 || total <= 0.0) return min.getValue();
  const double since = std::max(0.0, (t - m_cycleStart).getValue());
  const double phase = (since - cycleOf(t) * p) / p * total;
  double sum = 0.0;
  int k = 0;
  for (; k < n - 1; ++k) {
    sum += weightOf(duty, k);
    if (phase < sum) break;
  }
  return static_cast<short>(min.getValue() + k * std::max<short>(step.getValue(), 1));
}

void SoTimeCounter::inputChanged(SoField* whichField) {
  const SbTime now = timeIn.getValue();
  bool newCycle = false;
  if (whichField == &syncIn) {
    m_cycleStart = now;
    m_lastCycle = 0;
    newCycle = true;
  } else if (whichField == &reset) {
    // The cycle moves so that the reset value's share begins now.
    const int n = valueCount(min.getValue(), max.getValue(), step.getValue());
    const int k = std::max(0, std::min(n - 1, (reset.getValue() - min.getValue()) / std::max<short>(step.getValue(), 1)));
    double before = 0.0, total = 0.0;
    for (int i = 0; i < n; ++i) {
      if (i < k) before += weightOf(duty, i);
      total += weightOf(duty, i);
    }
    m_cycleStart = now - SbTime(total > 0.0 ? before / total * period() : 0.0);
    m_lastCycle = cycleOf(now);
  } else if (whichField == &on) {
    if (on.getValue()) {
      // Carries on from where it stopped.
      m_cycleStart = now - m_pausedOffset;
      m_lastCycle = cycleOf(now);
    } else {
      m_pausedValue = valueAt(now);
      m_pausedOffset = now - m_cycleStart;
    }
  } else if (whichField == &timeIn && on.getValue()) {
    const long cycle = cycleOf(now);
    newCycle = cycle != m_lastCycle;
    m_lastCycle = cycle;
  }
  syncOut.enable(newCycle && on.getValue());
  output.enable(on.getValue() || whichField == &on);
}

void SoTimeCounter::evaluate() {
  SO_ENGINE_OUTPUT(output, SoSFShort, setValue(on.getValue() ? valueAt(timeIn.getValue()) : m_pausedValue));
  SO_ENGINE_OUTPUT(syncOut, SoSFTrigger, setValue());
}

// ---- SoGate -------------------------------------------------------------------------------

// The gate's input and output are made per instance, so its field and
// output data are its own; the class data hold enable and trigger.
SoType SoGate::s_classTypeId;
const SoFieldData* SoGate::s_fieldData = nullptr;
const SoFieldData** SoGate::s_parentFieldData = nullptr;
const SoEngineOutputData* SoGate::s_outputData = nullptr;
const SoEngineOutputData** SoGate::s_parentOutputData = nullptr;
SoType SoGate::getClassTypeId() { return s_classTypeId; }
SoType SoGate::getTypeId() const { return s_classTypeId; }
const SoFieldData** SoGate::getFieldDataPtr() { return &s_fieldData; }
const SoEngineOutputData** SoGate::getOutputDataPtr() { return &s_outputData; }
void* SoGate::createInstance() { return static_cast<SoBase*>(new SoGate); }

void SoGate::initClass() { SO_ENGINE_INIT_CLASS(SoGate, SoEngine, "Engine"); }

SoGate::SoGate(SoType type) {
  SO_ENGINE_CONSTRUCTOR(SoGate);
  SO_ENGINE_ADD_INPUT(enable, (false));
  SO_ENGINE_ADD_INPUT(trigger, ());
  setUpInput(type);
}

SoGate::SoGate() : SoGate(SoMFFloat::getClassTypeId()) {}

SoGate::~SoGate() = default;

void SoGate::setUpInput(SoType type) {
  if (!type.isDerivedFrom(SoMField::getClassTypeId()) || !type.canCreateInstance()) {
    SoDebugError::post("SoGate::SoGate", "%s is not a multiple-value field type; the gate passes floats",
                       type.getName().getString());
    type = SoMFFloat::getClassTypeId();
  }
  m_input.reset(static_cast<SoField*>(type.createInstance()));
  m_snapshot.reset(static_cast<SoField*>(type.createInstance()));
  input = static_cast<SoMField*>(m_input.get());
  input->setContainer(this);
  m_fieldData = std::make_unique<SoFieldData>(s_fieldData);
  m_fieldData->addField(nullptr, "input", input);
  m_output.setContainer(this);
  m_output.setType(type);
  m_output.enable(false);  // enable is off
  output = &m_output;
  m_outputData = std::make_unique<SoEngineOutputData>(s_outputData);
  m_outputData->addOutput(nullptr, "output", &m_output, type);
}

const SoFieldData* SoGate::getFieldData() const { return m_fieldData.get(); }
const SoEngineOutputData* SoGate::getOutputData() const { return m_outputData.get(); }

void SoGate::inputChanged(SoField* whichField) {
  if (whichField == &trigger) {
    // The value passes once, as it is now.
    m_snapshot->copyFrom(*input);
    m_triggered = true;
    m_output.enable(true);
    return;
  }
  m_output.enable(enable.getValue());
}

void SoGate::evaluate() {
  if (!enable.getValue() && !m_triggered) return;
  const SoField& value = enable.getValue() ? static_cast<const SoField&>(*input) : *m_snapshot;
  m_triggered = false;
  for (int i = 0; i < m_output.getNumConnections(); ++i) {
    SoField* f = m_output[i];
    const bool notify = f->enableNotify(false);
    if (f->getTypeId() == value.getTypeId())
      f->copyFrom(value);
    else
      orvex::convertFieldValue(value, *f);
    f->enableNotify(notify);
  }
  m_output.enable(enable.getValue());
}
