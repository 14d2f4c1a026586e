#include <Orvex/misc/SoBase.h>

#include <Orvex/errors/SoDebugError.h>
#include <Orvex/misc/SoBaseList.h>

#include <algorithm>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace {

SoType s_baseType;

// Who carries which name. Objects of one name are kept in the order in
// which they received it.
struct NameRegistry {
  std::mutex mutex;
  std::unordered_map<const SoBase*, SbName> nameOf;
  std::unordered_map<SbName, std::vector<SoBase*>> byName;

  // Caller holds the lock.
  void forget(const SoBase* object) {
    auto it = nameOf.find(object);
    if (it == nameOf.end()) return;
    auto& bearers = byName[it->second];
    bearers.erase(std::remove(bearers.begin(), bearers.end(), object), bearers.end());
    if (bearers.empty()) byName.erase(it->second);
    nameOf.erase(it);
  }
};

NameRegistry& names() {
  // Never destroyed: objects may be deleted by static destructors.
  static NameRegistry* instance = new NameRegistry;
  return *instance;
}

// Names must be readable back from scene files: characters that would end a
// name there are replaced by '_'.
SbName sanitised(const SbName& name) {
  std::string text(name.getString());
  bool changed = false;
  for (size_t i = 0; i < text.size(); ++i) {
    const bool ok = i == 0 ? SbName::isBaseNameStartChar(text[i]) : SbName::isBaseNameChar(text[i]);
    if (!ok) {
      text[i] = '_';
      changed = true;
    }
  }
  if (!changed) return name;
  SoDebugError::postWarning("SoBase::setName", "Bad characters in name \"%s\"; using \"%s\"",
                            name.getString(), text.c_str());
  return SbName(text);
}

}  // namespace

SoBase::SoBase() = default;

SoBase::~SoBase() {
  if (!m_named.load(std::memory_order_relaxed)) return;
  NameRegistry& reg = names();
  std::lock_guard<std::mutex> lock(reg.mutex);
  reg.forget(this);
}

SoType SoBase::getClassTypeId() { return s_baseType; }

void SoBase::initClass() {
  SoTypedObject::initClass();
  if (s_baseType.isBad()) s_baseType = SoType::createType(SoTypedObject::getClassTypeId(), "Base");
}

SbName SoBase::getName() const {
  // One empty name for all: making an SbName looks up the name table.
  static const SbName noName;
  if (!m_named.load(std::memory_order_relaxed)) return noName;
  NameRegistry& reg = names();
  std::lock_guard<std::mutex> lock(reg.mutex);
  auto it = reg.nameOf.find(this);
  return it == reg.nameOf.end() ? SbName() : it->second;
}

void SoBase::setName(const SbName& name) {
  const SbName newName = !name ? name : sanitised(name);
  NameRegistry& reg = names();
  std::lock_guard<std::mutex> lock(reg.mutex);
  reg.forget(this);
  m_named = !!newName;
  if (!newName) return;
  reg.nameOf.emplace(this, newName);
  reg.byName[newName].push_back(this);
}

SoBase* SoBase::getNamedBase(const SbName& name, SoType type) {
  NameRegistry& reg = names();
  std::lock_guard<std::mutex> lock(reg.mutex);
  auto it = reg.byName.find(name);
  if (it == reg.byName.end()) return nullptr;
  for (auto obj = it->second.rbegin(); obj != it->second.rend(); ++obj)
    if ((*obj)->isOfType(type)) return *obj;
  return nullptr;
}

int SoBase::getNamedBases(const SbName& name, SoBaseList& result, SoType type) {
  std::vector<SoBase*> found;
  {
    NameRegistry& reg = names();
    std::lock_guard<std::mutex> lock(reg.mutex);
    auto it = reg.byName.find(name);
    if (it == reg.byName.end()) return 0;
    for (SoBase* obj : it->second)
      if (obj->isOfType(type)) found.push_back(obj);
  }
  // Appended outside the lock: a referencing list calls ref().
  for (SoBase* obj : found) result.append(obj);
  return static_cast<int>(found.size());
}

const char* SoBase::getFileFormatName() const { return getTypeId().getName().getString(); }

void SoBase::touch() {
  SoNotList list;
  SoNotRec rec(this);
  list.append(&rec);
  notify(&list);
}

void SoBase::addAuditor(void* auditor, SoNotRec::Type type) { m_auditors.append(auditor, type); }

void SoBase::removeAuditor(void* auditor, SoNotRec::Type type) { m_auditors.remove(auditor, type); }

void SoBase::notify(SoNotList* list) {
  if (m_notifying) return;
  if (m_auditors.getLength() == 0) return;
  m_notifying = true;
  m_auditors.notify(list);
  m_notifying = false;
}

void SoBase::destroy() {
  m_auditors.notifyDying(this);
  delete this;
}
