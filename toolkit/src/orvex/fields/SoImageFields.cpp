// Fields of raw data blocks: 2D and 3D images and typed arrays.

#include <Orvex/devices/SoBufferObject.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/fields/SoSFArray.h>
#include <Orvex/fields/SoSFArray2D.h>
#include <Orvex/fields/SoSFArray3D.h>
#include <Orvex/fields/SoSFImage.h>
#include <Orvex/fields/SoSFImage3.h>

#include <cstdio>
#include <cstring>

#include "FieldSource.h"

namespace {

// Element count of a block, or -1 when a dimension is negative or the
// product does not fit what the input can still hold (each element takes at
// least one byte of input), so that a damaged file cannot make us allocate.
int64_t checkedCount(const int64_t* dims, int n, size_t limit) {
  int64_t count = 1;
  for (int i = 0; i < n; ++i) {
    if (dims[i] < 0 || dims[i] > (int64_t(1) << 31)) return -1;
    count *= dims[i];
    if (count > static_cast<int64_t>(limit)) return -1;
  }
  return count;
}

// The data type a binary file names, if it is one (other numbers are not
// values of the enumeration and must not be converted to it).
bool dataTypeFromNumber(int number, SbDataType& type) {
  switch (number) {
    case SbDataType::UNSIGNED_BYTE:
    case SbDataType::UNSIGNED_SHORT:
    case SbDataType::UNSIGNED_INT32:
    case SbDataType::SIGNED_BYTE:
    case SbDataType::SIGNED_SHORT:
    case SbDataType::SIGNED_INT32:
    case SbDataType::FLOAT:
    case SbDataType::DOUBLE:
      type = SbDataType(static_cast<SbDataType::DataType>(number));
      return true;
    default:
      return false;
  }
}

// Typed elements, read and written as numbers.
bool readElement(SoInput* in, SbDataType type, unsigned char* dst) {
  switch (type.getType()) {
    case SbDataType::UNSIGNED_BYTE: { unsigned int v; if (!in->read(v)) return false; *dst = static_cast<uint8_t>(v); return true; }
    case SbDataType::SIGNED_BYTE: { int v; if (!in->read(v)) return false; *reinterpret_cast<int8_t*>(dst) = static_cast<int8_t>(v); return true; }
    case SbDataType::UNSIGNED_SHORT: { unsigned short v; if (!in->read(v)) return false; std::memcpy(dst, &v, 2); return true; }
    case SbDataType::SIGNED_SHORT: { short v; if (!in->read(v)) return false; std::memcpy(dst, &v, 2); return true; }
    case SbDataType::UNSIGNED_INT32: { unsigned int v; if (!in->read(v)) return false; std::memcpy(dst, &v, 4); return true; }
    case SbDataType::SIGNED_INT32: { int v; if (!in->read(v)) return false; std::memcpy(dst, &v, 4); return true; }
    case SbDataType::FLOAT: { float v; if (!in->read(v)) return false; std::memcpy(dst, &v, 4); return true; }
    case SbDataType::DOUBLE: { double v; if (!in->read(v)) return false; std::memcpy(dst, &v, 8); return true; }
    default: return false;
  }
}

void writeElement(SoOutput* out, SbDataType type, const unsigned char* src) {
  switch (type.getType()) {
    case SbDataType::UNSIGNED_BYTE: out->write(static_cast<unsigned int>(*src)); break;
    case SbDataType::SIGNED_BYTE: out->write(static_cast<int>(*reinterpret_cast<const int8_t*>(src))); break;
    case SbDataType::UNSIGNED_SHORT: { unsigned short v; std::memcpy(&v, src, 2); out->write(v); break; }
    case SbDataType::SIGNED_SHORT: { short v; std::memcpy(&v, src, 2); out->write(v); break; }
    case SbDataType::UNSIGNED_INT32: { unsigned int v; std::memcpy(&v, src, 4); out->write(v); break; }
    case SbDataType::SIGNED_INT32: { int v; std::memcpy(&v, src, 4); out->write(v); break; }
    case SbDataType::FLOAT: { float v; std::memcpy(&v, src, 4); out->write(v); break; }
    case SbDataType::DOUBLE: { double v; std::memcpy(&v, src, 8); out->write(v); break; }
    default: break;
  }
}

// 8-bit pixels of nc components packed into one number, first component in
// the most significant byte (0xRRGGBBAA).
bool readPackedPixels(SoInput* in, unsigned char* dst, int64_t numPixels, int nc) {
  for (int64_t p = 0; p < numPixels; ++p) {
    unsigned int packed;
    if (!in->read(packed)) return false;
    for (int c = nc - 1; c >= 0; --c) {
      dst[p * nc + c] = static_cast<unsigned char>(packed & 0xFF);
      packed >>= 8;
    }
  }
  return true;
}

void writePackedPixels(SoOutput* out, const unsigned char* src, int64_t numPixels, int nc) {
  char text[16];
  out->incrementIndent();
  for (int64_t p = 0; p < numPixels; ++p) {
    unsigned int packed = 0;
    for (int c = 0; c < nc; ++c) packed = (packed << 8) | src[p * nc + c];
    std::snprintf(text, sizeof text, "0x%0*x", nc * 2, packed);
    if (p % 8 == 0) {
      out->write('\n');
      out->indent();
    } else {
      out->write(' ');
    }
    out->write(text);
  }
  out->decrementIndent();
}

// Binary blocks: the bytes, padded to a multiple of four.
bool readBytes(SoInput* in, SoArrayStorage& storage, size_t size) {
  if (size > in->getNumBytesLeft()) return false;
  storage.copy(nullptr, size);
  return in->readBinaryArray(storage.edit(), static_cast<int>(size));
}

}  // namespace

// ---- SoSFImage -----------------------------------------------------------------------

SO_FIELD_SOURCE(SoSFImage, SoSField, "SFImage")

SoSFImage::SoSFImage() = default;
SoSFImage::~SoSFImage() { releaseBuffer(); }

// Once the pixels no longer live in the buffer object.
void SoSFImage::releaseBuffer() {
  if (!m_buffer) return;
  SoBufferObject* buffer = m_buffer;
  m_buffer = nullptr;
  buffer->unmap();
  buffer->unref();
}

SoSFImage& SoSFImage::operator=(const SoSFImage& f) {
  if (this != &f) setValue(f.m_size, f.m_nc, f.m_dataType, f.m_storage.data(), COPY);
  return *this;
}

const unsigned char* SoSFImage::getValue(SbVec2s& size, int& nc) const {
  size.setValue(static_cast<short>(m_size[0]), static_cast<short>(m_size[1]));
  nc = m_nc;
  return m_storage.data();
}

const unsigned char* SoSFImage::getValue(SbVec2i32& size, int& nc) const {
  size = m_size;
  nc = m_nc;
  return m_storage.data();
}

const unsigned char* SoSFImage::getValue(SbVec2i32& size, int& nc, DataTypes& dataType) const {
  dataType = m_dataType;
  return getValue(size, nc);
}

void SoSFImage::setValue(const SbVec2s& size, int nc, const unsigned char* pixels, CopyPolicies copy) {
  setValue(SbVec2i32(size[0], size[1]), nc, UNSIGNED_BYTE, pixels, copy);
}

void SoSFImage::setValue(const SbVec2i32& size, int nc, const unsigned char* pixels, CopyPolicies copy) {
  setValue(size, nc, UNSIGNED_BYTE, pixels, copy);
}

void SoSFImage::setValue(const SbVec2i32& size, int nc, DataTypes dataType, const void* pixels, CopyPolicies copy) {
  const int w = size[0] < 0 ? 0 : size[0];
  const int h = size[1] < 0 ? 0 : size[1];
  const int components = nc < 0 ? 0 : nc;
  const size_t bytes = size_t(w) * size_t(h) * size_t(components) * SbDataType(static_cast<SbDataType::DataType>(dataType)).getSize();
  m_size.setValue(w, h);
  m_nc = components;
  m_dataType = dataType;
  switch (copy) {
    case COPY: m_storage.copy(pixels, bytes); break;
    case NO_COPY: m_storage.adopt(const_cast<void*>(pixels), bytes, SoArrayStorage::BORROWED); break;
    case NO_COPY_AND_DELETE: m_storage.adopt(const_cast<void*>(pixels), bytes, SoArrayStorage::OWN_NEW); break;
    case NO_COPY_AND_FREE: m_storage.adopt(const_cast<void*>(pixels), bytes, SoArrayStorage::OWN_MALLOC); break;
  }
  releaseBuffer();
  m_subTextures.clear();
  valueChanged();
}

void SoSFImage::setValue(const SbVec2i32& size, int nc, SoBufferObject* bufferObject, CopyPolicies copy) {
  const size_t needed = size_t(size[0] < 0 ? 0 : size[0]) * size_t(size[1] < 0 ? 0 : size[1]) * size_t(nc < 0 ? 0 : nc);
  if (!bufferObject || bufferObject->getSize() < needed) {
    SoDebugError::post("SoSFImage::setValue", "The buffer object holds %zu bytes, the image needs %zu",
                       bufferObject ? bufferObject->getSize() : size_t(0), needed);
    return;
  }
  // Held while used, even when copied: the field's notification may make
  // an auditor release the caller's last reference.
  bufferObject->ref();
  const void* pixels = bufferObject->map(SoBufferObject::READ_ONLY);
  if (!pixels && needed > 0) {
    bufferObject->unref();
    return;
  }
  if (copy == COPY) {
    setValue(size, nc, UNSIGNED_BYTE, pixels, COPY);
    bufferObject->unmap();
    bufferObject->unref();
    return;
  }
  // Borrowed: the reference and the mapping stay until releaseBuffer().
  // setValue() releases a previous buffer (this one too, if it was
  // already in use, after which this call's reference and mapping remain).
  const bool notifying = enableNotify(false);
  setValue(size, nc, UNSIGNED_BYTE, pixels, NO_COPY);
  enableNotify(notifying);
  m_buffer = bufferObject;
  valueChanged();
}

unsigned char* SoSFImage::startEditing(SbVec2i32& size, int& nc) {
  size = m_size;
  nc = m_nc;
  // Borrowed pixels are copied before they are edited: the buffer they
  // were borrowed from is no longer needed.
  unsigned char* pixels = m_storage.edit();
  releaseBuffer();
  return pixels;
}

void SoSFImage::finishEditing() { valueChanged(); }

void SoSFImage::setSubValue(const SbVec2i32& subSize, const SbVec2i32& offset, const unsigned char* pixels) {
  if (!pixels || m_dataType != UNSIGNED_BYTE) return;
  const int x0 = offset[0], y0 = offset[1], w = subSize[0], h = subSize[1];
  if (x0 < 0 || y0 < 0 || w <= 0 || h <= 0 || x0 + w > m_size[0] || y0 + h > m_size[1]) return;
  unsigned char* dst = m_storage.edit();
  releaseBuffer();
  for (int y = 0; y < h; ++y)
    std::memcpy(dst + (size_t(y0 + y) * m_size[0] + x0) * m_nc, pixels + size_t(y) * w * m_nc, size_t(w) * m_nc);
  m_subTextures.push_back(SubTexture{offset, subSize});
  valueChanged();
}

bool SoSFImage::getSubTexture(int index, SbVec2i32& offset, SbVec2i32& size) const {
  if (index < 0 || index >= getNumSubTextures()) return false;
  offset = m_subTextures[static_cast<size_t>(index)].offset;
  size = m_subTextures[static_cast<size_t>(index)].size;
  return true;
}

bool SoSFImage::operator==(const SoSFImage& f) const {
  return m_size == f.m_size && m_nc == f.m_nc && m_dataType == f.m_dataType && m_storage.sameBytes(f.m_storage);
}

bool SoSFImage::readValue(SoInput* in) {
  int w, h, nc;
  if (!in->read(w) || !in->read(h) || !in->read(nc) || nc < 0 || nc > 4) return false;
  if (in->isBinary()) {
    int type;
    SbDataType dt;
    if (!in->read(type) || !dataTypeFromNumber(type, dt) || type == SbDataType::DOUBLE) return false;
    const int64_t dims[3] = {w, h, nc};
    const int64_t count = checkedCount(dims, 3, in->getNumBytesLeft());
    if (count < 0) return false;
    m_size.setValue(w, h);
    m_nc = nc;
    m_dataType = static_cast<DataTypes>(type);
    m_subTextures.clear();
    releaseBuffer();
    return readBytes(in, m_storage, size_t(count) * dt.getSize());
  }
  DataTypes type = UNSIGNED_BYTE;
  char c;
  if (in->peek(c) && SbName::isIdentStartChar(c)) {
    SbName name;
    in->read(name, true);
    const SbDataType dt{SbString(name.getString())};
    if (dt.getType() == SbDataType::UNKNOWN || dt.getType() == SbDataType::DOUBLE) {
      in->putBack(name.getString());  // not a type: the next field's name
    } else {
      type = static_cast<DataTypes>(dt.getType());
    }
  }
  const int64_t dims[2] = {w, h};
  const int64_t numPixels = checkedCount(dims, 2, in->getNumBytesLeft());
  if (numPixels < 0) return false;
  const SbDataType dt(static_cast<SbDataType::DataType>(type));
  SoArrayStorage& s = m_storage;
  releaseBuffer();
  s.copy(nullptr, size_t(numPixels) * nc * dt.getSize());
  unsigned char* dst = s.edit();
  bool ok = true;
  if (type == UNSIGNED_BYTE) {
    ok = readPackedPixels(in, dst, numPixels, nc);
  } else {
    for (int64_t i = 0; ok && i < numPixels * nc; ++i) ok = readElement(in, dt, dst + i * dt.getSize());
  }
  if (!ok) return false;
  m_size.setValue(w, h);
  m_nc = nc;
  m_dataType = type;
  m_subTextures.clear();
  return true;
}

void SoSFImage::writeValue(SoOutput* out) const {
  const int64_t numPixels = int64_t(m_size[0]) * m_size[1];
  const SbDataType dt(static_cast<SbDataType::DataType>(m_dataType));
  if (out->isBinary()) {
    out->write(m_size[0]);
    out->write(m_size[1]);
    out->write(m_nc);
    out->write(static_cast<int>(m_dataType));
    out->writeBinaryArray(m_storage.data(), static_cast<int>(m_storage.size()));
    return;
  }
  out->write(m_size[0]);
  out->write(' ');
  out->write(m_size[1]);
  out->write(' ');
  out->write(m_nc);
  if (m_dataType == UNSIGNED_BYTE) {
    writePackedPixels(out, m_storage.data(), numPixels, m_nc);
    return;
  }
  out->write(' ');
  out->write(dt.getString().getString());
  const unsigned char* src = m_storage.data();
  for (int64_t i = 0; i < numPixels * m_nc; ++i) {
    out->write(' ');
    writeElement(out, dt, src + i * dt.getSize());
  }
}

// ---- SoSFImage3 ----------------------------------------------------------------------

SO_FIELD_SOURCE(SoSFImage3, SoSField, "SFImage3")

SoSFImage3::SoSFImage3() = default;
SoSFImage3::~SoSFImage3() = default;

SoSFImage3& SoSFImage3::operator=(const SoSFImage3& f) {
  if (this != &f) setValue(f.m_size, f.m_nc, f.m_storage.data());
  return *this;
}

const unsigned char* SoSFImage3::getValue(SbVec3s& size, int& nc) const {
  size = m_size;
  nc = m_nc;
  return m_storage.data();
}

void SoSFImage3::setValue(const SbVec3s& size, int nc, const unsigned char* pixels) {
  const int w = size[0] < 0 ? 0 : size[0], h = size[1] < 0 ? 0 : size[1], d = size[2] < 0 ? 0 : size[2];
  m_size.setValue(static_cast<short>(w), static_cast<short>(h), static_cast<short>(d));
  m_nc = nc < 0 ? 0 : nc;
  m_storage.copy(pixels, size_t(w) * h * d * m_nc);
  valueChanged();
}

unsigned char* SoSFImage3::startEditing(SbVec3s& size, int& nc) {
  size = m_size;
  nc = m_nc;
  return m_storage.edit();
}

void SoSFImage3::finishEditing() { valueChanged(); }

bool SoSFImage3::operator==(const SoSFImage3& f) const {
  return m_size == f.m_size && m_nc == f.m_nc && m_storage.sameBytes(f.m_storage);
}

bool SoSFImage3::readValue(SoInput* in) {
  short w, h, d;
  int nc;
  if (!in->read(w) || !in->read(h) || !in->read(d) || !in->read(nc) || nc < 0 || nc > 4) return false;
  const int64_t dims[3] = {w, h, d};
  const int64_t numPixels = checkedCount(dims, 3, in->getNumBytesLeft());
  if (numPixels < 0) return false;
  if (in->isBinary()) {
    if (!readBytes(in, m_storage, size_t(numPixels) * nc)) return false;
  } else {
    m_storage.copy(nullptr, size_t(numPixels) * nc);
    if (!readPackedPixels(in, m_storage.edit(), numPixels, nc)) return false;
  }
  m_size.setValue(w, h, d);
  m_nc = nc;
  return true;
}

void SoSFImage3::writeValue(SoOutput* out) const {
  const int64_t numPixels = int64_t(m_size[0]) * m_size[1] * m_size[2];
  if (out->isBinary()) {
    out->write(m_size[0]);
    out->write(m_size[1]);
    out->write(m_size[2]);
    out->write(m_nc);
    out->writeBinaryArray(m_storage.data(), static_cast<int>(m_storage.size()));
    return;
  }
  out->write(m_size[0]);
  out->write(' ');
  out->write(m_size[1]);
  out->write(' ');
  out->write(m_size[2]);
  out->write(' ');
  out->write(m_nc);
  writePackedPixels(out, m_storage.data(), numPixels, m_nc);
}

// ---- SoSFArray and its 2D and 3D forms -------------------------------------------

SO_FIELD_SOURCE(SoSFArray, SoSField, "SFArray")

SoSFArray::SoSFArray() : m_size(0, 0, 0) {}
SoSFArray::~SoSFArray() = default;

SoSFArray& SoSFArray::operator=(const SoSFArray& f) {
  if (this != &f) setValue(f.m_size, f.m_dataType, f.m_storage.data(), COPY);
  return *this;
}

void SoSFArray::setValue(const SbVec3i32& size, const SbDataType& dataType, const void* data, CopyPolicy copy) {
  SbVec3i32 dims = size;
  for (int i = 0; i < 3; ++i)
    if (dims[i] < 0) dims[i] = 0;
  const size_t bytes = size_t(dims[0]) * dims[1] * dims[2] * dataType.getSize();
  m_size = dims;
  m_dataType = dataType;
  switch (copy) {
    case COPY: m_storage.copy(data, bytes); break;
    case NO_COPY: m_storage.adopt(const_cast<void*>(data), bytes, SoArrayStorage::BORROWED); break;
    case NO_COPY_AND_DELETE: m_storage.adopt(const_cast<void*>(data), bytes, SoArrayStorage::OWN_NEW); break;
    case NO_COPY_AND_FREE: m_storage.adopt(const_cast<void*>(data), bytes, SoArrayStorage::OWN_MALLOC); break;
  }
  valueChanged();
}

const void* SoSFArray::getValue(SbVec3i32& size, SbDataType& dataType) const {
  size = m_size;
  dataType = m_dataType;
  return m_storage.data();
}

void* SoSFArray::startEditing(SbVec3i32& size, SbDataType& dataType) {
  size = m_size;
  dataType = m_dataType;
  return m_storage.edit();
}

void SoSFArray::finishEditing() { valueChanged(); }

bool SoSFArray::operator==(const SoSFArray& f) const {
  return m_size == f.m_size && m_dataType == f.m_dataType && m_storage.sameBytes(f.m_storage);
}

bool SoSFArray::readValue(SoInput* in) {
  const int numDims = getNumDimensions();
  SbDataType type;
  if (in->isBinary()) {
    int t;
    if (!in->read(t) || !dataTypeFromNumber(t, type)) return false;
  } else {
    SbName name;
    if (!in->read(name, true)) return false;
    type = SbDataType(SbString(name.getString()));
  }
  if (type.getSize() == 0) return false;
  int64_t dims[3] = {1, 1, 1};
  for (int i = 0; i < numDims; ++i) {
    int d;
    if (!in->read(d)) return false;
    dims[i] = d;
  }
  const int64_t count = checkedCount(dims, 3, in->getNumBytesLeft());
  if (count < 0) return false;
  if (in->isBinary()) {
    if (!readBytes(in, m_storage, size_t(count) * type.getSize())) return false;
  } else {
    m_storage.copy(nullptr, size_t(count) * type.getSize());
    unsigned char* dst = m_storage.edit();
    char c;
    if (!in->read(c) || c != '[') return false;
    for (int64_t i = 0; i < count; ++i) {
      if (!readElement(in, type, dst + i * type.getSize())) return false;
      if (!in->read(c)) return false;
      if (c == ']') {
        if (i + 1 != count) return false;
        goto done;
      }
      if (c != ',') in->putBack(c);
    }
    if (!in->read(c) || c != ']') return false;
  }
done:
  m_size.setValue(static_cast<int32_t>(dims[0]), static_cast<int32_t>(dims[1]), static_cast<int32_t>(dims[2]));
  m_dataType = type;
  return true;
}

void SoSFArray::writeValue(SoOutput* out) const {
  const int numDims = getNumDimensions();
  const int64_t count = int64_t(m_size[0]) * m_size[1] * m_size[2];
  if (out->isBinary()) {
    out->write(static_cast<int>(m_dataType.getType()));
    for (int i = 0; i < numDims; ++i) out->write(m_size[i]);
    out->writeBinaryArray(m_storage.data(), static_cast<int>(m_storage.size()));
    return;
  }
  out->write(m_dataType.getString().getString());
  for (int i = 0; i < numDims; ++i) {
    out->write(' ');
    out->write(m_size[i]);
  }
  out->write(" [");
  const unsigned char* src = m_storage.data();
  for (int64_t i = 0; i < count; ++i) {
    out->write(i ? ", " : " ");
    writeElement(out, m_dataType, src + i * m_dataType.getSize());
  }
  out->write(" ]");
}

SO_FIELD_SOURCE(SoSFArray2D, SoSFArray, "SFArray2D")
SoSFArray2D::SoSFArray2D() = default;
SoSFArray2D::~SoSFArray2D() = default;
SoSFArray2D& SoSFArray2D::operator=(const SoSFArray2D& f) {
  SoSFArray::operator=(f);
  return *this;
}
void SoSFArray2D::setValue(const SbVec2i32& size, const SbDataType& dataType, const void* data, CopyPolicy copy) {
  SoSFArray::setValue(SbVec3i32(size[0], size[1], 1), dataType, data, copy);
}
const void* SoSFArray2D::getValue(SbVec2i32& size, SbDataType& dataType) const {
  size.setValue(m_size[0], m_size[1]);
  dataType = m_dataType;
  return m_storage.data();
}

SO_FIELD_SOURCE(SoSFArray3D, SoSFArray, "SFArray3D")
SoSFArray3D::SoSFArray3D() = default;
SoSFArray3D::~SoSFArray3D() = default;
SoSFArray3D& SoSFArray3D::operator=(const SoSFArray3D& f) {
  SoSFArray::operator=(f);
  return *this;
}
