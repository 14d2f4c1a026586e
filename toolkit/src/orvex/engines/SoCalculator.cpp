#include <Orvex/engines/SoCalculator.h>

#include <Orvex/errors/SoDebugError.h>

#include <algorithm>

#include "CalculatorProgram.h"
#include "EngineValues.h"

SO_ENGINE_SOURCE(SoCalculator)

void SoCalculator::initClass() { SO_ENGINE_INIT_CLASS(SoCalculator, SoEngine, "Engine"); }

SoCalculator::SoCalculator() {
  SO_ENGINE_CONSTRUCTOR(SoCalculator);
  SO_ENGINE_ADD_INPUT(a, (0.0f));
  SO_ENGINE_ADD_INPUT(b, (0.0f));
  SO_ENGINE_ADD_INPUT(c, (0.0f));
  SO_ENGINE_ADD_INPUT(d, (0.0f));
  SO_ENGINE_ADD_INPUT(e, (0.0f));
  SO_ENGINE_ADD_INPUT(f, (0.0f));
  SO_ENGINE_ADD_INPUT(g, (0.0f));
  SO_ENGINE_ADD_INPUT(h, (0.0f));
  SO_ENGINE_ADD_INPUT(A, (SbVec3f(0.0f, 0.0f, 0.0f)));
  SO_ENGINE_ADD_INPUT(B, (SbVec3f(0.0f, 0.0f, 0.0f)));
  SO_ENGINE_ADD_INPUT(C, (SbVec3f(0.0f, 0.0f, 0.0f)));
  SO_ENGINE_ADD_INPUT(D, (SbVec3f(0.0f, 0.0f, 0.0f)));
  SO_ENGINE_ADD_INPUT(E, (SbVec3f(0.0f, 0.0f, 0.0f)));
  SO_ENGINE_ADD_INPUT(F, (SbVec3f(0.0f, 0.0f, 0.0f)));
  SO_ENGINE_ADD_INPUT(G, (SbVec3f(0.0f, 0.0f, 0.0f)));
  SO_ENGINE_ADD_INPUT(H, (SbVec3f(0.0f, 0.0f, 0.0f)));
  SO_ENGINE_ADD_INPUT(expression, (SbString("")));
  SO_ENGINE_ADD_OUTPUT(oa, SoMFFloat);
  SO_ENGINE_ADD_OUTPUT(ob, SoMFFloat);
  SO_ENGINE_ADD_OUTPUT(oc, SoMFFloat);
  SO_ENGINE_ADD_OUTPUT(od, SoMFFloat);
  SO_ENGINE_ADD_OUTPUT(oA, SoMFVec3f);
  SO_ENGINE_ADD_OUTPUT(oB, SoMFVec3f);
  SO_ENGINE_ADD_OUTPUT(oC, SoMFVec3f);
  SO_ENGINE_ADD_OUTPUT(oD, SoMFVec3f);
}

SoCalculator::~SoCalculator() = default;

void SoCalculator::inputChanged(SoField* whichField) {
  if (whichField == &expression) m_reparse = true;
}

void SoCalculator::evaluate() {
  if (m_reparse) {
    m_reparse = false;
    std::vector<std::string> texts;
    for (int i = 0; i < expression.getNum(); ++i) texts.emplace_back(expression[i].getString());
    std::string error;
    m_program = orvex::CalculatorProgram::parse(texts, error);
    if (!m_program) SoDebugError::post("SoCalculator::evaluate", "Bad expression: %s", error.c_str());
  }
  const SoMFFloat* numbers[8] = {&a, &b, &c, &d, &e, &f, &g, &h};
  const SoMFVec3f* vectors[8] = {&A, &B, &C, &D, &E, &F, &G, &H};
  // As many values as the longest input the expressions read.
  int n = 0;
  if (m_program)
    for (int k = 0; k < 8; ++k) {
      if (m_program->readsInput(k)) n = std::max(n, numbers[k]->getNum());
      if (m_program->readsInputVector(k)) n = std::max(n, vectors[k]->getNum());
    }
  if (m_program && n == 0) n = 1;  // expressions of constants alone give one value
  std::vector<float> outNumbers[4];
  std::vector<SbVec3f> outVectors[4];
  for (int i = 0; i < n; ++i) {
    orvex::CalcRegisters r;
    for (int k = 0; k < 8; ++k) {
      r.inputs[k] = orvex::valueAt(*numbers[k], i, 0.0f);
      const SbVec3f v = orvex::valueAt(*vectors[k], i, SbVec3f(0.0f, 0.0f, 0.0f));
      for (int j = 0; j < 3; ++j) r.inputVectors[k][j] = v[j];
    }
    m_program->run(r);
    for (int k = 0; k < 4; ++k) {
      outNumbers[k].push_back(static_cast<float>(r.outputs[k]));
      outVectors[k].emplace_back(static_cast<float>(r.outputVectors[k][0]), static_cast<float>(r.outputVectors[k][1]),
                                 static_cast<float>(r.outputVectors[k][2]));
    }
  }
  SoEngineOutput* numberOuts[4] = {&oa, &ob, &oc, &od};
  SoEngineOutput* vectorOuts[4] = {&oA, &oB, &oC, &oD};
  for (int k = 0; k < 4; ++k) {
    orvex::outputValues<SoMFFloat>(*numberOuts[k], outNumbers[k]);
    orvex::outputValues<SoMFVec3f>(*vectorOuts[k], outVectors[k]);
  }
}
