#pragma once
#include <Orvex/SbDataType.h>
#include <Orvex/SbVec3i32.h>
#include <Orvex/fields/SoArrayStorage.h>
#include <Orvex/fields/SoSubField.h>

// A field holding an array of up to three dimensions of one data type. In
// files: the data type name, the dimensions, then the values in brackets
// ("FLOAT 2 1 1 [ 0.5, 1 ]"). The 2D and 3D variants write only their own
// dimensions.
class SoSFArray : public SoSField {
  SO_FIELD_HEADER(SoSFArray);

 public:
  enum CopyPolicy { COPY = 0, NO_COPY = 1, NO_COPY_AND_DELETE = 2, NO_COPY_AND_FREE = 3 };

  SoSFArray();
  ~SoSFArray() override;

  // Dimensions x, y, z (unused ones are 1).
  void setValue(const SbVec3i32& size, const SbDataType& dataType, const void* data,
                CopyPolicy copy = COPY);
  const void* getValue(SbVec3i32& size, SbDataType& dataType) const;
  void* startEditing(SbVec3i32& size, SbDataType& dataType);
  void finishEditing();
  SbDataType getDataType() const { return m_dataType; }
  SbVec3i32 getSize() const { return m_size; }
  size_t getValueSize() const override { return m_storage.size(); }

  bool operator==(const SoSFArray& f) const;
  bool operator!=(const SoSFArray& f) const { return !(*this == f); }
  bool readValue(SoInput* in) override;
  void writeValue(SoOutput* out) const override;

 protected:
  // Number of dimensions written to files.
  virtual int getNumDimensions() const { return 3; }

  SbVec3i32 m_size;
  SbDataType m_dataType;
  SoArrayStorage m_storage;
};
