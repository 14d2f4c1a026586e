// Font files found by a fixed search of the system's font directories.

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <mutex>
#include <string>
#include <system_error>

#include "Font.h"

namespace orvex {
namespace text {

namespace {

const char* const kFontDirectories[] = {"/usr/share/fonts", "/usr/local/share/fonts"};

std::string normalise(const std::string& name) {
  std::string out;
  for (const char c : name)
    if (c != ' ' && c != '-' && c != '_' && c != ':') out += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

// Normalised base name to path, for every TrueType or OpenType file.
const std::map<std::string, std::string>& installedFonts() {
  static const std::map<std::string, std::string> fonts = [] {
    std::map<std::string, std::string> found;
    for (const char* dir : kFontDirectories) {
      std::error_code error;
      std::filesystem::recursive_directory_iterator it(dir, std::filesystem::directory_options::skip_permission_denied,
                                                       error);
      for (; !error && it != std::filesystem::recursive_directory_iterator(); it.increment(error)) {
        const std::filesystem::path& path = it->path();
        std::string extension = path.extension().string();
        std::transform(extension.begin(), extension.end(), extension.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        if (extension != ".ttf" && extension != ".otf") continue;
        found.emplace(normalise(path.stem().string()), path.string());
      }
    }
    return found;
  }();
  return fonts;
}

// Classic family names and the DejaVu family that stands for each.
const std::pair<const char*, const char*> kAliases[] = {
    {"defaultfont", "dejavusans"}, {"helvetica", "dejavusans"},  {"arial", "dejavusans"},
    {"sans", "dejavusans"},        {"sansserif", "dejavusans"},  {"times", "dejavuserif"},
    {"timesroman", "dejavuserif"}, {"serif", "dejavuserif"},     {"courier", "dejavusansmono"},
    {"monospace", "dejavusansmono"}, {"mono", "dejavusansmono"},
};

}  // namespace

std::string findFontFile(const std::string& name) {
  const auto& fonts = installedFonts();
  std::string key = normalise(name);
  auto it = fonts.find(key);
  if (it != fonts.end()) return it->second;
  // An alias with the style kept: "Courier:Bold" is DejaVu Sans Mono Bold.
  const size_t colon = name.find(':');
  const std::string family = normalise(colon == std::string::npos ? name : name.substr(0, colon));
  const std::string style = colon == std::string::npos ? std::string() : normalise(name.substr(colon + 1));
  for (const auto& alias : kAliases) {
    if (family != alias.first) continue;
    it = fonts.find(std::string(alias.second) + (style == "roman" || style == "regular" ? "" : style));
    if (it != fonts.end()) return it->second;
  }
  return std::string();
}

std::string fallbackFontFile() {
  const auto& fonts = installedFonts();
  auto it = fonts.find("dejavusans");
  if (it != fonts.end()) return it->second;
  return fonts.empty() ? std::string() : fonts.begin()->second;
}

}  // namespace text
}  // namespace orvex
