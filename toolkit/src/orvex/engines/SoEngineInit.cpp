// Registration of every engine class.

#include <Orvex/engines/SoBoolOperation.h>
#include <Orvex/engines/SoCalculator.h>
#include <Orvex/engines/SoComposeMatrix.h>
#include <Orvex/engines/SoComposeRotation.h>
#include <Orvex/engines/SoComposeRotationFromTo.h>
#include <Orvex/engines/SoComposeVec2f.h>
#include <Orvex/engines/SoComposeVec3f.h>
#include <Orvex/engines/SoComposeVec4f.h>
#include <Orvex/engines/SoCounter.h>
#include <Orvex/engines/SoDecomposeMatrix.h>
#include <Orvex/engines/SoDecomposeRotation.h>
#include <Orvex/engines/SoDecomposeVec2f.h>
#include <Orvex/engines/SoDecomposeVec3f.h>
#include <Orvex/engines/SoDecomposeVec4f.h>
#include <Orvex/engines/SoElapsedTime.h>
#include <Orvex/engines/SoGate.h>
#include <Orvex/engines/SoInterpolateFloat.h>
#include <Orvex/engines/SoInterpolateRotation.h>
#include <Orvex/engines/SoInterpolateVec2f.h>
#include <Orvex/engines/SoInterpolateVec3f.h>
#include <Orvex/engines/SoInterpolateVec4f.h>
#include <Orvex/engines/SoTimeCounter.h>

void SoEngine::initClasses() {
  initClass();
  SoElapsedTime::initClass();
  SoInterpolate::initClass();
  SoInterpolateFloat::initClass();
  SoInterpolateVec2f::initClass();
  SoInterpolateVec3f::initClass();
  SoInterpolateVec4f::initClass();
  SoInterpolateRotation::initClass();
  SoComposeVec2f::initClass();
  SoComposeVec3f::initClass();
  SoComposeVec4f::initClass();
  SoDecomposeVec2f::initClass();
  SoDecomposeVec3f::initClass();
  SoDecomposeVec4f::initClass();
  SoComposeRotation::initClass();
  SoComposeRotationFromTo::initClass();
  SoDecomposeRotation::initClass();
  SoComposeMatrix::initClass();
  SoDecomposeMatrix::initClass();
  SoCalculator::initClass();
  SoBoolOperation::initClass();
  SoCounter::initClass();
  SoTimeCounter::initClass();
  SoGate::initClass();
}
