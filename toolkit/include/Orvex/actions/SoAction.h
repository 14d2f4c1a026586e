#pragma once
#include <Orvex/SoTypedObject.h>
#include <Orvex/actions/SoActionMethodList.h>
#include <Orvex/misc/SoEnabledElementsList.h>

#include <memory>
#include <vector>

class SoNode;
class SoPath;
class SoPathList;
class SoState;

// Base of the actions: an operation applied to a scene graph (a node), a
// path or a list of paths, by traversing it. The traversal calls, for each
// node, the function the action class registered for the node's class
// (SO_ACTION_ADD_METHOD), keeps the current path from the root to the node
// being traversed, and maintains a state of elements.
class SoAction : public SoTypedObject {
 public:
  enum AppliedCode { NODE, PATH, PATH_LIST };
  // Where the current node stands relative to the path the action was
  // applied to: NO_PATH when applied to a node; IN_PATH on the path before
  // its tail; BELOW_PATH at or under the tail; OFF_PATH elsewhere (a node
  // left of the path, traversed only for its effect on the state).
  enum PathCode { NO_PATH, IN_PATH, BELOW_PATH, OFF_PATH };

  ~SoAction() override;
  SoAction(const SoAction&) = delete;
  SoAction& operator=(const SoAction&) = delete;

  static SoType getClassTypeId();
  static void initClass();
  // Every action class of the toolkit.
  static void initClasses();

  virtual void apply(SoNode* node);
  virtual void apply(SoPath* path);
  // Applies to each path in turn. With obeysRules the caller promises the
  // paths are sorted and share their head; they are traversed the same way.
  virtual void apply(const SoPathList& pathList, bool obeysRules = false);
  // Forgets the state, so that the next application builds a new one.
  virtual void invalidateState();

  // A traversal function that does nothing.
  static void nullAction(SoAction* action, SoNode* node);

  AppliedCode getWhatAppliedTo() const { return m_appliedCode; }
  SoNode* getNodeAppliedTo() const { return m_appliedNode; }
  SoPath* getPathAppliedTo() const { return m_appliedPath; }
  const SoPathList* getPathListAppliedTo() const { return m_appliedPathList; }
  const SoPathList* getOriginalPathListAppliedTo() const { return m_appliedPathList; }
  bool isLastPathListAppliedTo() const { return m_lastPathListPath; }

  // The path code at the current node; for IN_PATH, the indices of the
  // children of the current node that lie on the path.
  PathCode getPathCode(int& numIndices, const int*& indices);
  PathCode getCurPathCode() const { return m_curPathCode; }

  // Traverses a node with this action (the node's registered function).
  void traverse(SoNode* node);
  bool hasTerminated() const { return m_terminated; }
  // A path from the node the action was applied to down to the current node.
  const SoPath* getCurPath();
  SoNode* getCurPathTail() const;
  int getCurPathLength() const { return static_cast<int>(m_curNodes.size()); }

  // Extends the current path by a child of the current node, and back.
  void pushCurPath(int childIndex, SoNode* node = nullptr);
  void popCurPath(PathCode prevPathCode);
  void popCurPath();

  SoState* getState() const { return m_state.get(); }
  bool isBeingApplied() const { return m_isBeingApplied; }
  // Ends the whole traversal (a search that found what it wanted).
  void setTerminated(bool flag) { m_terminated = flag; }
  // Skips the remaining siblings of the node being traversed.
  void stopActionInBranch() { m_stopBranch = true; }
  bool isActionStoppedInBranch() const { return m_stopBranch; }
  void resetStopActionInBranch() { m_stopBranch = false; }

  virtual const SoEnabledElementsList& getEnabledElements() const;
  static SoEnabledElementsList* getClassEnabledElements();
  static SoActionMethodList* getClassActionMethods();
  static void enableElement(SoType elementType, int stackIndex);

 protected:
  SoAction();
  // Runs the traversal from the node the action was applied to.
  virtual void beginTraversal(SoNode* node);
  virtual void endTraversal(SoNode* node) {}
  // Makes the state (again) if it is missing or out of date.
  void setUpState();

  // The traversal functions of the concrete class; set by its constructor.
  SoActionMethodList* traversalMethods = nullptr;

 private:
  void applyToPath(SoPath* path);
  void releaseCurPath();

  AppliedCode m_appliedCode = NODE;
  SoNode* m_appliedNode = nullptr;
  SoPath* m_appliedPath = nullptr;
  const SoPathList* m_appliedPathList = nullptr;
  bool m_lastPathListPath = false;
  bool m_isBeingApplied = false;
  bool m_terminated = false;
  bool m_stopBranch = false;
  PathCode m_curPathCode = NO_PATH;
  std::vector<SoNode*> m_curNodes;       // current path: nodes
  std::vector<int> m_curIndices;         // and child indices (first unused)
  std::vector<PathCode> m_codeStack;     // path codes pushed by pushCurPath
  SoPath* m_curPathCache = nullptr;      // built by getCurPath()
  int m_pathIndex = -1;                  // what getPathCode() points to
  bool m_curPathDirty = true;
  std::unique_ptr<SoState> m_state;
  int m_stateCounter = -1;
};
