#include <Orvex/misc/SoEnabledElementsList.h>

#include <mutex>

std::atomic<int> SoEnabledElementsList::s_counter{0};

namespace {
// Guards the entries of all lists and the building of snapshots (which
// reads the parent lists).
std::recursive_mutex s_mutex;

// Entries are kept as type keys by stack index; 0 (the bad type) is unused.
void put(SoTypeList& list, SoType type, int stackIndex) {
  while (list.getLength() <= stackIndex) list.append(SoType::badType());
  list.SbPList::set(stackIndex, reinterpret_cast<void*>(static_cast<uintptr_t>(type.getKey())));
}
}  // namespace

SoEnabledElementsList::SoEnabledElementsList(SoEnabledElementsList* parentList) : m_parent(parentList) {}

void SoEnabledElementsList::enable(SoType elementType, int stackIndex) {
  if (elementType.isBad() || stackIndex < 0) return;
  std::lock_guard<std::recursive_mutex> lock(s_mutex);
  // A more general type does not replace a more specific one.
  const SoType existing = typeAtLocked(stackIndex);
  if (!existing.isBad() && existing != elementType && existing.isDerivedFrom(elementType)) return;
  m_own.emplace_back(elementType, stackIndex);
  ++s_counter;
}

void SoEnabledElementsList::merge(const SoEnabledElementsList& list) {
  std::lock_guard<std::recursive_mutex> lock(s_mutex);
  const SoTypeList& other = list.getElementsLocked()->elements;
  for (int i = 0; i < other.getLength(); ++i)
    if (!other[i].isBad()) enable(other[i], i);
}

// The merged type at one stack index, worked out without building a
// snapshot (enabling many elements in a row would otherwise build one each).
SoType SoEnabledElementsList::typeAtLocked(int stackIndex) const {
  SoType type = m_parent ? m_parent->typeAtLocked(stackIndex) : SoType::badType();
  for (const auto& [own, index] : m_own)
    if (index == stackIndex && (type.isBad() || own.isDerivedFrom(type))) type = own;
  return type;
}

const SoTypeList& SoEnabledElementsList::getElements() const {
  const Snapshot* snapshot = m_current.load(std::memory_order_acquire);
  if (snapshot && snapshot->counter == s_counter.load(std::memory_order_relaxed)) return snapshot->elements;
  std::lock_guard<std::recursive_mutex> lock(s_mutex);
  return getElementsLocked()->elements;
}

const SoEnabledElementsList::Snapshot* SoEnabledElementsList::getElementsLocked() const {
  const int counter = s_counter.load();
  const Snapshot* current = m_current.load(std::memory_order_acquire);
  if (current && current->counter == counter) return current;
  auto snapshot = std::make_unique<Snapshot>();
  snapshot->counter = counter;
  SoTypeList& elements = snapshot->elements;
  if (m_parent) {
    const SoTypeList& parent = m_parent->getElementsLocked()->elements;
    for (int i = 0; i < parent.getLength(); ++i) put(elements, parent[i], i);
  }
  for (const auto& [type, index] : m_own) {
    const SoType existing = index < elements.getLength() ? elements[index] : SoType::badType();
    if (existing.isBad() || type.isDerivedFrom(existing)) put(elements, type, index);
  }
  const Snapshot* published = snapshot.get();
  m_snapshots.push_back(std::move(snapshot));
  m_current.store(published, std::memory_order_release);
  return published;
}

int SoEnabledElementsList::getCounter() { return s_counter.load(); }
