#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoMFString.h>
#include <Orvex/fields/SoMFVec3f.h>

#include <memory>

namespace orvex {
class CalculatorProgram;
}

// Computes outputs from expressions, value by value. Each string of
// `expression` holds assignments separated by ';', to the outputs oa..od
// (numbers) and oA..oD (vectors) and to the temporaries ta..th and tA..tH,
// from the inputs a..h (numbers) and A..H (vectors), the temporaries and
// constants (numbers, M_PI, M_E...). Expressions have + - * / % (the
// remainder), unary - and !, comparisons, && || and ?:, vector components
// (A[0]), and the functions cos sin tan acos asin atan atan2 cosh sinh tanh
// sqrt pow exp log log10 ceil floor fabs fmod rand, vec3f(x, y, z),
// length dot cross normalize. The outputs get as many values as the
// longest input; shorter inputs repeat their last value.
class SoCalculator : public SoEngine {
  SO_ENGINE_HEADER(SoCalculator);

 public:
  SoMFFloat a, b, c, d, e, f, g, h;
  SoMFVec3f A, B, C, D, E, F, G, H;
  SoMFString expression;
  SoEngineOutput oa, ob, oc, od;  // SoMFFloat
  SoEngineOutput oA, oB, oC, oD;  // SoMFVec3f

  SoCalculator();

 protected:
  ~SoCalculator() override;
  void inputChanged(SoField* whichField) override;
  void evaluate() override;

 private:
  std::shared_ptr<orvex::CalculatorProgram> m_program;  // parsed on demand
  bool m_reparse = true;
};
