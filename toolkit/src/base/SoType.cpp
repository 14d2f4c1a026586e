#include <Orvex/SoType.h>

#include <Orvex/errors/SoDebugError.h>

#include <atomic>
#include <cstring>
#include <mutex>
#include <shared_mutex>
#include <unordered_map>
#include <vector>

namespace {

struct TypeEntry {
  SbName name;
  uint16_t parent = 0;
  SoType::instantiationMethod method = nullptr;
  short data = 0;
  bool internal = false;
};

// All registered types, indexed by key. Entry 0 is the bad type.
struct TypeRegistry {
  std::shared_mutex mutex;
  std::vector<TypeEntry> entries{TypeEntry{}};
  std::unordered_map<SbName, uint16_t> byName;
  std::atomic<SoType::UnknownNameCB*> unknownNameCB{nullptr};

  // Key of a registered name, or 0. Caller holds the lock.
  uint16_t lookup(const SbName& name) const {
    auto it = byName.find(name);
    return it == byName.end() ? 0 : it->second;
  }
};

TypeRegistry& registry() {
  // Never destroyed: types are queried by static destructors elsewhere.
  static TypeRegistry* instance = new TypeRegistry;
  return *instance;
}

constexpr size_t kMaxTypes = 0x10000;  // keys are 16 bits

}  // namespace

SoType SoType::createType(SoType parent, const SbName& name, instantiationMethod method, short data) {
  TypeRegistry& reg = registry();
  const char* problem = nullptr;
  uint16_t key = 0;
  {
    std::unique_lock<std::shared_mutex> lock(reg.mutex);
    if (!name) {
      problem = "An empty name cannot name a type";
    } else if (reg.lookup(name) != 0) {
      problem = "A type of that name already exists";
    } else if (reg.entries.size() >= kMaxTypes) {
      problem = "Too many types";
    } else if (parent.m_key >= reg.entries.size()) {
      problem = "The parent type does not exist";
    } else {
      key = static_cast<uint16_t>(reg.entries.size());
      reg.entries.push_back(TypeEntry{name, parent.m_key, method, data, false});
      reg.byName.emplace(name, key);
    }
  }
  // Posted outside the lock: handlers may query types.
  if (problem) {
    SoDebugError::post("SoType::createType", "%s: \"%s\"", problem, name.getString());
    return badType();
  }
  return SoType(key);
}

SoType SoType::overrideType(SoType oldType, instantiationMethod method) {
  TypeRegistry& reg = registry();
  std::unique_lock<std::shared_mutex> lock(reg.mutex);
  if (oldType.isBad() || oldType.m_key >= reg.entries.size()) return badType();
  reg.entries[oldType.m_key].method = method;
  return oldType;
}

SoType SoType::fromName(const SbName& name) {
  TypeRegistry& reg = registry();
  uint16_t key = 0;
  {
    std::shared_lock<std::shared_mutex> lock(reg.mutex);
    key = reg.lookup(name);
    // "SoCone" also finds a type registered as "Cone".
    const char* text = name.getString();
    if (key == 0 && std::strncmp(text, "So", 2) == 0 && text[2] != '\0') key = reg.lookup(SbName(text + 2));
  }
  if (key != 0) return SoType(key);
  if (!name) return badType();

  // The callback may register the type itself; it is called without the lock.
  UnknownNameCB* cb = reg.unknownNameCB.load();
  if (!cb) return badType();
  return fromKey(static_cast<uint16_t>(cb(name) & 0xFFFF));
}

SoType SoType::fromKey(uint16_t key) {
  TypeRegistry& reg = registry();
  std::shared_lock<std::shared_mutex> lock(reg.mutex);
  return key < reg.entries.size() ? SoType(key) : badType();
}

SoType::UnknownNameCB* SoType::setUnknownNameCB(UnknownNameCB* cb) {
  return registry().unknownNameCB.exchange(cb);
}

SoType::UnknownNameCB* SoType::getUnknownNameCB() { return registry().unknownNameCB.load(); }

int SoType::getNumTypes() {
  TypeRegistry& reg = registry();
  std::shared_lock<std::shared_mutex> lock(reg.mutex);
  return static_cast<int>(reg.entries.size());
}

int SoType::getAllDerivedFrom(SoType type, SoTypeList& list) {
  std::vector<SoType> found;
  {
    TypeRegistry& reg = registry();
    std::shared_lock<std::shared_mutex> lock(reg.mutex);
    if (type.isBad() || type.m_key >= reg.entries.size()) return 0;
    for (size_t k = 1; k < reg.entries.size(); ++k) {
      for (uint16_t t = static_cast<uint16_t>(k); t != 0; t = reg.entries[t].parent) {
        if (t == type.m_key) {
          found.push_back(SoType(static_cast<uint16_t>(k)));
          break;
        }
      }
    }
  }
  for (SoType t : found) list.append(t);
  return static_cast<int>(found.size());
}

SbName SoType::getName() const {
  TypeRegistry& reg = registry();
  std::shared_lock<std::shared_mutex> lock(reg.mutex);
  return m_key < reg.entries.size() ? reg.entries[m_key].name : SbName();
}

SoType SoType::getParent() const {
  TypeRegistry& reg = registry();
  std::shared_lock<std::shared_mutex> lock(reg.mutex);
  return m_key < reg.entries.size() ? SoType(reg.entries[m_key].parent) : badType();
}

bool SoType::isDerivedFrom(SoType t) const {
  if (t.isBad()) return false;
  TypeRegistry& reg = registry();
  std::shared_lock<std::shared_mutex> lock(reg.mutex);
  for (uint16_t k = m_key; k != 0 && k < reg.entries.size(); k = reg.entries[k].parent)
    if (k == t.m_key) return true;
  return false;
}

bool SoType::canCreateInstance() const {
  TypeRegistry& reg = registry();
  std::shared_lock<std::shared_mutex> lock(reg.mutex);
  return m_key < reg.entries.size() && reg.entries[m_key].method != nullptr;
}

void* SoType::createInstance() const {
  instantiationMethod method = nullptr;
  {
    TypeRegistry& reg = registry();
    std::shared_lock<std::shared_mutex> lock(reg.mutex);
    if (m_key < reg.entries.size()) method = reg.entries[m_key].method;
  }
  return method ? method() : nullptr;
}

short SoType::getData() const {
  TypeRegistry& reg = registry();
  std::shared_lock<std::shared_mutex> lock(reg.mutex);
  return m_key < reg.entries.size() ? reg.entries[m_key].data : 0;
}

void SoType::makeInternal() {
  TypeRegistry& reg = registry();
  std::unique_lock<std::shared_mutex> lock(reg.mutex);
  if (m_key != 0 && m_key < reg.entries.size()) reg.entries[m_key].internal = true;
}

bool SoType::isInternal() const {
  TypeRegistry& reg = registry();
  std::shared_lock<std::shared_mutex> lock(reg.mutex);
  return m_key < reg.entries.size() && reg.entries[m_key].internal;
}
