#pragma once
#include <Orvex/SoType.h>

#include <atomic>
#include <memory>
#include <utility>
#include <vector>

// The element types an action class uses, one per stack index. A class's
// list starts as a copy of its parent action's list.
class SoEnabledElementsList {
 public:
  explicit SoEnabledElementsList(SoEnabledElementsList* parentList);

  // The element types, with bad types at unused stack indices; refreshed
  // from the parent first. The list returned is never changed afterwards,
  // so actions on other threads may use it while elements are enabled.
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
  // The parent's types merged with m_own, as of one counter value.
  struct Snapshot {
    SoTypeList elements;
    int counter;
  };
  // Builds and publishes a snapshot (caller holds the registration lock).
  const Snapshot* getElementsLocked() const;
  // The merged type at one stack index (caller holds the lock).
  SoType typeAtLocked(int stackIndex) const;

  SoEnabledElementsList* m_parent;
  std::vector<std::pair<SoType, int>> m_own;  // enabled here: type and stack index
  mutable std::atomic<const Snapshot*> m_current{nullptr};
  // Every snapshot built, kept for states that still read an older one;
  // rebuilt only when an element is enabled somewhere.
  mutable std::vector<std::unique_ptr<const Snapshot>> m_snapshots;
  static std::atomic<int> s_counter;
};
