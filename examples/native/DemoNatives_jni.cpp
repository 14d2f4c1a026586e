// Natives of com.orvexa.examples.DemoNatives.

#include <jni.h>

#include <string>
#include <thread>

#include <Orvex/errors/SoReadError.h>

#include "StringHelper.h"

// Reports a scene-file read error the way a toolkit loader thread would: from
// a thread that Java never saw. The binding's error handler attaches that
// thread and hands the text to Orvex.printErrorMessage.
extern "C" JNIEXPORT void JNICALL Java_com_orvexa_examples_DemoNatives_postReadErrorFromNativeThread(
    JNIEnv* env, jclass, jstring fileName, jint line, jstring message) {
  StringHelper fileHelper(env, fileName);
  StringHelper messageHelper(env, message);
  const std::string file = fileHelper.toUTFString();
  const std::string text = messageHelper.toUTFString();
  std::thread loader([&] { SoReadError::postAt(file.c_str(), line, "%s", text.c_str()); });
  loader.join();
}
