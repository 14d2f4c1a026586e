#pragma once
// Test helper: a directory of its own for the files a test writes, removed
// with everything in it when the holder goes.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

namespace orvextest {

class TempDir {
 public:
  TempDir() {
    char pattern[] = "/tmp/orvex-test-XXXXXX";
    const char* made = mkdtemp(pattern);
    m_path = made ? made : "";
  }
  ~TempDir() {
    std::error_code ignored;
    if (!m_path.empty()) std::filesystem::remove_all(m_path, ignored);
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::string& path() const { return m_path; }
  // The full name of a file in the directory.
  std::string file(const std::string& name) const { return m_path + "/" + name; }
  // Writes a file in the directory; answers its full name.
  std::string write(const std::string& name, const std::string& content) const {
    const std::string full = file(name);
    std::ofstream out(full, std::ios::binary);
    out << content;
    return full;
  }

 private:
  std::string m_path;
};

// The bytes of a file ("" when it cannot be read).
inline std::string readFileBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

}  // namespace orvextest
