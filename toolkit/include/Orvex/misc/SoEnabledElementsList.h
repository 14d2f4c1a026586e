#pragma once
#include <Orvex/SoType.h>

#include <utility>
#include <vector>

// The element types an action class uses, one per stack index. A class's
// list starts as a copy of its parent action's list.
class SoEnabledElementsList {
 public:
  explicit SoEnabledElementsList(SoEnabledElementsList* parentList);

  // The element types, with bad types at unused stack indices; refreshed
  // from the parent first.
  const SoTypeList& getElements() const;
  // Enables an element type at its stack index; a type derived from the one
  // already there replaces it.
  void enable(SoType elementType, int stackIndex);
  // Adds what another list enables.
  void merge(const SoEnabledElementsList& list);
  // Changes whenever any list of the process changes; a state built for an
  // older value is rebuilt.
  static int getCounter();

 private:
  SoEnabledElementsList* m_parent;
  std::vector<std::pair<SoType, int>> m_own;  // enabled here: type and stack index
  mutable SoTypeList m_elements;              // the parent's merged with m_own
  mutable int m_setUpCounter = -1;
  static int s_counter;
};
