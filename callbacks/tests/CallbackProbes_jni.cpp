// Natives of com.orvexa.orvex.misc.callbacks.CallbackProbe (test support):
// actions applied on native threads, so that Java callbacks are called from
// threads that the binding has to attach.

#include <jni.h>

#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#include <Orvex/actions/SoAction.h>
#include <Orvex/nodes/SoNode.h>


namespace {

// Lets a group of threads start their work at the same moment.
class StartLine {
 public:
  explicit StartLine(int count) : m_waiting(count) {}
  void arriveAndWait() {
    std::unique_lock<std::mutex> lock(m_mutex);
    if (--m_waiting == 0) {
      m_open.notify_all();
      return;
    }
    m_open.wait(lock, [this] { return m_waiting == 0; });
  }

 private:
  std::mutex m_mutex;
  std::condition_variable m_open;
  int m_waiting;
};

}  // namespace

// Thread i applies action i to root i, `repetitions` times; the threads
// start together and are joined before returning.
extern "C" JNIEXPORT void JNICALL Java_com_orvexa_orvex_misc_callbacks_CallbackProbe_applyOnNativeThreads(
    JNIEnv* env, jclass, jlongArray actions, jlongArray roots, jint repetitions) {
  const jsize count = env->GetArrayLength(actions);
  std::vector<jlong> actionAddresses(static_cast<size_t>(count));
  std::vector<jlong> rootAddresses(static_cast<size_t>(count));
  env->GetLongArrayRegion(actions, 0, count, actionAddresses.data());
  env->GetLongArrayRegion(roots, 0, count, rootAddresses.data());

  StartLine start(count);
  std::vector<std::thread> workers;
  workers.reserve(static_cast<size_t>(count));
  for (jsize i = 0; i < count; ++i) {
    auto* action = reinterpret_cast<SoAction*>(actionAddresses[static_cast<size_t>(i)]);
    auto* root = reinterpret_cast<SoNode*>(rootAddresses[static_cast<size_t>(i)]);
    workers.emplace_back([&start, action, root, repetitions] {
      start.arriveAndWait();
      for (jint r = 0; r < repetitions; ++r) action->apply(root);
    });
  }
  for (std::thread& worker : workers) worker.join();
}
