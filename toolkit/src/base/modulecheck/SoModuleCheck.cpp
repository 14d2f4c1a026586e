#include <Orvex/errors/SoDebugError.h>
#include <Orvex/misc/SoModuleCheck.h>

#include <cstring>
#include <mutex>

namespace {
struct Entry {
  int id;
  SoModuleCheck::Record record;
};

// Function-local statics: registration happens from other libraries' static
// initialisers, in an order this library does not control.
std::mutex& registryMutex() {
  static std::mutex m;
  return m;
}
std::vector<Entry>& registry() {
  static std::vector<Entry> entries;
  return entries;
}
int s_nextId = 0;
}  // namespace

SoModuleCheck::SoModuleCheck(const char* module, const char* className, int interfaceVersion) {
  std::lock_guard<std::mutex> lock(registryMutex());
  m_id = ++s_nextId;
  registry().push_back({m_id, {module ? module : "", className ? className : "", interfaceVersion}});
}

SoModuleCheck::~SoModuleCheck() {
  std::lock_guard<std::mutex> lock(registryMutex());
  auto& entries = registry();
  for (auto it = entries.begin(); it != entries.end(); ++it)
    if (it->id == m_id) {
      entries.erase(it);
      break;
    }
}

int SoModuleCheck::getInterfaceVersion() { return ORVEX_INTERFACE_VERSION; }

std::vector<SoModuleCheck::Record> SoModuleCheck::getRecords() {
  std::lock_guard<std::mutex> lock(registryMutex());
  std::vector<Record> out;
  for (const Entry& e : registry()) out.push_back(e.record);
  return out;
}

int SoModuleCheck::getNumRecords() {
  std::lock_guard<std::mutex> lock(registryMutex());
  return static_cast<int>(registry().size());
}

int SoModuleCheck::getNumRecords(const char* module) {
  std::lock_guard<std::mutex> lock(registryMutex());
  int n = 0;
  for (const Entry& e : registry())
    if (module && e.record.module == module) ++n;
  return n;
}

bool SoModuleCheck::isRegistered(const char* className) {
  std::lock_guard<std::mutex> lock(registryMutex());
  for (const Entry& e : registry())
    if (className && e.record.className == className) return true;
  return false;
}

int SoModuleCheck::check() {
  // Copy first: posting calls handlers, which must not run under the lock.
  const std::vector<Record> records = getRecords();
  int mismatches = 0;
  for (const Record& r : records) {
    if (r.interfaceVersion == getInterfaceVersion()) continue;
    ++mismatches;
    SoDebugError::post("SoModuleCheck::check", "%s of module %s was built against interface version %d, not %d",
                       r.className.c_str(), r.module.c_str(), r.interfaceVersion, getInterfaceVersion());
  }
  return mismatches;
}
