#include <Orvex/actions/SoActionMethodList.h>

#include <Orvex/nodes/SoNode.h>

#include <algorithm>

namespace {
// Bumped by every addMethod of any list: tables built before are stale,
// since a method added to a parent action's list reaches its children.
int s_generation = 0;
}  // namespace

SoActionMethodList::SoActionMethodList(SoActionMethodList* parentList) : m_parent(parentList) {}

void SoActionMethodList::addMethod(SoType nodeType, SoActionMethod method) {
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
  SoTypeList nodeTypes;
  SoType::getAllDerivedFrom(SoNode::getClassTypeId(), nodeTypes);
  int maxIndex = SoNode::getNextActionMethodIndex();
  for (int i = 0; i < nodeTypes.getLength(); ++i) maxIndex = std::max(maxIndex, SoNode::getActionMethodIndex(nodeTypes[i]) + 1);
  m_table.assign(static_cast<size_t>(maxIndex), nullptr);
  for (int i = 0; i < nodeTypes.getLength(); ++i) {
    const SoType t = nodeTypes[i];
    const int index = SoNode::getActionMethodIndex(t);
    if (index >= 0) m_table[static_cast<size_t>(index)] = findRegistered(t);
  }
  m_generation = s_generation;
  m_numTypesSetUp = SoType::getNumTypes();
}

SoActionMethod SoActionMethodList::operator[](int index) {
  if (m_generation != s_generation || index < 0 || static_cast<size_t>(index) >= m_table.size()) setUp();
  if (index < 0 || static_cast<size_t>(index) >= m_table.size()) return nullptr;
  return m_table[static_cast<size_t>(index)];
}
