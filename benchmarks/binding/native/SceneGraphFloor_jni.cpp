// Baselines of the scene-graph benchmark: moving a float array across JNI
// with one region copy each way (what any bulk field access must at least
// do), and building the same nodes from C++ (what the Java wrappers add to).
#include <jni.h>

#include <Orvex/SoDB.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoSeparator.h>

#include <vector>

namespace {
std::vector<float> s_buffer;
}

extern "C" {

JNIEXPORT void JNICALL Java_com_orvexa_benchmarks_SceneGraphFloor_regionIn(JNIEnv* env, jclass, jfloatArray a) {
  const jsize n = env->GetArrayLength(a);
  s_buffer.resize(static_cast<size_t>(n));
  env->GetFloatArrayRegion(a, 0, n, s_buffer.data());
}

JNIEXPORT jfloatArray JNICALL Java_com_orvexa_benchmarks_SceneGraphFloor_regionOut(JNIEnv* env, jclass) {
  const jsize n = static_cast<jsize>(s_buffer.size());
  jfloatArray out = env->NewFloatArray(n);
  env->SetFloatArrayRegion(out, 0, n, s_buffer.data());
  return out;
}

// Builds `count` cubes with their width set under one separator, then
// releases it all; answers the number of children as a check.
JNIEXPORT jint JNICALL Java_com_orvexa_benchmarks_SceneGraphFloor_buildCubes(JNIEnv*, jclass, jint count) {
  SoSeparator* root = new SoSeparator;
  root->ref();
  for (int i = 0; i < count; ++i) {
    SoCube* cube = new SoCube;
    cube->width.setValue(static_cast<float>(i));
    root->addChild(cube);
  }
  const int children = root->getNumChildren();
  root->unref();
  return children;
}

}  // extern "C"
