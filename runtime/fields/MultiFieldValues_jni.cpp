// Values in bulk of the multiple-value fields whose values are numbers or
// fixed runs of numbers (vectors, colours, rotations, matrices, planes,
// times), for Java arrays and Java direct buffers:
//
//   setValuesImpl(field, start, num, array)   num values from a flat array
//   getValuesFlatImpl(field, start)           the values from start, flat
//   startEditingImpl(field)                   the field's storage as a buffer
//   getDirectValuesImpl(field)                the same without editing
//   setValuesBufferImpl(field, num, buffer, readOnly)
//                                             the buffer becomes the storage
//
// Arrays are copied with region copies straight between the Java array and
// the field's own storage: one copy each way. A buffer handed to Java is
// always memory that Java owns (the field's values move into a new direct
// buffer the first time), lent to the field while it uses it; see
// LentJavaBuffers. So no buffer Java holds ever points at memory the toolkit
// may free: a buffer the field stopped using (because it grew, say) still
// holds the values of that time and is simply no longer the field's.
//
// The Java side checks arguments; the checks here only keep a mistake there
// from reaching memory.

#include <jni.h>

#include <Orvex/fields/SoMFBool.h>
#include <Orvex/fields/SoMFByte.h>
#include <Orvex/fields/SoMFColor.h>
#include <Orvex/fields/SoMFColorRGBA.h>
#include <Orvex/fields/SoMFDouble.h>
#include <Orvex/fields/SoMFEnum.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoMFInt32.h>
#include <Orvex/fields/SoMFInt64.h>
#include <Orvex/fields/SoMFMatrix.h>
#include <Orvex/fields/SoMFMatrixd.h>
#include <Orvex/fields/SoMFPlane.h>
#include <Orvex/fields/SoMFRotation.h>
#include <Orvex/fields/SoMFRotationd.h>
#include <Orvex/fields/SoMFShort.h>
#include <Orvex/fields/SoMFTime.h>
#include <Orvex/fields/SoMFUByte.h>
#include <Orvex/fields/SoMFUInt32.h>
#include <Orvex/fields/SoMFUInt64.h>
#include <Orvex/fields/SoMFUShort.h>
#include <Orvex/fields/SoMFVec2d.h>
#include <Orvex/fields/SoMFVec2f.h>
#include <Orvex/fields/SoMFVec2i32.h>
#include <Orvex/fields/SoMFVec2s.h>
#include <Orvex/fields/SoMFVec3d.h>
#include <Orvex/fields/SoMFVec3f.h>
#include <Orvex/fields/SoMFVec3i32.h>
#include <Orvex/fields/SoMFVec3s.h>
#include <Orvex/fields/SoMFVec4b.h>
#include <Orvex/fields/SoMFVec4d.h>
#include <Orvex/fields/SoMFVec4f.h>
#include <Orvex/fields/SoMFVec4i32.h>
#include <Orvex/fields/SoMFVec4s.h>
#include <Orvex/fields/SoMFVec4ub.h>
#include <Orvex/fields/SoMFVec4ui32.h>
#include <Orvex/fields/SoMFVec4us.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

#include "ExceptionHelper.h"
#include "JavaComponentArrays.h"
#include "LentJavaBuffers.h"

namespace {

// How a value is laid out: `n` components of the Java primitive type
// `Component`, with nothing between or around them.
template <class Value>
struct FlatValue;

#define ORVEX_FLAT_VALUE(Value, C, N)                                                        \
  template <>                                                                                \
  struct FlatValue<Value> {                                                                  \
    using Component = C;                                                                     \
    static constexpr int n = N;                                                              \
    static_assert(sizeof(Value) == sizeof(C) * N, #Value " must be exactly its components"); \
    static_assert(std::is_trivially_copyable<Value>::value, #Value " must copy as bytes");   \
  };

ORVEX_FLAT_VALUE(bool, jboolean, 1)
ORVEX_FLAT_VALUE(int8_t, jbyte, 1)
ORVEX_FLAT_VALUE(uint8_t, jbyte, 1)
ORVEX_FLAT_VALUE(short, jshort, 1)
ORVEX_FLAT_VALUE(unsigned short, jshort, 1)
ORVEX_FLAT_VALUE(int32_t, jint, 1)
ORVEX_FLAT_VALUE(uint32_t, jint, 1)
ORVEX_FLAT_VALUE(int64_t, jlong, 1)
ORVEX_FLAT_VALUE(uint64_t, jlong, 1)
ORVEX_FLAT_VALUE(float, jfloat, 1)
ORVEX_FLAT_VALUE(double, jdouble, 1)
ORVEX_FLAT_VALUE(SbTime, jdouble, 1)
ORVEX_FLAT_VALUE(SbColor, jfloat, 3)
ORVEX_FLAT_VALUE(SbColorRGBA, jfloat, 4)
ORVEX_FLAT_VALUE(SbPlane, jfloat, 4)
ORVEX_FLAT_VALUE(SbRotation, jfloat, 4)
ORVEX_FLAT_VALUE(SbRotationd, jdouble, 4)
ORVEX_FLAT_VALUE(SbMatrix, jfloat, 16)
ORVEX_FLAT_VALUE(SbMatrixd, jdouble, 16)
ORVEX_FLAT_VALUE(SbVec2f, jfloat, 2)
ORVEX_FLAT_VALUE(SbVec3f, jfloat, 3)
ORVEX_FLAT_VALUE(SbVec4f, jfloat, 4)
ORVEX_FLAT_VALUE(SbVec2d, jdouble, 2)
ORVEX_FLAT_VALUE(SbVec3d, jdouble, 3)
ORVEX_FLAT_VALUE(SbVec4d, jdouble, 4)
ORVEX_FLAT_VALUE(SbVec2i32, jint, 2)
ORVEX_FLAT_VALUE(SbVec3i32, jint, 3)
ORVEX_FLAT_VALUE(SbVec4i32, jint, 4)
ORVEX_FLAT_VALUE(SbVec4ui32, jint, 4)
ORVEX_FLAT_VALUE(SbVec2s, jshort, 2)
ORVEX_FLAT_VALUE(SbVec3s, jshort, 3)
ORVEX_FLAT_VALUE(SbVec4s, jshort, 4)
ORVEX_FLAT_VALUE(SbVec4us, jshort, 4)
ORVEX_FLAT_VALUE(SbVec4b, jbyte, 4)
ORVEX_FLAT_VALUE(SbVec4ub, jbyte, 4)

#undef ORVEX_FLAT_VALUE

void throwIndexOutOfBounds(JNIEnv* env, const char* message) {
  jclass cls = env->FindClass("java/lang/IndexOutOfBoundsException");
  if (cls == nullptr) return;
  env->ThrowNew(cls, message);
  env->DeleteLocalRef(cls);
}

// The operations on one field class.
template <class Field>
struct MultiFieldValues {
  using Value = std::remove_pointer_t<decltype(std::declval<Field&>().startEditing())>;
  using Component = typename FlatValue<Value>::Component;
  using JavaArray = JavaComponentArray<Component>;
  static constexpr int n = FlatValue<Value>::n;

  static void set(JNIEnv* env, Field* field, jint start, jint num, typename JavaArray::Array array) {
    if (start < 0 || num < 0 || static_cast<jlong>(start) + num > INT_MAX) {
      throwIndexOutOfBounds(env, "values outside the field's index range");
      return;
    }
    if (num == 0) return;
    const int end = start + num;
    if (end > field->getNum()) {
      // Growing is part of this one change: the notification comes at the end.
      const bool notify = field->enableNotify(false);
      field->setNum(end);
      field->enableNotify(notify);
      if (field->getNum() < end) return;  // no memory: posted as a memory error, values kept
    }
    Value* values = field->startEditing();
    JavaArray::read(env, array, 0, num * n, reinterpret_cast<Component*>(values + start));
    field->finishEditing();
  }

  static typename JavaArray::Array getFlat(JNIEnv* env, Field* field, jint start) {
    const int num = field->getNum();
    if (start < 0 || start > num) {
      throwIndexOutOfBounds(env, "start outside the field's values");
      return nullptr;
    }
    const jsize count = (num - start) * n;
    typename JavaArray::Array array = JavaArray::make(env, count);
    if (array != nullptr && count > 0)
      JavaArray::write(env, array, 0, count, reinterpret_cast<const Component*>(field->getValues(start)));
    return array;
  }

  // The direct buffer that holds the field's values, moving them into one
  // first when they live elsewhere. With `editing`, the field's
  // startEditing: read-only memory is copied, and finishEditing notifies.
  static jobject storage(JNIEnv* env, Field* field, bool editing) {
    if (editing) field->startEditing();
    if (jobject lent = LentJavaBuffers::bufferOf(env, field)) return lent;
    const int num = field->getNum();
    jobject buffer = LentJavaBuffers::allocate(env, static_cast<jint>(num * sizeof(Value)));
    if (buffer == nullptr || num == 0) return buffer;
    auto* data = static_cast<Value*>(env->GetDirectBufferAddress(buffer));
    std::memcpy(static_cast<void*>(data), field->getValues(0), num * sizeof(Value));
    // The values only move: that is no change anybody is told of.
    const bool notify = field->enableNotify(false);
    const bool isDefault = field->isDefault();
    const bool lent = LentJavaBuffers::lend(env, *field, num, buffer, data);
    field->setDefault(isDefault);
    field->enableNotify(notify);
    if (!lent) return nullptr;
    if (editing) field->startEditing();
    return buffer;
  }

  static void useBuffer(JNIEnv* env, Field* field, jint num, jobject buffer, jboolean readOnly) {
    void* address = env->GetDirectBufferAddress(buffer);
    if (address == nullptr && num > 0) {
      ExceptionHelper::throwIllegalArgException(env, "buffer is not a direct buffer");
      return;
    }
    if (reinterpret_cast<std::uintptr_t>(address) % alignof(Value) != 0) {
      ExceptionHelper::throwIllegalArgException(env, "buffer is not aligned for the field's values");
      return;
    }
    auto* data = static_cast<Value*>(address);
    if (readOnly)
      LentJavaBuffers::lend(env, *field, num, buffer, static_cast<const Value*>(data));
    else
      LentJavaBuffers::lend(env, *field, num, buffer, data);
  }
};

// A Java class whose objects may be any of several field classes (unsigned
// fields are carried by the signed Java classes): the operation runs on the
// class the object really is.
template <class Field, class... Others>
struct FieldOfHandle {
  template <class Op>
  static auto apply(jlong handle, Op&& op) {
    return op(reinterpret_cast<Field*>(handle));
  }
};
template <class Field, class Other>
struct FieldOfHandle<Field, Other> {
  template <class Op>
  static auto apply(jlong handle, Op&& op) {
    SoField* field = reinterpret_cast<SoField*>(handle);
    if (field->getTypeId() == Other::getClassTypeId()) return op(static_cast<Other*>(field));
    return op(static_cast<Field*>(field));
  }
};

}  // namespace

#define ORVEX_MULTI_FIELD_ENTRIES(JavaClass, ArrayType, ...)                                                 \
  JNIEXPORT void JNICALL Java_com_orvexa_orvex_fields_##JavaClass##_setValuesImpl(                           \
      JNIEnv* env, jclass, jlong handle, jint start, jint num, ArrayType values) {                           \
    FieldOfHandle<__VA_ARGS__>::apply(handle, [&](auto* field) {                                             \
      MultiFieldValues<std::remove_pointer_t<decltype(field)>>::set(env, field, start, num, values);         \
    });                                                                                                      \
  }                                                                                                          \
  JNIEXPORT ArrayType JNICALL Java_com_orvexa_orvex_fields_##JavaClass##_getValuesFlatImpl(                  \
      JNIEnv* env, jclass, jlong handle, jint start) {                                                       \
    return FieldOfHandle<__VA_ARGS__>::apply(handle, [&](auto* field) -> ArrayType {                         \
      return MultiFieldValues<std::remove_pointer_t<decltype(field)>>::getFlat(env, field, start);           \
    });                                                                                                      \
  }                                                                                                          \
  JNIEXPORT jobject JNICALL Java_com_orvexa_orvex_fields_##JavaClass##_startEditingImpl(JNIEnv* env, jclass, \
                                                                                        jlong handle) {      \
    return FieldOfHandle<__VA_ARGS__>::apply(handle, [&](auto* field) {                                      \
      return MultiFieldValues<std::remove_pointer_t<decltype(field)>>::storage(env, field, true);            \
    });                                                                                                      \
  }                                                                                                          \
  JNIEXPORT jobject JNICALL Java_com_orvexa_orvex_fields_##JavaClass##_getDirectValuesImpl(                  \
      JNIEnv* env, jclass, jlong handle) {                                                                   \
    return FieldOfHandle<__VA_ARGS__>::apply(handle, [&](auto* field) {                                      \
      return MultiFieldValues<std::remove_pointer_t<decltype(field)>>::storage(env, field, false);           \
    });                                                                                                      \
  }                                                                                                          \
  JNIEXPORT void JNICALL Java_com_orvexa_orvex_fields_##JavaClass##_setValuesBufferImpl(                     \
      JNIEnv* env, jclass, jlong handle, jint num, jobject buffer, jboolean readOnly) {                      \
    FieldOfHandle<__VA_ARGS__>::apply(handle, [&](auto* field) {                                             \
      MultiFieldValues<std::remove_pointer_t<decltype(field)>>::useBuffer(env, field, num, buffer, readOnly); \
    });                                                                                                      \
  }

extern "C" {

ORVEX_MULTI_FIELD_ENTRIES(SoMFBool, jbooleanArray, SoMFBool)
ORVEX_MULTI_FIELD_ENTRIES(SoMFByte, jbyteArray, SoMFByte, SoMFUByte)
ORVEX_MULTI_FIELD_ENTRIES(SoMFShort, jshortArray, SoMFShort, SoMFUShort)
ORVEX_MULTI_FIELD_ENTRIES(SoMFInt, jintArray, SoMFInt32, SoMFUInt32)
ORVEX_MULTI_FIELD_ENTRIES(SoMFInt64, jlongArray, SoMFInt64, SoMFUInt64)
ORVEX_MULTI_FIELD_ENTRIES(SoMFFloat, jfloatArray, SoMFFloat)
ORVEX_MULTI_FIELD_ENTRIES(SoMFDouble, jdoubleArray, SoMFDouble)
ORVEX_MULTI_FIELD_ENTRIES(SoMFEnum, jintArray, SoMFEnum)
ORVEX_MULTI_FIELD_ENTRIES(SoMFTime, jdoubleArray, SoMFTime)
ORVEX_MULTI_FIELD_ENTRIES(SoMFColor, jfloatArray, SoMFColor)
ORVEX_MULTI_FIELD_ENTRIES(SoMFColorRGBA, jfloatArray, SoMFColorRGBA)
ORVEX_MULTI_FIELD_ENTRIES(SoMFPlane, jfloatArray, SoMFPlane)
ORVEX_MULTI_FIELD_ENTRIES(SoMFRotation, jfloatArray, SoMFRotation)
ORVEX_MULTI_FIELD_ENTRIES(SoMFRotationd, jdoubleArray, SoMFRotationd)
ORVEX_MULTI_FIELD_ENTRIES(SoMFMatrix, jfloatArray, SoMFMatrix)
ORVEX_MULTI_FIELD_ENTRIES(SoMFMatrixd, jdoubleArray, SoMFMatrixd)
ORVEX_MULTI_FIELD_ENTRIES(SoMFVec2f, jfloatArray, SoMFVec2f)
ORVEX_MULTI_FIELD_ENTRIES(SoMFVec3f, jfloatArray, SoMFVec3f)
ORVEX_MULTI_FIELD_ENTRIES(SoMFVec4f, jfloatArray, SoMFVec4f)
ORVEX_MULTI_FIELD_ENTRIES(SoMFVec2d, jdoubleArray, SoMFVec2d)
ORVEX_MULTI_FIELD_ENTRIES(SoMFVec3d, jdoubleArray, SoMFVec3d)
ORVEX_MULTI_FIELD_ENTRIES(SoMFVec4d, jdoubleArray, SoMFVec4d)
ORVEX_MULTI_FIELD_ENTRIES(SoMFVec2i, jintArray, SoMFVec2i32)
ORVEX_MULTI_FIELD_ENTRIES(SoMFVec3i, jintArray, SoMFVec3i32)
ORVEX_MULTI_FIELD_ENTRIES(SoMFVec4i, jintArray, SoMFVec4i32)
ORVEX_MULTI_FIELD_ENTRIES(SoMFVec4ui, jintArray, SoMFVec4ui32)
ORVEX_MULTI_FIELD_ENTRIES(SoMFVec2s, jshortArray, SoMFVec2s)
ORVEX_MULTI_FIELD_ENTRIES(SoMFVec3s, jshortArray, SoMFVec3s)
ORVEX_MULTI_FIELD_ENTRIES(SoMFVec4s, jshortArray, SoMFVec4s)
ORVEX_MULTI_FIELD_ENTRIES(SoMFVec4us, jshortArray, SoMFVec4us)
ORVEX_MULTI_FIELD_ENTRIES(SoMFVec4b, jbyteArray, SoMFVec4b)
ORVEX_MULTI_FIELD_ENTRIES(SoMFVec4ub, jbyteArray, SoMFVec4ub)

}  // extern "C"
