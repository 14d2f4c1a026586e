#pragma once
#include <Orvex/SbDataType.h>
#include <Orvex/SbVec2i32.h>
#include <Orvex/SbVec2s.h>
#include <Orvex/fields/SoArrayStorage.h>
#include <Orvex/fields/SoSubField.h>

#include <vector>

class SoBufferObject;

// A field holding a 2D image: width, height, number of components (1 grey,
// 2 grey and alpha, 3 RGB, 4 RGBA) and the pixels, row by row from the
// bottom. In files: "width height components" then one hexadecimal number
// per pixel (0xRRGGBBAA for 4 components); images of another data type
// name the type after the components and list every component value.
class SoSFImage : public SoSField {
  SO_FIELD_HEADER(SoSFImage);

 public:
  // Element type of the pixel components (the values of SbDataType).
  enum DataTypes {
    UNSIGNED_BYTE = SbDataType::UNSIGNED_BYTE,
    UNSIGNED_SHORT = SbDataType::UNSIGNED_SHORT,
    UNSIGNED_INT32 = SbDataType::UNSIGNED_INT32,
    SIGNED_BYTE = SbDataType::SIGNED_BYTE,
    SIGNED_SHORT = SbDataType::SIGNED_SHORT,
    SIGNED_INT32 = SbDataType::SIGNED_INT32,
    FLOAT = SbDataType::FLOAT
  };
  // COPY keeps a copy of the pixels; NO_COPY uses the caller's memory, which
  // must stay valid; the last two hand the memory over (delete[] / free()).
  enum CopyPolicies { COPY = 0, NO_COPY = 1, NO_COPY_AND_DELETE = 2, NO_COPY_AND_FREE = 3 };

  SoSFImage();
  ~SoSFImage() override;

  // The pixels, with the size and component count.
  const unsigned char* getValue(SbVec2s& size, int& nc) const;
  const unsigned char* getValue(SbVec2i32& size, int& nc) const;
  const unsigned char* getValue(SbVec2i32& size, int& nc, DataTypes& dataType) const;
  void setValue(const SbVec2s& size, int nc, const unsigned char* pixels, CopyPolicies copy = COPY);
  void setValue(const SbVec2i32& size, int nc, const unsigned char* pixels, CopyPolicies copy = COPY);
  void setValue(const SbVec2i32& size, int nc, DataTypes dataType, const void* pixels,
                CopyPolicies copy = COPY);
  // 8-bit pixels held by a buffer object, which must hold at least
  // size[0] * size[1] * nc bytes (more are ignored). COPY copies them; any
  // other policy makes the field use the buffer's memory: the field holds
  // a reference to the buffer and keeps it mapped until the field gets
  // another value (or its pixels are edited, which copies them first) or
  // dies, so the buffer cannot be resized meanwhile. Changes written into
  // such a buffer show in the field without notification: touch() the
  // field after them. A null or too small buffer is posted as a debug
  // error and the value is kept.
  void setValue(const SbVec2i32& size, int nc, SoBufferObject* bufferObject, CopyPolicies copy = COPY);
  DataTypes getDataType() const { return m_dataType; }
  int getNumComponents() const { return m_nc; }
  SbVec2i32 getSize() const { return m_size; }
  size_t getValueSize() const override { return m_storage.size(); }

  // Direct access; finishEditing() notifies.
  unsigned char* startEditing(SbVec2i32& size, int& nc);
  void finishEditing();

  // Replaces a rectangle of an 8-bit image and records it as a sub-texture
  // (what changed since resetSubTextures()).
  void setSubValue(const SbVec2i32& subSize, const SbVec2i32& offset, const unsigned char* pixels);
  int getNumSubTextures() const { return static_cast<int>(m_subTextures.size()); }
  // Offset and size of a recorded sub-texture; answers false for a bad index.
  bool getSubTexture(int index, SbVec2i32& offset, SbVec2i32& size) const;
  void resetSubTextures() { m_subTextures.clear(); }

  // An image that is never written to files (too large, or made at run time).
  void setNeverWrite(bool flag) { m_neverWrite = flag; }
  bool isNeverWrite() const { return m_neverWrite; }

  bool operator==(const SoSFImage& f) const;
  bool operator!=(const SoSFImage& f) const { return !(*this == f); }
  bool readValue(SoInput* in) override;
  void writeValue(SoOutput* out) const override;

 private:
  SbVec2i32 m_size;
  int m_nc = 0;
  DataTypes m_dataType = UNSIGNED_BYTE;
  SoArrayStorage m_storage;
  struct SubTexture {
    SbVec2i32 offset;
    SbVec2i32 size;
  };
  std::vector<SubTexture> m_subTextures;
  bool m_neverWrite = false;
  // The buffer object whose memory the pixels are (referenced and mapped),
  // or null.
  SoBufferObject* m_buffer = nullptr;
  void releaseBuffer();
};
