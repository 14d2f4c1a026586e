#pragma once
#include <Orvex/SbString.h>
#include <cstdio>

// File-system helpers that take Unicode file names.
class SbFileHelper {
 public:
  // fopen() of a Unicode name (converted to the platform's file name form).
  static FILE* open(const SbString& fileName, const char* mode);
  static int close(FILE* fp);
  static bool exists(const SbString& fileName);
  static SbString getCurrentDirectory();
  static SbString getDirName(const SbString& path);   // with trailing '/'
  static SbString getBaseName(const SbString& path);
  static bool isAbsolute(const SbString& path);
};
