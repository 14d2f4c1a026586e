#pragma once
// Reading, writing and comparing the values that fields hold. One overload
// set per value type, used by the field templates of FieldSource.h. The
// input and output objects handle the ASCII/binary difference per token.

#include <Orvex/SbColor.h>
#include <Orvex/SbMatrix.h>
#include <Orvex/SbName.h>
#include <Orvex/SbPlane.h>
#include <Orvex/SbRotation.h>
#include <Orvex/SbString.h>
#include <Orvex/SbTime.h>
#include <Orvex/SbBox2d.h>
#include <Orvex/SbBox2f.h>
#include <Orvex/SbBox2i32.h>
#include <Orvex/SbBox2s.h>
#include <Orvex/SbBox3d.h>
#include <Orvex/SbBox3f.h>
#include <Orvex/SbBox3i32.h>
#include <Orvex/SbBox3s.h>
#include <Orvex/SbVec2d.h>
#include <Orvex/SbVec2f.h>
#include <Orvex/SbVec2i32.h>
#include <Orvex/SbVec2s.h>
#include <Orvex/SbVec3d.h>
#include <Orvex/SbVec3f.h>
#include <Orvex/SbVec3i32.h>
#include <Orvex/SbVec3s.h>
#include <Orvex/SbVec4b.h>
#include <Orvex/SbVec4d.h>
#include <Orvex/SbVec4f.h>
#include <Orvex/SbVec4i32.h>
#include <Orvex/SbVec4s.h>
#include <Orvex/SbVec4ub.h>
#include <Orvex/SbVec4ui32.h>
#include <Orvex/SbVec4us.h>
#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>

#include <cstdint>
#include <type_traits>

namespace orvex {
namespace fio {

// Separates the parts of a value in ASCII; binary values have no separators.
inline void space(SoOutput* out) {
  if (!out->isBinary()) out->write(' ');
}

// ---- scalars ---------------------------------------------------------------

inline bool read(SoInput* in, bool& v) { return in->read(v); }
inline bool read(SoInput* in, float& v) { return in->read(v); }
inline bool read(SoInput* in, double& v) { return in->read(v); }
inline bool read(SoInput* in, int32_t& v) { return in->read(v); }
inline bool read(SoInput* in, uint32_t& v) { return in->read(v); }
inline bool read(SoInput* in, short& v) { return in->read(v); }
inline bool read(SoInput* in, unsigned short& v) { return in->read(v); }
inline bool read(SoInput* in, int64_t& v) { return in->read(v); }
inline bool read(SoInput* in, uint64_t& v) { return in->read(v); }
inline bool read(SoInput* in, signed char& v) { return in->read(v); }
inline bool read(SoInput* in, unsigned char& v) { return in->read(v); }

inline void write(SoOutput* out, bool v) { out->write(v); }
inline void write(SoOutput* out, float v) { out->write(v); }
inline void write(SoOutput* out, double v) { out->write(v); }
inline void write(SoOutput* out, int32_t v) { out->write(static_cast<int>(v)); }
inline void write(SoOutput* out, uint32_t v) { out->write(static_cast<unsigned int>(v)); }
inline void write(SoOutput* out, short v) { out->write(v); }
inline void write(SoOutput* out, unsigned short v) { out->write(v); }
inline void write(SoOutput* out, int64_t v) { out->write(v); }
inline void write(SoOutput* out, uint64_t v) { out->write(v); }
inline void write(SoOutput* out, signed char v) { out->write(static_cast<int>(v)); }
inline void write(SoOutput* out, unsigned char v) { out->write(static_cast<unsigned int>(v)); }

// ---- text and time ---------------------------------------------------------

inline bool read(SoInput* in, SbString& v) { return in->read(v); }
inline void write(SoOutput* out, const SbString& v) { out->write(v); }

// Names are written bare when they read back as one token, else quoted.
bool read(SoInput* in, SbName& v);
void write(SoOutput* out, const SbName& v);

inline bool read(SoInput* in, SbTime& v) {
  double d;
  if (!in->read(d)) return false;
  v.setValue(d);
  return true;
}
inline void write(SoOutput* out, const SbTime& v) { out->write(v.getValue()); }

// ---- vectors: N components of type C, separated by spaces ------------------

template <class C> struct Component { using type = C; };
// 8-bit components are read and written as numbers, not characters.
template <class V, class C, int N>
bool readComponents(SoInput* in, V& v) {
  for (int i = 0; i < N; ++i) {
    C c;
    if (!read(in, c)) return false;
    v[i] = c;
  }
  return true;
}
template <class V, class C, int N>
void writeComponents(SoOutput* out, const V& v) {
  for (int i = 0; i < N; ++i) {
    if (i) space(out);
    write(out, static_cast<C>(v[i]));
  }
}

#define ORVEX_FIO_VECTOR(V, C, N)                                                  \
  inline bool read(SoInput* in, V& v) { return readComponents<V, C, N>(in, v); }  \
  inline void write(SoOutput* out, const V& v) { writeComponents<V, C, N>(out, v); }

ORVEX_FIO_VECTOR(SbVec2f, float, 2)
ORVEX_FIO_VECTOR(SbVec3f, float, 3)
ORVEX_FIO_VECTOR(SbVec4f, float, 4)
ORVEX_FIO_VECTOR(SbVec2d, double, 2)
ORVEX_FIO_VECTOR(SbVec3d, double, 3)
ORVEX_FIO_VECTOR(SbVec4d, double, 4)
ORVEX_FIO_VECTOR(SbVec2i32, int32_t, 2)
ORVEX_FIO_VECTOR(SbVec3i32, int32_t, 3)
ORVEX_FIO_VECTOR(SbVec4i32, int32_t, 4)
ORVEX_FIO_VECTOR(SbVec4ui32, uint32_t, 4)
ORVEX_FIO_VECTOR(SbVec2s, short, 2)
ORVEX_FIO_VECTOR(SbVec3s, short, 3)
ORVEX_FIO_VECTOR(SbVec4s, short, 4)
ORVEX_FIO_VECTOR(SbVec4us, unsigned short, 4)
ORVEX_FIO_VECTOR(SbVec4b, signed char, 4)
ORVEX_FIO_VECTOR(SbVec4ub, unsigned char, 4)
ORVEX_FIO_VECTOR(SbColor, float, 3)
ORVEX_FIO_VECTOR(SbColorRGBA, float, 4)
#undef ORVEX_FIO_VECTOR

// ---- boxes: the minimum, then the maximum ----------------------------------

template <class B, class V>
bool readBox(SoInput* in, B& b) {
  V mn, mx;
  if (!read(in, mn) || !read(in, mx)) return false;
  b.setBounds(mn, mx);
  return true;
}
template <class B>
void writeBox(SoOutput* out, const B& b) {
  write(out, b.getMin());
  space(out);
  write(out, b.getMax());
}
#define ORVEX_FIO_BOX(B, V)                                                 \
  inline bool read(SoInput* in, B& b) { return readBox<B, V>(in, b); }     \
  inline void write(SoOutput* out, const B& b) { writeBox(out, b); }
ORVEX_FIO_BOX(SbBox2f, SbVec2f)
ORVEX_FIO_BOX(SbBox2d, SbVec2d)
ORVEX_FIO_BOX(SbBox2i32, SbVec2i32)
ORVEX_FIO_BOX(SbBox2s, SbVec2s)
ORVEX_FIO_BOX(SbBox3f, SbVec3f)
ORVEX_FIO_BOX(SbBox3d, SbVec3d)
ORVEX_FIO_BOX(SbBox3i32, SbVec3i32)
ORVEX_FIO_BOX(SbBox3s, SbVec3s)
#undef ORVEX_FIO_BOX

// ---- rotations (axis and angle), matrices (rows), planes (normal, distance)

bool read(SoInput* in, SbRotation& r);
void write(SoOutput* out, const SbRotation& r);
bool read(SoInput* in, SbRotationd& r);
void write(SoOutput* out, const SbRotationd& r);
bool read(SoInput* in, SbMatrix& m);
void write(SoOutput* out, const SbMatrix& m);
bool read(SoInput* in, SbMatrixd& m);
void write(SoOutput* out, const SbMatrixd& m);
bool read(SoInput* in, SbPlane& p);
void write(SoOutput* out, const SbPlane& p);

// ---- the size of a value in binary files ----------------------------------------

// Fewest bytes one value takes in a binary file, so that a count the bytes
// left cannot hold is refused before anything is allocated for it. Every
// number takes at least a 4-byte word (8- and 16-bit integers are written
// as words); strings and names take at least their length word, objects
// at least one word.
template <class T>
struct BinarySize {
  static constexpr size_t bytes = std::is_arithmetic_v<T> && sizeof(T) > 4 ? sizeof(T) : 4;
};
#define ORVEX_FIO_BINARY_SIZE(T, C, N) \
  template <>                          \
  struct BinarySize<T> {               \
    static constexpr size_t bytes = (N) * BinarySize<C>::bytes; \
  };
ORVEX_FIO_BINARY_SIZE(SbTime, double, 1)
ORVEX_FIO_BINARY_SIZE(SbVec2f, float, 2)
ORVEX_FIO_BINARY_SIZE(SbVec3f, float, 3)
ORVEX_FIO_BINARY_SIZE(SbVec4f, float, 4)
ORVEX_FIO_BINARY_SIZE(SbVec2d, double, 2)
ORVEX_FIO_BINARY_SIZE(SbVec3d, double, 3)
ORVEX_FIO_BINARY_SIZE(SbVec4d, double, 4)
ORVEX_FIO_BINARY_SIZE(SbVec2i32, int32_t, 2)
ORVEX_FIO_BINARY_SIZE(SbVec3i32, int32_t, 3)
ORVEX_FIO_BINARY_SIZE(SbVec4i32, int32_t, 4)
ORVEX_FIO_BINARY_SIZE(SbVec4ui32, uint32_t, 4)
ORVEX_FIO_BINARY_SIZE(SbVec2s, short, 2)
ORVEX_FIO_BINARY_SIZE(SbVec3s, short, 3)
ORVEX_FIO_BINARY_SIZE(SbVec4s, short, 4)
ORVEX_FIO_BINARY_SIZE(SbVec4us, unsigned short, 4)
ORVEX_FIO_BINARY_SIZE(SbVec4b, signed char, 4)
ORVEX_FIO_BINARY_SIZE(SbVec4ub, unsigned char, 4)
ORVEX_FIO_BINARY_SIZE(SbColor, float, 3)
ORVEX_FIO_BINARY_SIZE(SbColorRGBA, float, 4)
ORVEX_FIO_BINARY_SIZE(SbBox2f, float, 4)
ORVEX_FIO_BINARY_SIZE(SbBox2d, double, 4)
ORVEX_FIO_BINARY_SIZE(SbBox2i32, int32_t, 4)
ORVEX_FIO_BINARY_SIZE(SbBox2s, short, 4)
ORVEX_FIO_BINARY_SIZE(SbBox3f, float, 6)
ORVEX_FIO_BINARY_SIZE(SbBox3d, double, 6)
ORVEX_FIO_BINARY_SIZE(SbBox3i32, int32_t, 6)
ORVEX_FIO_BINARY_SIZE(SbBox3s, short, 6)
ORVEX_FIO_BINARY_SIZE(SbRotation, float, 4)
ORVEX_FIO_BINARY_SIZE(SbRotationd, double, 4)
ORVEX_FIO_BINARY_SIZE(SbMatrix, float, 16)
ORVEX_FIO_BINARY_SIZE(SbMatrixd, double, 16)
ORVEX_FIO_BINARY_SIZE(SbPlane, float, 4)
#undef ORVEX_FIO_BINARY_SIZE

// ---- equality ----------------------------------------------------------------

template <class T>
inline bool equal(const T& a, const T& b) { return a == b; }

// ---- binary arrays of plain values -------------------------------------------

// Value types whose binary form is their components written one by one,
// and which can therefore be written as one array of components.
template <class T> struct FlatArray { static constexpr bool ok = false; };
template <> struct FlatArray<float> { static constexpr bool ok = true; using C = float; static constexpr int n = 1; };
template <> struct FlatArray<double> { static constexpr bool ok = true; using C = double; static constexpr int n = 1; };
template <> struct FlatArray<int32_t> { static constexpr bool ok = true; using C = int32_t; static constexpr int n = 1; };
template <> struct FlatArray<SbVec2f> { static constexpr bool ok = true; using C = float; static constexpr int n = 2; };
template <> struct FlatArray<SbVec3f> { static constexpr bool ok = true; using C = float; static constexpr int n = 3; };
template <> struct FlatArray<SbVec4f> { static constexpr bool ok = true; using C = float; static constexpr int n = 4; };
template <> struct FlatArray<SbColor> { static constexpr bool ok = true; using C = float; static constexpr int n = 3; };
template <> struct FlatArray<SbColorRGBA> { static constexpr bool ok = true; using C = float; static constexpr int n = 4; };
template <> struct FlatArray<SbVec2d> { static constexpr bool ok = true; using C = double; static constexpr int n = 2; };
template <> struct FlatArray<SbVec3d> { static constexpr bool ok = true; using C = double; static constexpr int n = 3; };
template <> struct FlatArray<SbVec4d> { static constexpr bool ok = true; using C = double; static constexpr int n = 4; };
template <> struct FlatArray<SbVec2i32> { static constexpr bool ok = true; using C = int32_t; static constexpr int n = 2; };
template <> struct FlatArray<SbVec3i32> { static constexpr bool ok = true; using C = int32_t; static constexpr int n = 3; };
template <> struct FlatArray<SbVec4i32> { static constexpr bool ok = true; using C = int32_t; static constexpr int n = 4; };

}  // namespace fio
}  // namespace orvex
