#pragma once
// Opens a Java file name as a stdio stream for toolkit calls that write to a
// FILE*; Unicode names are passed to the toolkit's own file opening.

#include <jni.h>

#include <cstdio>

#include "OrvexJavaExport.h"

class StringHelper;

class ORVEXJAVA_API FileHelper {
 public:
  FileHelper(JNIEnv* env, jstring fileName);
  // Closes the stream, if open. Not to be copied once opened.
  virtual ~FileHelper();

  // The file opened with `mode`: null for a null mode; the open stream when
  // it was opened with the same mode; otherwise the previous stream is closed
  // and the file opened anew.
  FILE* open(const char* mode);

 private:
  StringHelper* m_fileName;
  FILE* m_file = nullptr;
  char* m_mode = nullptr;
};
