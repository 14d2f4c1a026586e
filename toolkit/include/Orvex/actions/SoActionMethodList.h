#pragma once
#include <Orvex/SoType.h>

#include <atomic>
#include <memory>
#include <vector>

class SoAction;
class SoNode;

// The function an action calls to traverse a node of a given class.
typedef void (*SoActionMethod)(SoAction* action, SoNode* node);

// The traversal functions of one action class, indexed by the action-method
// index of node classes (SoNode::getActionMethodIndex). A node class without
// its own function uses its parent class's; functions registered for the
// parent action class apply unless this class overrides them.
class SoActionMethodList {
 public:
  explicit SoActionMethodList(SoActionMethodList* parentList);

  void addMethod(SoType nodeType, SoActionMethod method);
  // Fills the table for every node class registered so far (done again
  // automatically after new node classes or methods appear).
  void setUp();
  // The function for the node class with that method index. Safe to call
  // from several threads at once, also while the table is being rebuilt.
  SoActionMethod operator[](int index);

 private:
  struct Entry {
    SoType nodeType;
    SoActionMethod method;
  };
  // One filled table; never changed once published.
  struct Table {
    std::vector<SoActionMethod> methods;
    int generation;
    int numTypes;
  };
  // The function registered for `type` here or in a parent list, or null.
  SoActionMethod findRegistered(SoType type) const;
  // Builds and publishes a table (caller holds the registration lock).
  const Table* setUpLocked();

  SoActionMethodList* m_parent;
  std::vector<Entry> m_registered;
  std::atomic<const Table*> m_current{nullptr};
  // Every table built: a traversal on another thread may still read an
  // older one. Tables are rebuilt only when classes or methods are added.
  std::vector<std::unique_ptr<const Table>> m_tables;
};
