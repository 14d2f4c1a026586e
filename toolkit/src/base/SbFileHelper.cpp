#include <Orvex/SbFileHelper.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <climits>
#include <string>

namespace {
bool isSeparator(char c) { return c == '/' || c == '\\'; }

// Index of the last path separator, or npos.
size_t lastSeparator(const std::string& path) { return path.find_last_of("/\\"); }
}  // namespace

// On this platform file names are UTF-8 bytes, which is what SbString holds.
FILE* SbFileHelper::open(const SbString& fileName, const char* mode) {
  if (fileName.isEmpty() || !mode) return nullptr;
  return std::fopen(fileName.getString(), mode);
}

int SbFileHelper::close(FILE* fp) { return fp ? std::fclose(fp) : EOF; }

bool SbFileHelper::exists(const SbString& fileName) {
  struct stat info;
  return !fileName.isEmpty() && ::stat(fileName.getString(), &info) == 0;
}

// The working directory, with a trailing '/' like getDirName().
SbString SbFileHelper::getCurrentDirectory() {
  char buffer[PATH_MAX];
  if (!::getcwd(buffer, sizeof buffer)) return SbString();
  std::string dir(buffer);
  if (dir.empty() || !isSeparator(dir.back())) dir += '/';
  return SbString(dir);
}

SbString SbFileHelper::getDirName(const SbString& path) {
  const std::string& p = path.toStdString();
  const size_t sep = lastSeparator(p);
  return sep == std::string::npos ? SbString() : SbString(p.substr(0, sep + 1));
}

SbString SbFileHelper::getBaseName(const SbString& path) {
  const std::string& p = path.toStdString();
  const size_t sep = lastSeparator(p);
  return sep == std::string::npos ? path : SbString(p.substr(sep + 1));
}

bool SbFileHelper::isAbsolute(const SbString& path) {
  const std::string& p = path.toStdString();
  if (p.empty()) return false;
  if (isSeparator(p[0])) return true;
  // Drive-letter paths ("C:/...") as found in files written on Windows.
  return p.size() >= 3 && std::isalpha(static_cast<unsigned char>(p[0])) && p[1] == ':' &&
         isSeparator(p[2]);
}
