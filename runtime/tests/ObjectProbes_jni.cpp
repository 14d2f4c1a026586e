// Probes of object identity: MakeJavaObj, SoBaseJava and ObjectHelper.

#include <Orvex/SoTypedObject.h>
#include <Orvex/misc/SoBase.h>

#include "MakeJavaObj.h"
#include "ObjectHelper.h"
#include "ProbeObjects.h"
#include "RuntimeProbe.h"
#include "StringHelper.h"

using probe::utf;

namespace {
int s_lastEnumValue = 0;  // what the last enumValueOf call answered
}  // namespace

PROBE(jstring, deriveJavaSimpleName)(JNIEnv* env, jclass, jstring typeName) {
  return StringHelper::fromNativeString(env, orvexjava::deriveJavaSimpleName(utf(env, typeName).c_str()));
}

PROBE(jlong, javaClassSearchCount)(JNIEnv*, jclass) { return orvexjava::getJavaClassSearchCount(); }

PROBE(jlong, typedProbeAddress)(JNIEnv* env, jclass, jstring typeName) {
  return reinterpret_cast<jlong>(probe::typedProbe(utf(env, typeName)));
}

PROBE(jobject, makeJavaObj)(JNIEnv* env, jclass, jstring javaClassName, jstring toolkitTypeName) {
  StringHelper className(env, javaClassName);
  const SoTypedObject* object =
      toolkitTypeName == nullptr ? nullptr : probe::typedProbe(utf(env, toolkitTypeName));
  return MakeJavaObj(env, className.toUTFString(), object, false, false);
}

PROBE(jlong, newProbeNode)(JNIEnv*, jclass) { return reinterpret_cast<jlong>(new probe::ProbeNode()); }

PROBE(jint, probeNodesAlive)(JNIEnv*, jclass) { return probe::ProbeNode::alive(); }

PROBE(jobject, soBaseJava)(JNIEnv* env, jclass, jlong address) {
  return SoBaseJava(env, reinterpret_cast<SoBase*>(address));
}

PROBE(jobject, managedObject)(JNIEnv* env, jclass, jstring className, jlong address) {
  return ObjectHelper::getManagedObject(env, utf(env, className).c_str(), address);
}

PROBE(jobject, newInstanceOf)(JNIEnv* env, jclass, jstring className) {
  return ObjectHelper::getManagedObject(env, utf(env, className).c_str());
}

PROBE(jlong, dynamicInstance)(JNIEnv* env, jclass, jstring typeName) {
  return reinterpret_cast<jlong>(ObjectHelper::getManagedObject(utf(env, typeName).c_str()));
}

PROBE(jobject, enumOf)(JNIEnv* env, jclass, jstring enumClassName, jint value) {
  return ObjectHelper::getEnum(env, utf(env, enumClassName).c_str(), value);
}

PROBE(jint, enumValueOf)(JNIEnv* env, jclass, jobject constant) {
  s_lastEnumValue = ObjectHelper::getEnumValue(env, constant);
  return s_lastEnumValue;
}

PROBE(jint, lastEnumValueResult)(JNIEnv*, jclass) { return s_lastEnumValue; }
