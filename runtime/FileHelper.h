#pragma once
// Opens a Java file name as a stdio stream for toolkit calls that write to a
// FILE*; Unicode names are passed to the toolkit's own file opening.

#include <jni.h>

#include <cstdio>
#include <memory>

#include "OrvexJavaExport.h"
#include "StringHelper.h"

class ORVEXJAVA_API FileHelper {
 public:
  FileHelper(JNIEnv* env, jstring fileName);
  // Closes the stream, if open.
  virtual ~FileHelper();
  // One owner per stream: a copy would close it twice.
  FileHelper(const FileHelper&) = delete;
  FileHelper& operator=(const FileHelper&) = delete;

  // The file opened with `mode`: null for a null mode; the open stream when
  // it was opened with the same mode; otherwise the previous stream is closed
  // and the file opened anew.
  FILE* open(const char* mode);

 private:
  std::unique_ptr<StringHelper> m_fileName;
  FILE* m_file = nullptr;
  char* m_mode = nullptr;
};
