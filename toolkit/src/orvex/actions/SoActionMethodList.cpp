#include <Orvex/actions/SoActionMethodList.h>

#include <Orvex/nodes/SoNode.h>

#include <algorithm>
#include <mutex>

namespace {
// Bumped by every addMethod of any list: tables built before are stale,
// since a method added to a parent action's list reaches its children.
std::atomic<int> s_generation{0};
// Guards the registrations of all lists and the building of tables (which
// reads the parent lists' registrations).
std::mutex s_mutex;
}  // namespace

SoActionMethodList::SoActionMethodList(SoActionMethodList* parentList) : m_parent(parentList) {}

void SoActionMethodList::addMethod(SoType nodeType, SoActionMethod method) {
  std::lock_guard<std::mutex> lock(s_mutex);
  for (Entry& e : m_registered) {
    if (e.nodeType == nodeType) {
      e.method = method;
      ++s_generation;
      return;
    }
  }
  m_registered.push_back(Entry{nodeType, method});
  ++s_generation;
}

SoActionMethod SoActionMethodList::findRegistered(SoType type) const {
  // The closest node class first; at each class this list, then the
  // parent action's.
  for (SoType t = type; !t.isBad(); t = t.getParent()) {
    for (const SoActionMethodList* list = this; list; list = list->m_parent)
      for (const Entry& e : list->m_registered)
        if (e.nodeType == t) return e.method;
  }
  return nullptr;
}

void SoActionMethodList::setUp() {
  std::lock_guard<std::mutex> lock(s_mutex);
  setUpLocked();
}

const SoActionMethodList::Table* SoActionMethodList::setUpLocked() {
  auto table = std::make_unique<Table>();
  table->generation = s_generation.load();
  table->numTypes = SoType::getNumTypes();
  SoTypeList nodeTypes;
  SoType::getAllDerivedFrom(SoNode::getClassTypeId(), nodeTypes);
  int maxIndex = SoNode::getNextActionMethodIndex();
  for (int i = 0; i < nodeTypes.getLength(); ++i) maxIndex = std::max(maxIndex, SoNode::getActionMethodIndex(nodeTypes[i]) + 1);
  table->methods.assign(static_cast<size_t>(maxIndex), nullptr);
  for (int i = 0; i < nodeTypes.getLength(); ++i) {
    const SoType t = nodeTypes[i];
    const int index = SoNode::getActionMethodIndex(t);
    if (index >= 0) table->methods[static_cast<size_t>(index)] = findRegistered(t);
  }
  const Table* published = table.get();
  m_tables.push_back(std::move(table));
  m_current.store(published, std::memory_order_release);
  return published;
}

SoActionMethod SoActionMethodList::operator[](int index) {
  if (index < 0) return nullptr;
  const Table* table = m_current.load(std::memory_order_acquire);
  const auto fits = [index](const Table* t) { return static_cast<size_t>(index) < t->methods.size(); };
  // Stale after a new method, or too short after a new node class; an index
  // that no class has does not rebuild again and again.
  if (!table || table->generation != s_generation.load(std::memory_order_relaxed) ||
      (!fits(table) && table->numTypes != SoType::getNumTypes())) {
    std::lock_guard<std::mutex> lock(s_mutex);
    table = m_current.load(std::memory_order_acquire);
    if (!table || table->generation != s_generation.load() ||
        (!fits(table) && table->numTypes != SoType::getNumTypes()))
      table = setUpLocked();
  }
  return fits(table) ? table->methods[static_cast<size_t>(index)] : nullptr;
}
