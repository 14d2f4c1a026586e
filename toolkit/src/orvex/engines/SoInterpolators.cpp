// The interpolators.

#include <Orvex/engines/SoInterpolate.h>
#include <Orvex/engines/SoInterpolateFloat.h>
#include <Orvex/engines/SoInterpolateRotation.h>
#include <Orvex/engines/SoInterpolateVec2f.h>
#include <Orvex/engines/SoInterpolateVec3f.h>
#include <Orvex/engines/SoInterpolateVec4f.h>

#include "EngineValues.h"

SO_ENGINE_ABSTRACT_SOURCE(SoInterpolate)

void SoInterpolate::initClass() { SO_ENGINE_INIT_ABSTRACT_CLASS(SoInterpolate, SoEngine, "Engine"); }

SoInterpolate::SoInterpolate() {
  SO_ENGINE_CONSTRUCTOR(SoInterpolate);
  SO_ENGINE_ADD_INPUT(alpha, (0.0f));
}

SoInterpolate::~SoInterpolate() = default;

namespace {
template <class T>
T lerp(const T& a, const T& b, float t) {
  return a * (1.0f - t) + b * t;
}
SbRotation lerp(const SbRotation& a, const SbRotation& b, float t) { return SbRotation::slerp(a, b, t); }

template <class Engine, class FieldType, class T>
void interpolate(Engine* engine, const FieldType& in0, const FieldType& in1, float t, const T& zero) {
  const int n = orvex::longest(in0, in1);
  std::vector<T> values;
  values.reserve(static_cast<size_t>(n));
  for (int i = 0; i < n; ++i) {
    const T a = orvex::valueAt(in0, i, orvex::valueAt(in1, i, zero));
    const T b = orvex::valueAt(in1, i, a);
    values.push_back(lerp(a, b, t));
  }
  orvex::outputValues<FieldType>(engine->output, values);
}
}  // namespace

#define ORVEX_INTERPOLATOR_SOURCE(className, fieldType, zero)                         \
  SO_ENGINE_SOURCE(className)                                                        \
  void className::initClass() { SO_ENGINE_INIT_CLASS(className, SoInterpolate, "Interpolate"); } \
  className::className() {                                                           \
    SO_ENGINE_CONSTRUCTOR(className);                                                \
    SO_ENGINE_ADD_INPUT(input0, (zero));                                             \
    SO_ENGINE_ADD_INPUT(input1, (zero));                                             \
    SO_ENGINE_ADD_OUTPUT(output, fieldType);                                         \
  }                                                                                  \
  className::~className() = default;                                                 \
  void className::evaluate() { interpolate(this, input0, input1, alpha.getValue(), zero); }

ORVEX_INTERPOLATOR_SOURCE(SoInterpolateFloat, SoMFFloat, 0.0f)
ORVEX_INTERPOLATOR_SOURCE(SoInterpolateVec2f, SoMFVec2f, SbVec2f(0.0f, 0.0f))
ORVEX_INTERPOLATOR_SOURCE(SoInterpolateVec3f, SoMFVec3f, SbVec3f(0.0f, 0.0f, 0.0f))
ORVEX_INTERPOLATOR_SOURCE(SoInterpolateVec4f, SoMFVec4f, SbVec4f(0.0f, 0.0f, 0.0f, 0.0f))
ORVEX_INTERPOLATOR_SOURCE(SoInterpolateRotation, SoMFRotation, SbRotation())
