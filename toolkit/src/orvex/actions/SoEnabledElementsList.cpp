#include <Orvex/misc/SoEnabledElementsList.h>

int SoEnabledElementsList::s_counter = 0;

SoEnabledElementsList::SoEnabledElementsList(SoEnabledElementsList* parentList) : m_parent(parentList) {}

namespace {
// Entries are kept as type keys by stack index; 0 (the bad type) is unused.
void put(SoTypeList& list, SoType type, int stackIndex) {
  while (list.getLength() <= stackIndex) list.append(SoType::badType());
  list.SbPList::set(stackIndex, reinterpret_cast<void*>(static_cast<uintptr_t>(type.getKey())));
}
}  // namespace

void SoEnabledElementsList::enable(SoType elementType, int stackIndex) {
  if (elementType.isBad() || stackIndex < 0) return;
  // m_elements holds this list's own entries merged over the parent's; the
  // own entries are kept apart in m_own by re-enabling on rebuild.
  const SoTypeList& current = getElements();
  if (stackIndex < current.getLength()) {
    const SoType existing = current[stackIndex];
    // A more general type does not replace a more specific one.
    if (!existing.isBad() && existing != elementType && existing.isDerivedFrom(elementType)) return;
  }
  m_own.emplace_back(elementType, stackIndex);
  ++s_counter;
}

void SoEnabledElementsList::merge(const SoEnabledElementsList& list) {
  const SoTypeList& other = list.getElements();
  for (int i = 0; i < other.getLength(); ++i)
    if (!other[i].isBad()) enable(other[i], i);
}

const SoTypeList& SoEnabledElementsList::getElements() const {
  if (m_setUpCounter == s_counter) return m_elements;
  m_elements.truncate(0);
  if (m_parent) {
    const SoTypeList& parent = m_parent->getElements();
    for (int i = 0; i < parent.getLength(); ++i) put(m_elements, parent[i], i);
  }
  for (const auto& [type, index] : m_own) {
    const SoType existing = index < m_elements.getLength() ? m_elements[index] : SoType::badType();
    if (existing.isBad() || type.isDerivedFrom(existing)) put(m_elements, type, index);
  }
  m_setUpCounter = s_counter;
  return m_elements;
}

int SoEnabledElementsList::getCounter() { return s_counter; }
