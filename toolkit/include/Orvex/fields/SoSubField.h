#pragma once
// Declarations shared by the concrete field classes. Each field class states
// its members through these macros so that all classes of the family have
// the same interface; the definitions are generated the same way.

#include <Orvex/fields/SoMField.h>
#include <Orvex/fields/SoSField.h>

// Type registration and the members every concrete field has.
#define SO_FIELD_HEADER(className)                         \
 public:                                                   \
  static SoType getClassTypeId();                          \
  SoType getTypeId() const override;                       \
  static void initClass();                                 \
  static void* createInstance();                           \
  bool isSame(const SoField& f) const override;            \
  void copyFrom(const SoField& f) override;                \
  className& operator=(const className& f);                \
                                                           \
 private:                                                  \
  static SoType s_classTypeId

// A single-value field holding one `valueType`, passed as `valueRef`.
#define SO_SFIELD_HEADER(className, valueType, valueRef)   \
  SO_FIELD_HEADER(className);                              \
                                                           \
 public:                                                   \
  className();                                             \
  ~className() override;                                   \
  valueRef getValue() const {                              \
    evaluate();                                            \
    return value;                                          \
  }                                                        \
  void setValue(valueRef newValue);                        \
  className& operator=(valueRef newValue) {                \
    setValue(newValue);                                    \
    return *this;                                          \
  }                                                        \
  bool operator==(const className& f) const;               \
  bool operator!=(const className& f) const { return !(*this == f); } \
  size_t getValueSize() const override { return sizeof(valueType); } \
  bool readValue(SoInput* in) override;                    \
  void writeValue(SoOutput* out) const override;           \
                                                           \
 protected:                                                \
  valueType value

// A multiple-value field holding an array of `valueType`.
#define SO_MFIELD_HEADER(className, valueType, valueRef)                   \
  SO_FIELD_HEADER(className);                                              \
                                                                           \
 public:                                                                   \
  className();                                                             \
  ~className() override;                                                   \
  valueRef operator[](int i) const {                                       \
    evaluate();                                                            \
    return values[i];                                                      \
  }                                                                        \
  /* The values from `start` on; valid until the field changes. */         \
  valueType const* getValues(int start) const {                            \
    evaluate();                                                            \
    return values + start;                                                 \
  }                                                                        \
  /* Index of the first value equal to `targetValue`; -1, or the index */  \
  /* it was appended at when addIfNotFound. */                             \
  int find(valueRef targetValue, bool addIfNotFound = false);              \
  void setValues(int start, int num, valueType const* newValues);          \
  void set1Value(int index, valueRef newValue);                            \
  /* Makes the field hold exactly this one value. */                       \
  void setValue(valueRef newValue);                                        \
  className& operator=(valueRef newValue) {                                \
    setValue(newValue);                                                    \
    return *this;                                                          \
  }                                                                        \
  bool operator==(const className& f) const;                               \
  bool operator!=(const className& f) const { return !(*this == f); }      \
  /* Direct access for bulk edits; finishEditing() notifies once. */       \
  valueType* startEditing();                                               \
  void finishEditing();                                                    \
  /* Uses `userData` (num values) as the field's storage without owning */ \
  /* it: writes go into that memory; a read-only block is copied before */ \
  /* the first change. Growing beyond it copies into own storage. */       \
  void setValuesPointer(int num, valueType* userData);                     \
  void setValuesPointer(int num, valueType const* userData);               \
  size_t getValueSize() const override { return sizeof(valueType); }       \
  bool readValue(SoInput* in) override;                                    \
  void writeValue(SoOutput* out) const override;                           \
                                                                           \
 protected:                                                                \
  bool read1Value(SoInput* in, int index) override;                        \
  void write1Value(SoOutput* out, int index) const override;               \
  bool readBinaryValues(SoInput* in, int numToRead) override;              \
  void writeBinaryValues(SoOutput* out) const override;                    \
  void allocValues(int newNum) override;                                   \
  void deleteAllValues() override;                                         \
  void copyValue(int to, int from) override;                               \
  void resetValue(int index) override;                                     \
  void* getValuesStorage() const override { return values; }              \
  valueType* values = nullptr
