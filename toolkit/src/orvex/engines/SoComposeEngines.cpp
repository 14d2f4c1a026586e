// Composing and decomposing vectors, rotations and matrices.

#include <Orvex/SbMatrix.h>
#include <Orvex/engines/SoComposeMatrix.h>
#include <Orvex/engines/SoComposeRotation.h>
#include <Orvex/engines/SoComposeRotationFromTo.h>
#include <Orvex/engines/SoComposeVec2f.h>
#include <Orvex/engines/SoComposeVec3f.h>
#include <Orvex/engines/SoComposeVec4f.h>
#include <Orvex/engines/SoDecomposeMatrix.h>
#include <Orvex/engines/SoDecomposeRotation.h>
#include <Orvex/engines/SoDecomposeVec2f.h>
#include <Orvex/engines/SoDecomposeVec3f.h>
#include <Orvex/engines/SoDecomposeVec4f.h>

#include "EngineValues.h"

using orvex::longest;
using orvex::outputValues;
using orvex::valueAt;

#define ORVEX_ENGINE_CLASS(className)                                             \
  SO_ENGINE_SOURCE(className)                                                    \
  void className::initClass() { SO_ENGINE_INIT_CLASS(className, SoEngine, "Engine"); } \
  className::~className() = default;

// ---- vectors ----------------------------------------------------------------------------

ORVEX_ENGINE_CLASS(SoComposeVec2f)
SoComposeVec2f::SoComposeVec2f() {
  SO_ENGINE_CONSTRUCTOR(SoComposeVec2f);
  SO_ENGINE_ADD_INPUT(x, (0.0f));
  SO_ENGINE_ADD_INPUT(y, (0.0f));
  SO_ENGINE_ADD_OUTPUT(vector, SoMFVec2f);
}
void SoComposeVec2f::evaluate() {
  std::vector<SbVec2f> v;
  for (int i = 0, n = longest(x, y); i < n; ++i) v.emplace_back(valueAt(x, i, 0.0f), valueAt(y, i, 0.0f));
  outputValues<SoMFVec2f>(vector, v);
}

ORVEX_ENGINE_CLASS(SoComposeVec3f)
SoComposeVec3f::SoComposeVec3f() {
  SO_ENGINE_CONSTRUCTOR(SoComposeVec3f);
  SO_ENGINE_ADD_INPUT(x, (0.0f));
  SO_ENGINE_ADD_INPUT(y, (0.0f));
  SO_ENGINE_ADD_INPUT(z, (0.0f));
  SO_ENGINE_ADD_OUTPUT(vector, SoMFVec3f);
}
void SoComposeVec3f::evaluate() {
  std::vector<SbVec3f> v;
  for (int i = 0, n = longest(x, y, z); i < n; ++i)
    v.emplace_back(valueAt(x, i, 0.0f), valueAt(y, i, 0.0f), valueAt(z, i, 0.0f));
  outputValues<SoMFVec3f>(vector, v);
}

ORVEX_ENGINE_CLASS(SoComposeVec4f)
SoComposeVec4f::SoComposeVec4f() {
  SO_ENGINE_CONSTRUCTOR(SoComposeVec4f);
  SO_ENGINE_ADD_INPUT(x, (0.0f));
  SO_ENGINE_ADD_INPUT(y, (0.0f));
  SO_ENGINE_ADD_INPUT(z, (0.0f));
  SO_ENGINE_ADD_INPUT(w, (0.0f));
  SO_ENGINE_ADD_OUTPUT(vector, SoMFVec4f);
}
void SoComposeVec4f::evaluate() {
  std::vector<SbVec4f> v;
  for (int i = 0, n = longest(x, y, z, w); i < n; ++i)
    v.emplace_back(valueAt(x, i, 0.0f), valueAt(y, i, 0.0f), valueAt(z, i, 0.0f), valueAt(w, i, 0.0f));
  outputValues<SoMFVec4f>(vector, v);
}

namespace {
// Writes component k of every vector to an output.
template <class Field, class Vec>
void component(SoEngineOutput& out, const Field& vectors, int k) {
  std::vector<float> values;
  for (int i = 0; i < vectors.getNum(); ++i) values.push_back(vectors[i][k]);
  outputValues<SoMFFloat>(out, values);
}
}  // namespace

ORVEX_ENGINE_CLASS(SoDecomposeVec2f)
SoDecomposeVec2f::SoDecomposeVec2f() {
  SO_ENGINE_CONSTRUCTOR(SoDecomposeVec2f);
  SO_ENGINE_ADD_INPUT(vector, (SbVec2f(0.0f, 0.0f)));
  SO_ENGINE_ADD_OUTPUT(x, SoMFFloat);
  SO_ENGINE_ADD_OUTPUT(y, SoMFFloat);
}
void SoDecomposeVec2f::evaluate() {
  component<SoMFVec2f, SbVec2f>(x, vector, 0);
  component<SoMFVec2f, SbVec2f>(y, vector, 1);
}

ORVEX_ENGINE_CLASS(SoDecomposeVec3f)
SoDecomposeVec3f::SoDecomposeVec3f() {
  SO_ENGINE_CONSTRUCTOR(SoDecomposeVec3f);
  SO_ENGINE_ADD_INPUT(vector, (SbVec3f(0.0f, 0.0f, 0.0f)));
  SO_ENGINE_ADD_OUTPUT(x, SoMFFloat);
  SO_ENGINE_ADD_OUTPUT(y, SoMFFloat);
  SO_ENGINE_ADD_OUTPUT(z, SoMFFloat);
}
void SoDecomposeVec3f::evaluate() {
  component<SoMFVec3f, SbVec3f>(x, vector, 0);
  component<SoMFVec3f, SbVec3f>(y, vector, 1);
  component<SoMFVec3f, SbVec3f>(z, vector, 2);
}

ORVEX_ENGINE_CLASS(SoDecomposeVec4f)
SoDecomposeVec4f::SoDecomposeVec4f() {
  SO_ENGINE_CONSTRUCTOR(SoDecomposeVec4f);
  SO_ENGINE_ADD_INPUT(vector, (SbVec4f(0.0f, 0.0f, 0.0f, 0.0f)));
  SO_ENGINE_ADD_OUTPUT(x, SoMFFloat);
  SO_ENGINE_ADD_OUTPUT(y, SoMFFloat);
  SO_ENGINE_ADD_OUTPUT(z, SoMFFloat);
  SO_ENGINE_ADD_OUTPUT(w, SoMFFloat);
}
void SoDecomposeVec4f::evaluate() {
  component<SoMFVec4f, SbVec4f>(x, vector, 0);
  component<SoMFVec4f, SbVec4f>(y, vector, 1);
  component<SoMFVec4f, SbVec4f>(z, vector, 2);
  component<SoMFVec4f, SbVec4f>(w, vector, 3);
}

// ---- rotations --------------------------------------------------------------------------

ORVEX_ENGINE_CLASS(SoComposeRotation)
SoComposeRotation::SoComposeRotation() {
  SO_ENGINE_CONSTRUCTOR(SoComposeRotation);
  SO_ENGINE_ADD_INPUT(axis, (SbVec3f(0.0f, 0.0f, 1.0f)));
  SO_ENGINE_ADD_INPUT(angle, (0.0f));
  SO_ENGINE_ADD_OUTPUT(rotation, SoMFRotation);
}
void SoComposeRotation::evaluate() {
  std::vector<SbRotation> r;
  for (int i = 0, n = longest(axis, angle); i < n; ++i)
    r.emplace_back(valueAt(axis, i, SbVec3f(0.0f, 0.0f, 1.0f)), valueAt(angle, i, 0.0f));
  outputValues<SoMFRotation>(rotation, r);
}

ORVEX_ENGINE_CLASS(SoComposeRotationFromTo)
SoComposeRotationFromTo::SoComposeRotationFromTo() {
  SO_ENGINE_CONSTRUCTOR(SoComposeRotationFromTo);
  SO_ENGINE_ADD_INPUT(from, (SbVec3f(0.0f, 0.0f, 1.0f)));
  SO_ENGINE_ADD_INPUT(to, (SbVec3f(0.0f, 0.0f, 1.0f)));
  SO_ENGINE_ADD_OUTPUT(rotation, SoMFRotation);
}
void SoComposeRotationFromTo::evaluate() {
  std::vector<SbRotation> r;
  for (int i = 0, n = longest(from, to); i < n; ++i)
    r.emplace_back(valueAt(from, i, SbVec3f(0.0f, 0.0f, 1.0f)), valueAt(to, i, SbVec3f(0.0f, 0.0f, 1.0f)));
  outputValues<SoMFRotation>(rotation, r);
}

ORVEX_ENGINE_CLASS(SoDecomposeRotation)
SoDecomposeRotation::SoDecomposeRotation() {
  SO_ENGINE_CONSTRUCTOR(SoDecomposeRotation);
  SO_ENGINE_ADD_INPUT(rotation, (SbRotation()));
  SO_ENGINE_ADD_OUTPUT(axis, SoMFVec3f);
  SO_ENGINE_ADD_OUTPUT(angle, SoMFFloat);
}
void SoDecomposeRotation::evaluate() {
  std::vector<SbVec3f> axes;
  std::vector<float> angles;
  for (int i = 0; i < rotation.getNum(); ++i) {
    SbVec3f a;
    float radians;
    rotation[i].getValue(a, radians);
    axes.push_back(a);
    angles.push_back(radians);
  }
  outputValues<SoMFVec3f>(axis, axes);
  outputValues<SoMFFloat>(angle, angles);
}

// ---- matrices ---------------------------------------------------------------------------

ORVEX_ENGINE_CLASS(SoComposeMatrix)
SoComposeMatrix::SoComposeMatrix() {
  SO_ENGINE_CONSTRUCTOR(SoComposeMatrix);
  SO_ENGINE_ADD_INPUT(translation, (SbVec3f(0.0f, 0.0f, 0.0f)));
  SO_ENGINE_ADD_INPUT(rotation, (SbRotation()));
  SO_ENGINE_ADD_INPUT(scaleFactor, (SbVec3f(1.0f, 1.0f, 1.0f)));
  SO_ENGINE_ADD_INPUT(scaleOrientation, (SbRotation()));
  SO_ENGINE_ADD_INPUT(center, (SbVec3f(0.0f, 0.0f, 0.0f)));
  SO_ENGINE_ADD_OUTPUT(matrix, SoMFMatrix);
}
void SoComposeMatrix::evaluate() {
  std::vector<SbMatrix> m;
  for (int i = 0, n = longest(translation, rotation, scaleFactor, scaleOrientation, center); i < n; ++i) {
    SbMatrix one;
    one.setTransform(valueAt(translation, i, SbVec3f(0, 0, 0)), valueAt(rotation, i, SbRotation()),
                     valueAt(scaleFactor, i, SbVec3f(1, 1, 1)), valueAt(scaleOrientation, i, SbRotation()),
                     valueAt(center, i, SbVec3f(0, 0, 0)));
    m.push_back(one);
  }
  outputValues<SoMFMatrix>(matrix, m);
}

ORVEX_ENGINE_CLASS(SoDecomposeMatrix)
SoDecomposeMatrix::SoDecomposeMatrix() {
  SO_ENGINE_CONSTRUCTOR(SoDecomposeMatrix);
  SO_ENGINE_ADD_INPUT(matrix, (SbMatrix::identity()));
  SO_ENGINE_ADD_INPUT(center, (SbVec3f(0.0f, 0.0f, 0.0f)));
  SO_ENGINE_ADD_OUTPUT(translation, SoMFVec3f);
  SO_ENGINE_ADD_OUTPUT(rotation, SoMFRotation);
  SO_ENGINE_ADD_OUTPUT(scaleFactor, SoMFVec3f);
  SO_ENGINE_ADD_OUTPUT(scaleOrientation, SoMFRotation);
}
void SoDecomposeMatrix::evaluate() {
  std::vector<SbVec3f> t, s;
  std::vector<SbRotation> r, so;
  for (int i = 0, n = longest(matrix, center); i < n; ++i) {
    SbVec3f ti, si;
    SbRotation ri, soi;
    valueAt(matrix, i, SbMatrix::identity()).getTransform(ti, ri, si, soi, valueAt(center, i, SbVec3f(0, 0, 0)));
    t.push_back(ti);
    r.push_back(ri);
    s.push_back(si);
    so.push_back(soi);
  }
  outputValues<SoMFVec3f>(translation, t);
  outputValues<SoMFRotation>(rotation, r);
  outputValues<SoMFVec3f>(scaleFactor, s);
  outputValues<SoMFRotation>(scaleOrientation, so);
}
