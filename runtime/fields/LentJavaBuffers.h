#pragma once
// Java direct buffers lent to multiple-value fields as their storage. The
// field reads and writes the buffer's memory in place. A global reference
// keeps the buffer, and so its memory, alive for exactly as long as the field
// uses it, whatever becomes of the Java wrappers of the field or of its node:
// the toolkit reports when the field leaves the memory (it outgrew it, other
// memory replaced it, or the field died), and the reference is dropped then.

#include <jni.h>

#include <Orvex/fields/SoMFieldLending.h>

class SoMField;

class LentJavaBuffers {
 public:
  // Makes `field` use the `num` values at `data`, the memory of the direct
  // buffer `buffer`; read-only memory is copied by the field before its
  // first change. False, with an exception pending, when no global
  // reference can be had (the field is then unchanged).
  template <class Field, class Value>
  static bool lend(JNIEnv* env, Field& field, int num, jobject buffer, Value* data) {
    jobject keeper = env->NewGlobalRef(buffer);
    if (keeper == nullptr) return false;
    SoMFieldLending::lend(field, num, data, &LentJavaBuffers::released, keeper);
    return true;
  }

  // A new local reference to the buffer that `field` uses now when it is one
  // lent here; null otherwise.
  static jobject bufferOf(JNIEnv* env, const SoMField* field);

  // A new direct byte buffer of `bytes` bytes whose memory Java owns; null,
  // with an exception pending, when there is no memory for it.
  static jobject allocate(JNIEnv* env, jint bytes);

 private:
  static void released(void* keeper);
};
