// Natives of com.orvexa.examples.DemoNatives: a small sibling library of the
// binding that loads scenes on a loader thread of its own, as applications
// that stream scene files in the background do.

#include <jni.h>

#include <string>
#include <thread>

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/SoPath.h>
#include <Orvex/actions/SoSearchAction.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoShape.h>

#include "StringHelper.h"

namespace {
// Reads a scene from text and describes it, or answers an empty string when
// the read fails. Read errors are posted by the toolkit's reader on the
// calling thread.
std::string loadAndDescribe(const std::string& text) {
  SoInput in;
  in.setBuffer(const_cast<char*>(text.data()), text.size());
  SoSeparator* root = SoDB::readAll(&in);
  if (root == nullptr) return {};
  root->ref();
  SoSearchAction search;
  search.setType(SoShape::getClassTypeId());
  search.setInterest(SoSearchAction::ALL);
  search.apply(root);
  std::string description = std::to_string(root->getNumChildren()) + " top-level nodes, " +
                            std::to_string(search.getPaths().getLength()) + " shapes";
  root->unref();
  return description;
}
}  // namespace

// Loads the scene on a thread that Java never saw. Errors found by the reader
// there reach Java through the binding's error route, which attaches the
// thread on the way.
extern "C" JNIEXPORT jstring JNICALL Java_com_orvexa_examples_DemoNatives_loadSceneOnNativeThread(JNIEnv* env, jclass,
                                                                                                   jstring sceneText) {
  StringHelper textHelper(env, sceneText);
  const std::string text = textHelper.toUTFString() ? textHelper.toUTFString() : "";
  std::string description;
  std::thread loader([&] { description = loadAndDescribe(text); });
  loader.join();
  return description.empty() ? nullptr : StringHelper::fromNativeString(env, description);
}
