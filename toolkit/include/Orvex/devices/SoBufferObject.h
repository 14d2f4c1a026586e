#pragma once
#include <Orvex/SoTypedObject.h>
#include <Orvex/misc/SoRefCounter.h>

#include <cstddef>

// Stands for "everything from the offset on" in the sizes and counts of
// SoBufferObject::memcpy() and memset().
#define SO_BUFFER_SIZE_ALL (~size_t(0))

// A block of memory that the toolkit's data (images, arrays) can live in,
// wherever the memory is: the base of the buffer kinds (SoCpuBufferObject
// for main memory). Buffers are reference counted: hold one with ref() and
// release it with unref(), which deletes it when nobody else holds it.
//
// The content is reached by mapping: map() answers a pointer to the bytes,
// valid until the matching unmap(). Mappings may nest (each map() needs its
// own unmap()); while any is open the buffer keeps its memory, so setSize()
// and clearInstance() are refused. Like scene objects, a buffer is not
// locked: threads that share one must take turns.
class SoBufferObject : public SoRefCounter, public SoTypedObject {
 public:
  // What a mapping is for: reading only, overwriting every byte (the old
  // content need not be kept), or both. Buffers in main memory map the
  // same bytes for each; kinds whose memory lies elsewhere copy less.
  enum AccessModes { READ_ONLY, SET, READ_WRITE };

  static SoType getClassTypeId();
  // Registers the class (SoDB::init() does; it is also registered the
  // first time its type is asked for).
  static void initClass();

  // Changes the size in bytes: the content is kept up to the smaller size
  // and new bytes are zero. Answers false (and posts a debug error) while
  // the buffer is mapped or when the memory cannot be had; the buffer is
  // then unchanged.
  virtual bool setSize(size_t size) = 0;
  size_t getSize() const { return m_size; }

  // Maps the content for the given access; nullptr for an empty buffer
  // (which still counts as mapped until unmap()).
  virtual void* map(AccessModes accessMode) = 0;
  // Closes the last mapping; unmapping a buffer that is not mapped is
  // posted as a debug error.
  virtual void unmap() = 0;
  bool isMapped() const { return m_mapCount > 0; }

  // Copies copySize bytes (by default all of the source after sourceOffset)
  // from the source into this buffer at destOffset; the source may be this
  // buffer (overlapping ranges are copied as if through a temporary). A
  // range that does not fit either buffer is posted as a debug error and
  // nothing is copied. Answers whether the bytes were copied.
  bool memcpy(SoBufferObject* sourceBufferObject, size_t destOffset = 0, size_t sourceOffset = 0,
              size_t copySize = SO_BUFFER_SIZE_ALL);
  // Fills `count` elements of valueSize bytes each, starting at element
  // `offset`, with copies of the valueSize bytes at `value` (by default up
  // to the end of the buffer). A range that does not fit is posted as a
  // debug error and nothing is written. Answers whether the bytes were set.
  bool memset(const void* value, size_t valueSize = 1, size_t offset = 0, size_t count = SO_BUFFER_SIZE_ALL);

  // A new, empty buffer of the same kind, unreferenced.
  virtual SoBufferObject* createInstance() const = 0;
  // Releases the memory: the buffer becomes empty. Refused (debug error)
  // while mapped.
  virtual void clearInstance() = 0;

 protected:
  SoBufferObject();
  ~SoBufferObject() override;
  // For subclasses: the size they now hold, and the bookkeeping of
  // mappings. beginMapping() answers false (after posting) when the
  // access mode is not one of AccessModes.
  void setStoredSize(size_t size) { m_size = size; }
  bool beginMapping(AccessModes accessMode);
  // Answers false (after posting) when no mapping is open.
  bool endMapping();
  // Posts that `method` cannot change a mapped buffer; answers whether the
  // buffer is mapped.
  bool refuseWhileMapped(const char* method) const;

 private:
  size_t m_size = 0;
  int m_mapCount = 0;
};
