// Baselines of the callback benchmark: the same traversal with a C++
// triangle callback, and calls into Java through a cached method identifier
// (what any upcall must at least cost); plus the loop that drives the
// binding's trampoline of an SoCallback node directly.
#include <jni.h>

#include <Orvex/actions/SoCallbackAction.h>
#include <Orvex/nodes/SoCallback.h>
#include <Orvex/nodes/SoNode.h>
#include <Orvex/nodes/SoShape.h>

namespace {
void countTriangle(void* data, SoCallbackAction*, const SoPrimitiveVertex*, const SoPrimitiveVertex*,
                   const SoPrimitiveVertex*) {
  ++*static_cast<long*>(data);
}
}  // namespace

extern "C" {

// Applies a callback action with a C++ triangle callback to the node at
// `root`; answers the number of triangles.
JNIEXPORT jlong JNICALL Java_com_orvexa_benchmarks_CallbackFloor_countTrianglesInCpp(JNIEnv*, jclass, jlong root) {
  long triangles = 0;
  SoCallbackAction action;
  action.addTriangleCallback(SoShape::getClassTypeId(), countTriangle, &triangles);
  action.apply(reinterpret_cast<SoNode*>(root));
  return triangles;
}

// Calls target.hit(null) `count` times with the method identifier looked up once.
JNIEXPORT void JNICALL Java_com_orvexa_benchmarks_CallbackFloor_callCached(JNIEnv* env, jclass, jobject target,
                                                                          jint count) {
  jclass cls = env->GetObjectClass(target);
  const jmethodID hit = env->GetMethodID(cls, "hit", "(Ljava/lang/Object;)V");
  env->DeleteLocalRef(cls);
  for (jint i = 0; i < count && !env->ExceptionCheck(); ++i) env->CallVoidMethod(target, hit, nullptr);
}

// Calls the function of the SoCallback node at `node` (the binding's
// trampoline when Java set it) `count` times, with no action.
JNIEXPORT void JNICALL Java_com_orvexa_benchmarks_CallbackFloor_callNodeFunction(JNIEnv* env, jclass, jlong node,
                                                                                jint count) {
  auto* callbackNode = reinterpret_cast<SoCallback*>(node);
  SoCallbackCB* function = callbackNode->getCallback();
  void* data = callbackNode->getCallbackData();
  for (jint i = 0; i < count && !env->ExceptionCheck(); ++i) function(data, nullptr);
}

}  // extern "C"
