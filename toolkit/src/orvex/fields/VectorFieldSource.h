// The members that the vector fields (SoSFVec3f, SoMFVec3f, ...) add to
// those of every field of their value type: values given as their N
// components, one by one or as arrays. One definition serves every vector
// type and size; a field source file names its vector fields with
// SO_SFVEC_SOURCE / SO_MFVEC_SOURCE instead of SO_SFIELD_SOURCE /
// SO_MFIELD_SOURCE.
#pragma once

#include <cstddef>

#include "FieldSource.h"

namespace orvex::fio {

// The vector of type Vec whose N components are at `components`.
template <class Vec, size_t N, class Component>
Vec vectorOf(const Component* components) {
  Vec vector;
  for (size_t k = 0; k < N; ++k) vector[k] = components[k];
  return vector;
}

}  // namespace orvex::fio

// A vector's components as parameters and as the arguments passing them on.
#define ORVEX_VECTOR_PARAMETERS_2(T) T x, T y
#define ORVEX_VECTOR_PARAMETERS_3(T) T x, T y, T z
#define ORVEX_VECTOR_PARAMETERS_4(T) T x, T y, T z, T w
#define ORVEX_VECTOR_ARGUMENTS_2 x, y
#define ORVEX_VECTOR_ARGUMENTS_3 x, y, z
#define ORVEX_VECTOR_ARGUMENTS_4 x, y, z, w

// A single-value field of vectors of `size` (2, 3 or 4) components.
#define SO_SFVEC_SOURCE(className, typeName, vectorType, componentType, size)    \
  SO_SFIELD_SOURCE(className, typeName, vectorType, const vectorType&)           \
  void className::setValue(ORVEX_VECTOR_PARAMETERS_##size(componentType)) {      \
    const componentType components[size] = {ORVEX_VECTOR_ARGUMENTS_##size};      \
    setValue(orvex::fio::vectorOf<vectorType, size>(components));                \
  }                                                                              \
  void className::setValue(const componentType components[size]) {               \
    setValue(orvex::fio::vectorOf<vectorType, size>(components));                \
  }

// A multiple-value field of vectors of `size` (2, 3 or 4) components.
#define SO_MFVEC_SOURCE(className, typeName, vectorType, componentType, size)            \
  SO_MFIELD_SOURCE(className, typeName, vectorType, const vectorType&)                   \
  void className::setValues(int start, int n, const componentType rows[][size]) {         \
    if ((n > 0 && !rows) ||                                                              \
        !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly,                  \
                                   [this](int newNum) { allocValues(newNum); }))         \
      return;                                                                            \
    for (int i = 0; i < n; ++i) values[start + i] = orvex::fio::vectorOf<vectorType, size>(rows[i]); \
    valueChanged(start, n);                                                              \
  }                                                                                      \
  void className::set1Value(int index, ORVEX_VECTOR_PARAMETERS_##size(componentType)) {  \
    const componentType components[size] = {ORVEX_VECTOR_ARGUMENTS_##size};              \
    set1Value(index, orvex::fio::vectorOf<vectorType, size>(components));                \
  }                                                                                      \
  void className::set1Value(int index, const componentType components[size]) {           \
    set1Value(index, orvex::fio::vectorOf<vectorType, size>(components));                \
  }                                                                                      \
  void className::setValue(ORVEX_VECTOR_PARAMETERS_##size(componentType)) {              \
    const componentType components[size] = {ORVEX_VECTOR_ARGUMENTS_##size};              \
    setValue(orvex::fio::vectorOf<vectorType, size>(components));                        \
  }                                                                                      \
  void className::setValue(const componentType components[size]) {                       \
    setValue(orvex::fio::vectorOf<vectorType, size>(components));                        \
  }
