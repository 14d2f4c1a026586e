#include "CalculatorProgram.h"

#include <cctype>
#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <random>
#include <stdexcept>

namespace orvex {

// ---- the trees ----------------------------------------------------------------------------

class CalcNode {
 public:
  explicit CalcNode(bool vector) : isVector(vector) {}
  virtual ~CalcNode() = default;
  virtual CalcValue eval(const CalcRegisters& r) const = 0;
  const bool isVector;
};

namespace {

using NodePtr = std::unique_ptr<CalcNode>;

enum class Bank { INPUT, TEMP, OUTPUT };

class Constant : public CalcNode {
 public:
  explicit Constant(double v) : CalcNode(false), m_value(v) {}
  CalcValue eval(const CalcRegisters&) const override { return CalcValue::number(m_value); }

 private:
  double m_value;
};

class Variable : public CalcNode {
 public:
  Variable(Bank bank, bool vector, int index) : CalcNode(vector), m_bank(bank), m_index(index) {}
  CalcValue eval(const CalcRegisters& r) const override {
    if (!isVector) {
      const double* bank = m_bank == Bank::INPUT ? r.inputs : m_bank == Bank::TEMP ? r.temps : r.outputs;
      return CalcValue::number(bank[m_index]);
    }
    const double(*bank)[3] =
        m_bank == Bank::INPUT ? r.inputVectors : m_bank == Bank::TEMP ? r.tempVectors : r.outputVectors;
    return CalcValue::vector(bank[m_index][0], bank[m_index][1], bank[m_index][2]);
  }

 private:
  Bank m_bank;
  int m_index;
};

class Unary : public CalcNode {
 public:
  Unary(char op, NodePtr a) : CalcNode(op == '-' && a->isVector), m_op(op), m_a(std::move(a)) {}
  CalcValue eval(const CalcRegisters& r) const override {
    const CalcValue a = m_a->eval(r);
    if (m_op == '!') return CalcValue::number(a.x == 0.0 ? 1.0 : 0.0);
    if (a.isVector) return CalcValue::vector(-a.v[0], -a.v[1], -a.v[2]);
    return CalcValue::number(-a.x);
  }

 private:
  char m_op;
  NodePtr m_a;
};

// Binary operators; `op` is the operator text.
class Binary : public CalcNode {
 public:
  Binary(std::string op, NodePtr a, NodePtr b, bool vector)
      : CalcNode(vector), m_op(std::move(op)), m_a(std::move(a)), m_b(std::move(b)) {}
  CalcValue eval(const CalcRegisters& r) const override {
    if (m_op == "&&") return CalcValue::number(m_a->eval(r).x != 0.0 && m_b->eval(r).x != 0.0 ? 1.0 : 0.0);
    if (m_op == "||") return CalcValue::number(m_a->eval(r).x != 0.0 || m_b->eval(r).x != 0.0 ? 1.0 : 0.0);
    const CalcValue a = m_a->eval(r), b = m_b->eval(r);
    if (a.isVector || b.isVector) return vectorOp(a, b);
    const double x = a.x, y = b.x;
    if (m_op == "+") return CalcValue::number(x + y);
    if (m_op == "-") return CalcValue::number(x - y);
    if (m_op == "*") return CalcValue::number(x * y);
    if (m_op == "/") return CalcValue::number(x / y);
    if (m_op == "%") return CalcValue::number(std::fmod(x, y));
    if (m_op == "<") return CalcValue::number(x < y);
    if (m_op == ">") return CalcValue::number(x > y);
    if (m_op == "<=") return CalcValue::number(x <= y);
    if (m_op == ">=") return CalcValue::number(x >= y);
    if (m_op == "==") return CalcValue::number(x == y);
    return CalcValue::number(x != y);  // "!="
  }

 private:
  CalcValue vectorOp(const CalcValue& a, const CalcValue& b) const {
    if (m_op == "==" || m_op == "!=") {
      const bool same = a.v[0] == b.v[0] && a.v[1] == b.v[1] && a.v[2] == b.v[2];
      return CalcValue::number(m_op == "==" ? same : !same);
    }
    CalcValue out = CalcValue::vector(0, 0, 0);
    for (int k = 0; k < 3; ++k) {
      const double x = a.isVector ? a.v[k] : a.x, y = b.isVector ? b.v[k] : b.x;
      if (m_op == "+") out.v[k] = x + y;
      else if (m_op == "-") out.v[k] = x - y;
      else if (m_op == "*") out.v[k] = x * y;
      else out.v[k] = x / y;  // "/"
    }
    return out;
  }
  std::string m_op;
  NodePtr m_a, m_b;
};

class Conditional : public CalcNode {
 public:
  Conditional(NodePtr c, NodePtr a, NodePtr b)
      : CalcNode(a->isVector), m_c(std::move(c)), m_a(std::move(a)), m_b(std::move(b)) {}
  CalcValue eval(const CalcRegisters& r) const override { return m_c->eval(r).x != 0.0 ? m_a->eval(r) : m_b->eval(r); }

 private:
  NodePtr m_c, m_a, m_b;
};

class Component : public CalcNode {
 public:
  Component(NodePtr v, NodePtr i) : CalcNode(false), m_v(std::move(v)), m_i(std::move(i)) {}
  CalcValue eval(const CalcRegisters& r) const override {
    const CalcValue v = m_v->eval(r);
    const int k = static_cast<int>(m_i->eval(r).x);
    return CalcValue::number(k >= 0 && k < 3 ? v.v[k] : 0.0);
  }

 private:
  NodePtr m_v, m_i;
};

class Call : public CalcNode {
 public:
  using Function = std::function<CalcValue(const std::vector<CalcValue>&)>;
  Call(Function f, std::vector<NodePtr> args, bool vector) : CalcNode(vector), m_f(std::move(f)), m_args(std::move(args)) {}
  CalcValue eval(const CalcRegisters& r) const override {
    std::vector<CalcValue> values;
    values.reserve(m_args.size());
    for (const NodePtr& a : m_args) values.push_back(a->eval(r));
    return m_f(values);
  }

 private:
  Function m_f;
  std::vector<NodePtr> m_args;
};

double length(const CalcValue& a) { return std::sqrt(a.v[0] * a.v[0] + a.v[1] * a.v[1] + a.v[2] * a.v[2]); }

// A name and how many arguments of which kind it takes ('n' number, 'v'
// vector), what it gives, and what it does.
struct FunctionEntry {
  const char* name;
  const char* args;
  bool givesVector;
  Call::Function f;
};

std::mt19937& randomEngine() {
  thread_local std::mt19937 engine(1);
  return engine;
}

const std::vector<FunctionEntry>& functions() {
  using V = std::vector<CalcValue>;
  auto num1 = [](double (*fn)(double)) { return [fn](const V& a) { return CalcValue::number(fn(a[0].x)); }; };
  static const std::vector<FunctionEntry> table = {
      {"cos", "n", false, num1(std::cos)},
      {"sin", "n", false, num1(std::sin)},
      {"tan", "n", false, num1(std::tan)},
      {"acos", "n", false, num1(std::acos)},
      {"asin", "n", false, num1(std::asin)},
      {"atan", "n", false, num1(std::atan)},
      {"cosh", "n", false, num1(std::cosh)},
      {"sinh", "n", false, num1(std::sinh)},
      {"tanh", "n", false, num1(std::tanh)},
      {"sqrt", "n", false, num1(std::sqrt)},
      {"exp", "n", false, num1(std::exp)},
      {"log", "n", false, num1(std::log)},
      {"log10", "n", false, num1(std::log10)},
      {"ceil", "n", false, num1(std::ceil)},
      {"floor", "n", false, num1(std::floor)},
      {"fabs", "n", false, num1(std::fabs)},
      {"atan2", "nn", false, [](const V& a) { return CalcValue::number(std::atan2(a[0].x, a[1].x)); }},
      {"pow", "nn", false, [](const V& a) { return CalcValue::number(std::pow(a[0].x, a[1].x)); }},
      {"fmod", "nn", false, [](const V& a) { return CalcValue::number(std::fmod(a[0].x, a[1].x)); }},
      // A random number from 0 up to the argument.
      {"rand", "n", false,
       [](const V& a) {
         return CalcValue::number(a[0].x * std::uniform_real_distribution<double>(0.0, 1.0)(randomEngine()));
       }},
      {"vec3f", "nnn", true, [](const V& a) { return CalcValue::vector(a[0].x, a[1].x, a[2].x); }},
      {"length", "v", false, [](const V& a) { return CalcValue::number(length(a[0])); }},
      {"dot", "vv", false,
       [](const V& a) {
         return CalcValue::number(a[0].v[0] * a[1].v[0] + a[0].v[1] * a[1].v[1] + a[0].v[2] * a[1].v[2]);
       }},
      {"cross", "vv", true,
       [](const V& a) {
         const double* u = a[0].v;
         const double* w = a[1].v;
         return CalcValue::vector(u[1] * w[2] - u[2] * w[1], u[2] * w[0] - u[0] * w[2], u[0] * w[1] - u[1] * w[0]);
       }},
      {"normalize", "v", true,
       [](const V& a) {
         const double l = length(a[0]);
         return l > 0.0 ? CalcValue::vector(a[0].v[0] / l, a[0].v[1] / l, a[0].v[2] / l) : a[0];
       }},
  };
  return table;
}

struct NamedConstant {
  const char* name;
  double value;
};
const NamedConstant kConstants[] = {
    {"MAXFLOAT", FLT_MAX},      {"MINFLOAT", FLT_MIN},        {"M_E", 2.71828182845904523536},
    {"M_LOG2E", 1.44269504088896340736}, {"M_LOG10E", 0.434294481903251827651}, {"M_LN2", 0.693147180559945309417},
    {"M_LN10", 2.30258509299404568402},  {"M_PI", 3.14159265358979323846},      {"M_PI_2", 1.57079632679489661923},
    {"M_PI_4", 0.785398163397448309616}, {"M_1_PI", 0.318309886183790671538},   {"M_2_PI", 0.636619772367581343076},
    {"M_2_SQRTPI", 1.12837916709551257390}, {"M_SQRT2", 1.41421356237309504880}, {"M_SQRT1_2", 0.707106781186547524401},
};

}  // namespace

// ---- parsing ------------------------------------------------------------------------------

struct CalculatorProgram::Assignment {
  Bank bank;
  bool vector;
  int index;
  int component;  // -1: the whole value; 0..2: one component of a vector
  NodePtr value;
};

class CalcParser {
 public:
  CalcParser(const std::string& text, CalculatorProgram& program) : m_text(text), m_program(program) {}

  void parseProgram() {
    for (;;) {
      skipSpace();
      if (atEnd()) return;
      if (peek() == ';') {
        ++m_pos;
        continue;
      }
      parseAssignment();
      skipSpace();
      if (!atEnd() && peek() != ';') fail("';' expected");
    }
  }

 private:
  [[noreturn]] void fail(const std::string& what) {
    throw std::runtime_error(what + " at \"" + m_text.substr(m_pos) + "\"");
  }
  bool atEnd() const { return m_pos >= m_text.size(); }
  char peek() const { return atEnd() ? '\0' : m_text[m_pos]; }
  void skipSpace() {
    while (!atEnd() && std::isspace(static_cast<unsigned char>(peek()))) ++m_pos;
  }
  bool accept(const char* token) {
    skipSpace();
    const size_t n = std::char_traits<char>::length(token);
    if (m_text.compare(m_pos, n, token) != 0) return false;
    // "<" must not take the first half of "<=", nor "=" of "==".
    if (n == 1 && (token[0] == '<' || token[0] == '>' || token[0] == '=' || token[0] == '!') &&
        m_pos + 1 < m_text.size() && m_text[m_pos + 1] == '=')
      return false;
    if (n == 1 && (token[0] == '&' || token[0] == '|')) return false;
    m_pos += n;
    return true;
  }
  void expect(const char* token) {
    if (!accept(token)) fail(std::string("'") + token + "' expected");
  }
  std::string identifier() {
    skipSpace();
    const size_t start = m_pos;
    while (!atEnd() && (std::isalnum(static_cast<unsigned char>(peek())) || peek() == '_')) ++m_pos;
    return m_text.substr(start, m_pos - start);
  }

  // A variable name: its bank, kind and index; false when it is none.
  static bool variable(const std::string& name, Bank& bank, bool& vector, int& index) {
    auto letter = [](char c, char first, int count) { return c >= first && c < first + count; };
    if (name.size() == 1) {
      const char c = name[0];
      if (letter(c, 'a', 8) || letter(c, 'A', 8)) {
        bank = Bank::INPUT;
        vector = std::isupper(static_cast<unsigned char>(c)) != 0;
        index = vector ? c - 'A' : c - 'a';
        return true;
      }
      return false;
    }
    if (name.size() == 2 && (name[0] == 't' || name[0] == 'o')) {
      const char c = name[1];
      const int count = name[0] == 't' ? 8 : 4;
      if (letter(c, 'a', count) || letter(c, 'A', count)) {
        bank = name[0] == 't' ? Bank::TEMP : Bank::OUTPUT;
        vector = std::isupper(static_cast<unsigned char>(c)) != 0;
        index = vector ? c - 'A' : c - 'a';
        return true;
      }
    }
    return false;
  }

  void parseAssignment() {
    const std::string name = identifier();
    Bank bank;
    bool vector;
    int index;
    if (!variable(name, bank, vector, index) || bank == Bank::INPUT) fail("an output or temporary expected");
    int component = -1;
    if (accept("[")) {
      if (!vector) fail("only vectors have components");
      NodePtr i = parseExpr();
      expect("]");
      component = static_cast<int>(i->eval(CalcRegisters()).x);
      if (component < 0 || component > 2) fail("component 0, 1 or 2 expected");
    }
    expect("=");
    NodePtr value = parseExpr();
    const bool wantVector = vector && component < 0;
    if (value->isVector != wantVector) fail(wantVector ? "a vector expected" : "a number expected");
    m_program.m_assignments.push_back(std::unique_ptr<CalculatorProgram::Assignment>(
        new CalculatorProgram::Assignment{bank, vector, index, component, std::move(value)}));
  }

  NodePtr parseExpr() {
    NodePtr c = parseOr();
    if (accept("?")) {
      NodePtr a = parseExpr();
      expect(":");
      NodePtr b = parseExpr();
      if (c->isVector) fail("a number expected as condition");
      if (a->isVector != b->isVector) fail("both choices must be numbers or vectors");
      return std::make_unique<Conditional>(std::move(c), std::move(a), std::move(b));
    }
    return c;
  }

  NodePtr logical(NodePtr a, const char* op, NodePtr (CalcParser::*next)()) {
    while (accept(op)) {
      NodePtr b = (this->*next)();
      if (a->isVector || b->isVector) fail(std::string("numbers expected around ") + op);
      a = std::make_unique<Binary>(op, std::move(a), std::move(b), false);
    }
    return a;
  }
  NodePtr parseOr() { return logical(parseAnd(), "||", &CalcParser::parseAnd); }
  NodePtr parseAnd() { return logical(parseEquality(), "&&", &CalcParser::parseEquality); }

  NodePtr parseEquality() {
    NodePtr a = parseRelational();
    for (;;) {
      const char* op = accept("==") ? "==" : accept("!=") ? "!=" : nullptr;
      if (!op) return a;
      NodePtr b = parseRelational();
      if (a->isVector != b->isVector) fail("numbers or vectors on both sides expected");
      a = std::make_unique<Binary>(op, std::move(a), std::move(b), false);
    }
  }

  NodePtr parseRelational() {
    NodePtr a = parseAdditive();
    for (;;) {
      const char* op = accept("<=") ? "<=" : accept(">=") ? ">=" : accept("<") ? "<" : accept(">") ? ">" : nullptr;
      if (!op) return a;
      NodePtr b = parseAdditive();
      if (a->isVector || b->isVector) fail("numbers expected in a comparison");
      a = std::make_unique<Binary>(op, std::move(a), std::move(b), false);
    }
  }

  NodePtr parseAdditive() {
    NodePtr a = parseMultiplicative();
    for (;;) {
      const char* op = accept("+") ? "+" : accept("-") ? "-" : nullptr;
      if (!op) return a;
      NodePtr b = parseMultiplicative();
      if (a->isVector != b->isVector) fail("numbers or vectors on both sides expected");
      const bool vector = a->isVector;
      a = std::make_unique<Binary>(op, std::move(a), std::move(b), vector);
    }
  }

  NodePtr parseMultiplicative() {
    NodePtr a = parseUnary();
    for (;;) {
      const char* op = accept("*") ? "*" : accept("/") ? "/" : accept("%") ? "%" : nullptr;
      if (!op) return a;
      NodePtr b = parseUnary();
      bool vector = false;
      if (a->isVector || b->isVector) {
        // A vector may be scaled: vector * number, number * vector, vector / number.
        const bool ok = (std::string(op) == "*" && a->isVector != b->isVector) ||
                        (std::string(op) == "/" && a->isVector && !b->isVector);
        if (!ok) fail(std::string("no vector form of ") + op);
        vector = true;
      }
      a = std::make_unique<Binary>(op, std::move(a), std::move(b), vector);
    }
  }

  NodePtr parseUnary() {
    if (accept("-")) return std::make_unique<Unary>('-', parseUnary());
    if (accept("+")) return parseUnary();
    if (accept("!")) {
      NodePtr a = parseUnary();
      if (a->isVector) fail("a number expected after '!'");
      return std::make_unique<Unary>('!', std::move(a));
    }
    return parsePostfix();
  }

  NodePtr parsePostfix() {
    NodePtr a = parsePrimary();
    while (accept("[")) {
      if (!a->isVector) fail("only vectors have components");
      NodePtr i = parseExpr();
      expect("]");
      a = std::make_unique<Component>(std::move(a), std::move(i));
    }
    return a;
  }

  NodePtr parsePrimary() {
    skipSpace();
    if (accept("(")) {
      NodePtr a = parseExpr();
      expect(")");
      return a;
    }
    const char c = peek();
    if (std::isdigit(static_cast<unsigned char>(c)) || c == '.') {
      const char* begin = m_text.c_str() + m_pos;
      char* end = nullptr;
      const double value = std::strtod(begin, &end);
      if (end == begin) fail("a number expected");
      m_pos += static_cast<size_t>(end - begin);
      return std::make_unique<Constant>(value);
    }
    const std::string name = identifier();
    if (name.empty()) fail("a value expected");
    Bank bank;
    bool vector;
    int index;
    if (variable(name, bank, vector, index)) {
      if (bank == Bank::INPUT) (vector ? m_program.m_readsInputVector : m_program.m_readsInput)[index] = true;
      return std::make_unique<Variable>(bank, vector, index);
    }
    for (const NamedConstant& k : kConstants)
      if (name == k.name) return std::make_unique<Constant>(k.value);
    for (const FunctionEntry& f : functions()) {
      if (name != f.name) continue;
      expect("(");
      std::vector<NodePtr> args;
      const size_t n = std::char_traits<char>::length(f.args);
      for (size_t k = 0; k < n; ++k) {
        if (k > 0) expect(",");
        NodePtr a = parseExpr();
        if (a->isVector != (f.args[k] == 'v')) fail(std::string("wrong kind of argument to ") + f.name);
        args.push_back(std::move(a));
      }
      expect(")");
      return std::make_unique<Call>(f.f, std::move(args), f.givesVector);
    }
    fail("unknown name \"" + name + "\"");
  }

  const std::string& m_text;
  size_t m_pos = 0;
  CalculatorProgram& m_program;
};

CalculatorProgram::~CalculatorProgram() = default;

std::shared_ptr<CalculatorProgram> CalculatorProgram::parse(const std::vector<std::string>& expressions,
                                                            std::string& error) {
  auto program = std::shared_ptr<CalculatorProgram>(new CalculatorProgram);
  for (const std::string& text : expressions) {
    try {
      CalcParser parser(text, *program);
      parser.parseProgram();
    } catch (const std::runtime_error& e) {
      error = e.what();
      return nullptr;
    }
  }
  return program;
}

void CalculatorProgram::run(CalcRegisters& r) const {
  for (const auto& a : m_assignments) {
    const CalcValue v = a->value->eval(r);
    if (!a->vector) {
      (a->bank == Bank::TEMP ? r.temps : r.outputs)[a->index] = v.x;
      continue;
    }
    double* target = a->bank == Bank::TEMP ? r.tempVectors[a->index] : r.outputVectors[a->index];
    if (a->component >= 0) {
      target[a->component] = v.x;
    } else {
      for (int k = 0; k < 3; ++k) target[k] = v.v[k];
    }
  }
}

}  // namespace orvex
