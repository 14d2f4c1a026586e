#pragma once
// The expressions of SoCalculator, parsed once into trees and run for each
// value index.

#include <Orvex/SbString.h>
#include <Orvex/SbVec3f.h>

#include <memory>
#include <string>
#include <vector>

namespace orvex {

// Values are numbers or 3D vectors (kept in double precision).
struct CalcValue {
  bool isVector = false;
  double x = 0.0;
  double v[3] = {0.0, 0.0, 0.0};
  static CalcValue number(double d) {
    CalcValue r;
    r.x = d;
    return r;
  }
  static CalcValue vector(double a, double b, double c) {
    CalcValue r;
    r.isVector = true;
    r.v[0] = a;
    r.v[1] = b;
    r.v[2] = c;
    return r;
  }
};

// The variables of one run: inputs a..h / A..H (read), temporaries
// ta..th / tA..tH and outputs oa..od / oA..oD (written and read).
struct CalcRegisters {
  double inputs[8] = {0};
  double inputVectors[8][3] = {{0}};
  double temps[8] = {0};
  double tempVectors[8][3] = {{0}};
  double outputs[4] = {0};
  double outputVectors[4][3] = {{0}};
};

class CalcNode;

class CalculatorProgram {
 public:
  // Parses every string; on an error answers null and describes it.
  static std::shared_ptr<CalculatorProgram> parse(const std::vector<std::string>& expressions, std::string& error);
  ~CalculatorProgram();
  void run(CalcRegisters& registers) const;
  // Which inputs the expressions read (by letter, numbers then vectors).
  bool readsInput(int index) const { return m_readsInput[index]; }
  bool readsInputVector(int index) const { return m_readsInputVector[index]; }

 private:
  struct Assignment;
  std::vector<std::unique_ptr<Assignment>> m_assignments;
  bool m_readsInput[8] = {false};
  bool m_readsInputVector[8] = {false};
  friend class CalcParser;
};

}  // namespace orvex
