#include "FileHelper.h"

#include <cstdlib>
#include <cstring>

#include <Orvex/SbFileHelper.h>
#include <Orvex/SbString.h>

FileHelper::FileHelper(JNIEnv* env, jstring fileName) : m_fileName(std::make_unique<StringHelper>(env, fileName)) {}

FileHelper::~FileHelper() {
  if (m_file != nullptr) SbFileHelper::close(m_file);
  std::free(m_mode);
}

FILE* FileHelper::open(const char* mode) {
  if (mode == nullptr) return nullptr;
  if (m_file != nullptr && std::strcmp(m_mode, mode) == 0) return m_file;
  if (m_file != nullptr) {
    SbFileHelper::close(m_file);
    m_file = nullptr;
  }
  std::free(m_mode);
  m_mode = strdup(mode);
  // The wide form keeps names that the local code page cannot express.
  m_file = SbFileHelper::open(SbString(m_fileName->toUnicodeString()), m_mode);
  return m_file;
}
