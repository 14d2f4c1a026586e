#pragma once
// Definitions of the members that SoSubField.h declares. A field source file
// includes this header and the value I/O it needs, then expands one macro
// per class.

#include <Orvex/fields/SoMFieldLending.h>
#include <Orvex/fields/SoSubField.h>
#include <Orvex/misc/SoBase.h>

#include <Orvex/errors/SoMemoryError.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

#include "FieldValueIO.h"
#include "FlatArrayIO.h"

namespace orvex {
namespace fio {

// A default value of any value type (T() does not parse for types like
// "unsigned short" that come from a macro argument).
template <class T>
inline T makeDefault() {
  return T();
}

// Values that are references to toolkit objects are referenced while the
// field holds them, and the field audits them so that their changes reach
// the field's container. Plain values need nothing.
template <class T>
struct RefTraits {
  static void attach(SoField*, const T&) {}
  static void detach(SoField*, const T&) {}
};
template <class T>
struct RefTraits<T*> {
  static void attach(SoField* field, T* object) {
    if (!object) return;
    SoBase* base = object;
    base->ref();
    base->addAuditor(field, SoNotRec::FIELD);
  }
  static void detach(SoField* field, T* object) {
    if (!object) return;
    SoBase* base = object;
    base->removeAuditor(field, SoNotRec::FIELD);
    base->unref();
  }
};

// Storage of a multiple-value field: grows geometrically, may live in memory
// the field does not own.
// The most memory one field's values may take: beyond it a growth fails as
// if memory had run out (a field of many gigabytes is a mistake, and on a
// system that overcommits memory the attempt would end in the process being
// killed rather than in a failed allocation).
constexpr size_t kMaxFieldBytes = size_t(1) << 30;

// Grows a field for a setter: an allocation that fails leaves the field as it
// is and posts a memory error. Answers whether the field grew.
template <class Grow>
bool growOrReport(Grow grow) {
  try {
    grow();
    return true;
  } catch (const std::bad_alloc&) {
    SoMemoryError::post("field values");
    return false;
  }
}

// Readies values [start, start + n) of a field holding `num` values to be
// set: grows the field through `alloc(newNum)` when the range goes past its
// end, or copies a read-only block first. False, with nothing changed, for a
// range no int can index or that no memory can hold (a memory error posted).
template <class Alloc>
bool roomForValues(int start, int n, int num, bool readOnly, Alloc alloc) {
  if (start < 0 || n < 0 || n > INT_MAX - start) return false;
  if (start + n <= num && !readOnly) return true;
  return growOrReport([&] { alloc(std::max(num, start + n)); });
}

template <class T>
void allocValues(T*& values, int& num, int& maxNum, int newNum, bool& userData, bool& readOnly,
                 bool deleteEnabled) {
  if (newNum < 0) newNum = 0;
  const bool mustCopy = userData && (readOnly || newNum > maxNum);
  if (mustCopy || newNum > maxNum) {
    int cap = newNum;
    if (!mustCopy && newNum > maxNum && maxNum > 0 && maxNum < INT_MAX / 2)
      cap = std::max(newNum, maxNum + maxNum / 2);
    // A size no memory can hold fails like an allocation: the reader turns
    // that into a read error, the setters into a memory error (see
    // growOrReport); the field keeps its values either way.
    if (static_cast<size_t>(cap) > kMaxFieldBytes / sizeof(T)) cap = newNum;
    if (static_cast<size_t>(cap) > kMaxFieldBytes / sizeof(T)) throw std::bad_alloc();
    T* fresh = new T[static_cast<size_t>(cap)]();
    const int keep = std::min(num, newNum);
    for (int i = 0; i < keep; ++i) fresh[i] = std::move(values[i]);
    if (values && !userData && deleteEnabled) delete[] values;
    values = fresh;
    maxNum = cap;
    userData = false;
    readOnly = false;
  } else {
    // Values beyond the new end are reset, so that a later growth starts
    // from defaults and references are not kept alive.
    for (int i = newNum; i < num; ++i) values[i] = T();
    for (int i = num; i < newNum; ++i) values[i] = T();
  }
  num = newNum;
}

template <class T>
void freeValues(T*& values, int& num, int& maxNum, bool& userData, bool& readOnly, bool deleteEnabled) {
  if (values && !userData && deleteEnabled) delete[] values;
  values = nullptr;
  num = maxNum = 0;
  userData = readOnly = false;
}

template <class T>
void writeBinary(SoOutput* out, const T* values, int num, bool& done) {
  if constexpr (FlatArray<T>::ok) {
    using C = typename FlatArray<T>::C;
    static_assert(sizeof(T) == sizeof(C) * FlatArray<T>::n, "value must be its components");
    out->writeBinaryArray(reinterpret_cast<const C*>(values), num * FlatArray<T>::n);
    done = true;
  } else {
    done = false;
  }
}

template <class T>
bool readBinary(SoInput* in, T* values, int num, bool& done) {
  if constexpr (FlatArray<T>::ok) {
    using C = typename FlatArray<T>::C;
    done = true;
    return in->readBinaryArray(reinterpret_cast<C*>(values), num * FlatArray<T>::n);
  } else {
    done = false;
    return true;
  }
}

}  // namespace fio
}  // namespace orvex

#define SO_FIELD_SOURCE(className, parentClass, typeName)                              \
  SoType className::s_classTypeId;                                                    \
  SoType className::getClassTypeId() { return s_classTypeId; }                        \
  SoType className::getTypeId() const { return s_classTypeId; }                       \
  void className::initClass() {                                                       \
    if (s_classTypeId.isBad())                                                        \
      s_classTypeId = SoType::createType(parentClass::getClassTypeId(), typeName,     \
                                         &className::createInstance);                 \
  }                                                                                   \
  void* className::createInstance() { return static_cast<SoField*>(new className); }  \
  bool className::isSame(const SoField& f) const {                                    \
    return f.getTypeId() == getTypeId() && *this == static_cast<const className&>(f); \
  }                                                                                   \
  void className::copyFrom(const SoField& f) {                                        \
    if (&f != this && f.isOfType(s_classTypeId)) *this = static_cast<const className&>(f); \
  }

// Single-value field of a plain or reference value: everything but reading
// and writing the value.
#define SO_SFIELD_CORE_SOURCE(className, typeName, valueType, valueRef)                \
  SO_FIELD_SOURCE(className, SoSField, typeName)                                       \
  className::className() : value() {}                                                  \
  className::~className() { orvex::fio::RefTraits<valueType>::detach(this, value); }   \
  void className::setValue(valueRef newValue) {                                        \
    orvex::fio::RefTraits<valueType>::attach(this, newValue);                          \
    orvex::fio::RefTraits<valueType>::detach(this, value);                             \
    value = newValue;                                                                  \
    valueChanged();                                                                    \
  }                                                                                    \
  className& className::operator=(const className& f) {                                \
    if (this != &f) setValue(f.getValue());                                            \
    return *this;                                                                      \
  }                                                                                    \
  bool className::operator==(const className& f) const {                               \
    return orvex::fio::equal(getValue(), f.getValue());                                \
  }

// Reading and writing through the value I/O overloads.
#define SO_SFIELD_IO_SOURCE(className, valueType)                                      \
  bool className::readValue(SoInput* in) {                                             \
    valueType v{};                                                                     \
    if (!orvex::fio::read(in, v)) return false;                                        \
    orvex::fio::RefTraits<valueType>::attach(this, v);                                 \
    orvex::fio::RefTraits<valueType>::detach(this, value);                             \
    value = v;                                                                         \
    return true;                                                                       \
  }                                                                                    \
  void className::writeValue(SoOutput* out) const { orvex::fio::write(out, value); }

#define SO_SFIELD_SOURCE(className, typeName, valueType, valueRef)  \
  SO_SFIELD_CORE_SOURCE(className, typeName, valueType, valueRef)  \
  SO_SFIELD_IO_SOURCE(className, valueType)

// Multiple-value field of a plain or reference value: everything but reading
// and writing one value.
#define SO_MFIELD_CORE_SOURCE(className, typeName, valueType, valueRef)                \
  SO_FIELD_SOURCE(className, SoMField, typeName)                                       \
  className::className() {}                                                            \
  className::~className() { deleteAllValues(); }                                       \
  void className::allocValues(int newNum) {                                            \
    for (int i = std::max(newNum, 0); i < num; ++i)                                    \
      orvex::fio::RefTraits<valueType>::detach(this, values[i]);                       \
    const bool lent = m_userDataIsUsed;                                                \
    orvex::fio::allocValues(values, num, maxNum, newNum, m_userDataIsUsed,             \
                            m_userDataIsReadOnly, m_deleteValuesEnabled);              \
    if (lent && !m_userDataIsUsed) SoMFieldLending::fieldReleased(this);               \
  }                                                                                    \
  void className::deleteAllValues() {                                                  \
    for (int i = 0; i < num; ++i) orvex::fio::RefTraits<valueType>::detach(this, values[i]); \
    const bool lent = m_userDataIsUsed;                                                \
    orvex::fio::freeValues(values, num, maxNum, m_userDataIsUsed, m_userDataIsReadOnly, \
                           m_deleteValuesEnabled);                                     \
    if (lent) SoMFieldLending::fieldReleased(this);                                    \
  }                                                                                    \
  void className::copyValue(int to, int from) {                                        \
    if (to == from) return;                                                            \
    orvex::fio::RefTraits<valueType>::attach(this, values[from]);                      \
    orvex::fio::RefTraits<valueType>::detach(this, values[to]);                        \
    values[to] = values[from];                                                         \
  }                                                                                    \
  void className::resetValue(int index) {                                              \
    orvex::fio::RefTraits<valueType>::detach(this, values[index]);                     \
    values[index] = orvex::fio::makeDefault<valueType>();                                                       \
  }                                                                                    \
  int className::find(valueRef targetValue, bool addIfNotFound) {                      \
    for (int i = 0; i < num; ++i)                                                      \
      if (orvex::fio::equal(values[i], targetValue)) return i;                         \
    if (!addIfNotFound) return -1;                                                     \
    set1Value(num, targetValue);                                                       \
    return num - 1;                                                                    \
  }                                                                                    \
  void className::setValues(int start, int n, valueType const* newValues) {            \
    if ((n > 0 && !newValues) ||                                                       \
        !orvex::fio::roomForValues(start, n, num, m_userDataIsReadOnly,                \
                                   [this](int newNum) { allocValues(newNum); }))       \
      return;                                                                          \
    for (int i = 0; i < n; ++i) {                                                      \
      orvex::fio::RefTraits<valueType>::attach(this, newValues[i]);                    \
      orvex::fio::RefTraits<valueType>::detach(this, values[start + i]);               \
      values[start + i] = newValues[i];                                                \
    }                                                                                  \
    valueChanged(start, n);                                                            \
  }                                                                                    \
  void className::set1Value(int index, valueRef newValue) {                            \
    if (index < 0 || index == INT_MAX) return;                                         \
    if ((index >= num || m_userDataIsReadOnly) &&                                      \
        !orvex::fio::growOrReport([&] { allocValues(std::max(num, index + 1)); }))      \
      return;                                                                          \
    orvex::fio::RefTraits<valueType>::attach(this, newValue);                          \
    orvex::fio::RefTraits<valueType>::detach(this, values[index]);                     \
    values[index] = newValue;                                                          \
    valueChanged(index, 1);                                                            \
  }                                                                                    \
  void className::setValue(valueRef newValue) {                                        \
    orvex::fio::RefTraits<valueType>::attach(this, newValue);                          \
    allocValues(1);                                                                    \
    orvex::fio::RefTraits<valueType>::detach(this, values[0]);                         \
    values[0] = newValue;                                                              \
    valueChanged();                                                                    \
  }                                                                                    \
  className& className::operator=(const className& f) {                                \
    if (this != &f) {                                                                  \
      f.evaluate();                                                                    \
      allocValues(f.num);                                                              \
      for (int i = 0; i < f.num; ++i) {                                                \
        orvex::fio::RefTraits<valueType>::attach(this, f.values[i]);                   \
        orvex::fio::RefTraits<valueType>::detach(this, values[i]);                     \
        values[i] = f.values[i];                                                       \
      }                                                                                \
      valueChanged();                                                                  \
    }                                                                                  \
    return *this;                                                                      \
  }                                                                                    \
  bool className::operator==(const className& f) const {                               \
    evaluate();                                                                        \
    f.evaluate();                                                                      \
    if (num != f.num) return false;                                                    \
    for (int i = 0; i < num; ++i)                                                      \
      if (!orvex::fio::equal(values[i], f.values[i])) return false;                    \
    return true;                                                                       \
  }                                                                                    \
  valueType* className::startEditing() {                                               \
    if (m_userDataIsReadOnly) allocValues(num);                                        \
    m_editing = true;                                                                  \
    return values;                                                                     \
  }                                                                                    \
  void className::finishEditing() {                                                    \
    m_editing = false;                                                                 \
    valueChanged(0, num);                                                              \
  }                                                                                    \
  void className::setValuesPointer(int n, valueType* userData) {                       \
    deleteAllValues();                                                                 \
    if (n > 0 && userData) {                                                           \
      values = userData;                                                               \
      num = maxNum = n;                                                                \
      m_userDataIsUsed = true;                                                         \
      for (int i = 0; i < num; ++i) orvex::fio::RefTraits<valueType>::attach(this, values[i]); \
    }                                                                                  \
    valueChanged();                                                                    \
  }                                                                                    \
  /* Read-only before anyone is notified: an auditor changing the field in   */      \
  /* its notification must get a copy, not write into the caller's memory.   */      \
  void className::setValuesPointer(int n, valueType const* userData) {                 \
    deleteAllValues();                                                                 \
    if (n > 0 && userData) {                                                           \
      values = const_cast<valueType*>(userData);                                       \
      num = maxNum = n;                                                                \
      m_userDataIsUsed = true;                                                         \
      m_userDataIsReadOnly = true;                                                     \
      for (int i = 0; i < num; ++i) orvex::fio::RefTraits<valueType>::attach(this, values[i]); \
    }                                                                                  \
    valueChanged();                                                                    \
  }

// Reading and writing one value through the value I/O overloads.
#define SO_MFIELD_IO_SOURCE(className, valueType)                                      \
  bool className::read1Value(SoInput* in, int index) {                                 \
    valueType v{};                                                                     \
    if (!orvex::fio::read(in, v)) return false;                                        \
    orvex::fio::RefTraits<valueType>::attach(this, v);                                 \
    orvex::fio::RefTraits<valueType>::detach(this, values[index]);                     \
    values[index] = v;                                                                 \
    return true;                                                                       \
  }                                                                                    \
  void className::write1Value(SoOutput* out, int index) const {                        \
    orvex::fio::write(out, values[index]);                                             \
  }                                                                                    \
  bool className::readValue(SoInput* in) {                                             \
    if (orvex::fio::tryReadFlatAscii<valueType>(in, [this](const void* data, int count) { \
          allocValues(count);                                                          \
          if (count) std::memcpy(static_cast<void*>(values), data, sizeof(valueType) * count); \
        }))                                                                            \
      return true;                                                                     \
    return SoMField::readValue(in);                                                    \
  }                                                                                    \
  void className::writeValue(SoOutput* out) const {                                    \
    if (!orvex::fio::tryWriteFlatAscii(out, values, num, getNumValuesPerLine()))       \
      SoMField::writeValue(out);                                                       \
  }                                                                                    \
  bool className::readBinaryValues(SoInput* in, int numToRead) {                       \
    /* A count that the bytes left cannot hold is refused before allocating. */       \
    if (numToRead < 0 || static_cast<uint64_t>(numToRead) * orvex::fio::BinarySize<valueType>::bytes > \
                             in->getNumBytesLeft())                                    \
      return false;                                                                    \
    allocValues(numToRead);                                                            \
    bool done = false;                                                                 \
    const bool ok = orvex::fio::readBinary(in, values, numToRead, done);               \
    if (done) return ok;                                                               \
    return SoMField::readBinaryValues(in, numToRead);                                  \
  }                                                                                    \
  void className::writeBinaryValues(SoOutput* out) const {                             \
    bool done = false;                                                                 \
    orvex::fio::writeBinary(out, values, num, done);                                   \
    if (!done) SoMField::writeBinaryValues(out);                                       \
  }

#define SO_MFIELD_SOURCE(className, typeName, valueType, valueRef)  \
  SO_MFIELD_CORE_SOURCE(className, typeName, valueType, valueRef)  \
  SO_MFIELD_IO_SOURCE(className, valueType)
