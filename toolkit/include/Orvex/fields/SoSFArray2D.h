#pragma once
#include <Orvex/SbVec2i32.h>
#include <Orvex/fields/SoSFArray.h>

// A two-dimensional array field.
class SoSFArray2D : public SoSFArray {
  SO_FIELD_HEADER(SoSFArray2D);

 public:
  SoSFArray2D();
  ~SoSFArray2D() override;
  using SoSFArray::getValue;
  using SoSFArray::setValue;
  void setValue(const SbVec2i32& size, const SbDataType& dataType, const void* data,
                CopyPolicy copy = COPY);
  const void* getValue(SbVec2i32& size, SbDataType& dataType) const;

 protected:
  int getNumDimensions() const override { return 2; }
};
