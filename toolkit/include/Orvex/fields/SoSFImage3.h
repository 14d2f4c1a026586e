#pragma once
#include <Orvex/SbVec3s.h>
#include <Orvex/fields/SoArrayStorage.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a 3D image of 8-bit components: width, height, depth,
// number of components and the pixels, slice by slice. In files:
// "width height depth components" then one hexadecimal number per pixel.
class SoSFImage3 : public SoSField {
  SO_FIELD_HEADER(SoSFImage3);

 public:
  SoSFImage3();
  ~SoSFImage3() override;

  const unsigned char* getValue(SbVec3s& size, int& nc) const;
  void setValue(const SbVec3s& size, int nc, const unsigned char* pixels);
  unsigned char* startEditing(SbVec3s& size, int& nc);
  void finishEditing();
  size_t getValueSize() const override { return m_storage.size(); }

  bool operator==(const SoSFImage3& f) const;
  bool operator!=(const SoSFImage3& f) const { return !(*this == f); }
  bool readValue(SoInput* in) override;
  void writeValue(SoOutput* out) const override;

 private:
  SbVec3s m_size;
  int m_nc = 0;
  SoArrayStorage m_storage;
};
