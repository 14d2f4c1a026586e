#pragma once
// Helpers of the engines that work value by value on multiple-value fields.

#include <Orvex/engines/SoEngineOutput.h>
#include <Orvex/fields/SoField.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace orvex {

// Value i of a multiple-value field, the last one past its end, `fallback`
// when it has none.
template <class Field, class T>
T valueAt(const Field& field, int i, const T& fallback) {
  const int n = field.getNum();
  if (n == 0) return fallback;
  return field[std::min(i, n - 1)];
}

// The number of values of the longest field.
template <class... Fields>
int longest(const Fields&... fields) {
  int n = 0;
  ((n = std::max(n, fields.getNum())), ...);
  return n;
}

// Writes all the values to the fields connected from an output.
template <class FieldType, class T>
void outputValues(SoEngineOutput& out, const std::vector<T>& values) {
  const int n = static_cast<int>(values.size());
  SO_ENGINE_OUTPUT(out, FieldType, setNum(n));
  if (n > 0) SO_ENGINE_OUTPUT(out, FieldType, setValues(0, n, values.data()));
}

template <class FieldType>
void outputBools(SoEngineOutput& out, const std::vector<bool>& values) {
  const int n = static_cast<int>(values.size());
  std::unique_ptr<bool[]> data(new bool[static_cast<size_t>(n > 0 ? n : 1)]);
  for (int i = 0; i < n; ++i) data[static_cast<size_t>(i)] = values[static_cast<size_t>(i)];
  SO_ENGINE_OUTPUT(out, FieldType, setNum(n));
  if (n > 0) SO_ENGINE_OUTPUT(out, FieldType, setValues(0, n, data.get()));
}

}  // namespace orvex
