// Database services of com.orvexa.orvex.SoDB whose Java side guards them:
// the application lock (the Java side counts what each thread holds, so these
// are only ever called to take a lock that cannot deadlock the caller or to
// give back one it holds), and renaming global fields (the Java side retires
// the wrappers of the fields a rename deletes).

#include <jni.h>

#include <Orvex/SbName.h>
#include <Orvex/SoDB.h>

#include "StringHelper.h"

extern "C" {

JNIEXPORT void JNICALL Java_com_orvexa_orvex_SoDB_readlockImpl(JNIEnv*, jclass) { SoDB::readlock(); }

JNIEXPORT void JNICALL Java_com_orvexa_orvex_SoDB_readunlockImpl(JNIEnv*, jclass) { SoDB::readunlock(); }

JNIEXPORT void JNICALL Java_com_orvexa_orvex_SoDB_writelockImpl(JNIEnv*, jclass) { SoDB::writelock(); }

JNIEXPORT void JNICALL Java_com_orvexa_orvex_SoDB_writeunlockImpl(JNIEnv*, jclass) { SoDB::writeunlock(); }

// Renames a global field; an empty new name deletes it, and a new name that
// is taken deletes the field that had it.
JNIEXPORT void JNICALL Java_com_orvexa_orvex_SoDB_renameGlobalFieldImpl(JNIEnv* env, jclass, jstring oldName,
                                                                      jstring newName) {
  StringHelper oldNameStrHelper(env, oldName);
  StringHelper newNameStrHelper(env, newName);
  SoDB::renameGlobalField(SbName(oldNameStrHelper.toUTFString()), SbName(newNameStrHelper.toUTFString()));
}

}  // extern "C"
