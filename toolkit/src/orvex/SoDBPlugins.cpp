// Plug-ins: shared objects loaded at run time, whose static initialisers
// register their classes with the toolkit.

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/errors/SoDebugError.h>

#include <dlfcn.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <system_error>
#include <vector>

namespace {

struct Plugins {
  std::mutex mutex;
  // By the name the caller gave. The handles are never closed: the types a
  // plug-in registered keep pointers to its code.
  std::map<std::string, void*> loaded;
  std::set<std::string> directories;
};

Plugins& plugins() {
  static Plugins* instance = new Plugins;  // never destroyed, as the libraries
  return *instance;
}

bool isRecorded(const std::string& name) {
  Plugins& p = plugins();
  std::lock_guard<std::mutex> lock(p.mutex);
  return p.loaded.count(name) != 0;
}

// Loads and records one plug-in; posts why when it cannot be loaded. The
// library is opened without the registry's lock held, because its
// initialisers may use the database (even add further plug-ins).
void loadPlugin(const char* method, const std::string& name) {
  if (isRecorded(name)) return;
  // Relative names are looked for where scene files are; a name found
  // nowhere goes to the dynamic loader as it is (its own search path).
  SbString found;
  const std::string path =
      SoInput::findAbsolutePath(SbString(name), found) ? found.toStdString() : name;
  void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!handle) {
    const char* why = dlerror();
    SoDebugError::post(method, "Cannot load the plug-in \"%s\": %s", name.c_str(), why ? why : "unknown error");
    return;
  }
  Plugins& p = plugins();
  std::lock_guard<std::mutex> lock(p.mutex);
  p.loaded.emplace(name, handle);
}

bool isSharedObject(const std::filesystem::path& file) { return file.extension() == ".so"; }

}  // namespace

void SoDB::addPlugin(const char* path) {
  if (!path || !*path) {
    SoDebugError::post("SoDB::addPlugin", "No plug-in name given");
    return;
  }
  loadPlugin("SoDB::addPlugin", path);
}

void SoDB::removePlugin(const char* path) {
  Plugins& p = plugins();
  std::lock_guard<std::mutex> lock(p.mutex);
  if (!path || p.loaded.erase(path) == 0)
    SoDebugError::post("SoDB::removePlugin", "\"%s\" is not a loaded plug-in", path ? path : "");
}

void SoDB::addPluginsDirectory(const char* dir) {
  if (!dir || !*dir) {
    SoDebugError::post("SoDB::addPluginsDirectory", "No directory given");
    return;
  }
  std::vector<std::string> files;
  std::error_code error;
  std::filesystem::directory_iterator it(dir, error);
  if (error) {
    SoDebugError::post("SoDB::addPluginsDirectory", "Cannot list the directory \"%s\": %s", dir,
                       error.message().c_str());
    return;
  }
  for (const std::filesystem::directory_iterator end; it != end; it.increment(error)) {
    if (error) break;
    std::error_code typeError;
    if (isSharedObject(it->path()) && it->is_regular_file(typeError)) files.push_back(it->path().string());
  }
  {
    Plugins& p = plugins();
    std::lock_guard<std::mutex> lock(p.mutex);
    p.directories.insert(dir);
  }
  // In name order, so that plug-ins that depend on others can be named so.
  std::sort(files.begin(), files.end());
  for (const std::string& file : files) loadPlugin("SoDB::addPluginsDirectory", file);
}

void SoDB::removePluginsDirectory(const char* dir) {
  Plugins& p = plugins();
  std::lock_guard<std::mutex> lock(p.mutex);
  if (!dir || p.directories.erase(dir) == 0)
    SoDebugError::post("SoDB::removePluginsDirectory", "\"%s\" is not a plug-ins directory", dir ? dir : "");
}
