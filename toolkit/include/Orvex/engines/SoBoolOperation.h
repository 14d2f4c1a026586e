#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoMFBool.h>
#include <Orvex/fields/SoMFEnum.h>

// Combines booleans value by value; inverse is the negation of output.
// Inputs of different lengths give as many values as the longest; the
// shorter ones repeat their last value.
class SoBoolOperation : public SoEngine {
  SO_ENGINE_HEADER(SoBoolOperation);

 public:
  enum Operation {
    CLEAR,
    SET,
    A,
    NOT_A,
    B,
    NOT_B,
    A_OR_B,
    NOT_A_OR_B,
    A_OR_NOT_B,
    NOT_A_OR_NOT_B,
    A_AND_B,
    NOT_A_AND_B,
    A_AND_NOT_B,
    NOT_A_AND_NOT_B,
    A_EQUALS_B,
    A_NOT_EQUALS_B
  };

  SoMFBool a;
  SoMFBool b;
  SoMFEnum operation;
  SoEngineOutput output;  // SoMFBool
  SoEngineOutput inverse;  // SoMFBool

  SoBoolOperation();

 protected:
  ~SoBoolOperation() override;
  void evaluate() override;
};
