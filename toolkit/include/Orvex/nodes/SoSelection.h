#pragma once
#include <Orvex/SoPathList.h>
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/nodes/SoSeparator.h>

#include <vector>

class SoPath;
class SoPickedPoint;
class SoSelection;

typedef void SoSelectionPathCB(void* userData, SoPath* path);
typedef void SoSelectionClassCB(void* userData, SoSelection* selection);
typedef SoPath* SoSelectionPickCB(void* userData, const SoPickedPoint* pick);

// A separator that keeps a list of selected paths (each from the selection
// node down), changed by the program or by the user picking with the
// first mouse button: SINGLE keeps at most one path (picking nothing clears
// the list), TOGGLE adds or removes what is picked, SHIFT toggles while
// shift is held and otherwise acts as SINGLE. Callbacks tell of every path
// selected or deselected and of every change of the list; start and finish
// callbacks bracket the changes a pick makes. A pick filter may replace the
// picked path (or refuse the pick by answering null).
class SoSelection : public SoSeparator {
  SO_NODE_HEADER(SoSelection);

 public:
  enum Policy { SINGLE, TOGGLE, SHIFT };

  SoSFEnum policy;

  SoSelection();
  explicit SoSelection(int nChildren);

  // Paths must pass through this node; they are kept from it down. A node
  // stands for the path to its first occurrence under this node.
  void select(const SoPath* path);
  void select(SoNode* node);
  void deselect(const SoPath* path);
  void deselect(int which);
  void deselect(SoNode* node);
  void toggle(const SoPath* path);
  void toggle(SoNode* node);
  bool isSelected(const SoPath* path) const;
  bool isSelected(SoNode* node) const;
  void deselectAll();
  int getNumSelected() const { return m_list.getLength(); }
  const SoPathList* getList() const { return &m_list; }
  SoPath* getPath(int index) const;
  SoPath* operator[](int index) const { return getPath(index); }

  void addSelectionCallback(SoSelectionPathCB* f, void* userData = nullptr);
  void removeSelectionCallback(SoSelectionPathCB* f, void* userData = nullptr);
  void addDeselectionCallback(SoSelectionPathCB* f, void* userData = nullptr);
  void removeDeselectionCallback(SoSelectionPathCB* f, void* userData = nullptr);
  void addStartCallback(SoSelectionClassCB* f, void* userData = nullptr);
  void removeStartCallback(SoSelectionClassCB* f, void* userData = nullptr);
  void addFinishCallback(SoSelectionClassCB* f, void* userData = nullptr);
  void removeFinishCallback(SoSelectionClassCB* f, void* userData = nullptr);
  void addChangeCallback(SoSelectionClassCB* f, void* userData = nullptr);
  void removeChangeCallback(SoSelectionClassCB* f, void* userData = nullptr);
  // With callOnlyIfSelectable the filter sees only picks under this node.
  void setPickFilterCallback(SoSelectionPickCB* f, void* userData = nullptr, bool callOnlyIfSelectable = true);
  // With pick matching, a pick counts only when the button goes down and
  // up over the same path.
  void setPickMatching(bool pickTwice) { m_pickMatching = pickTwice; }
  bool isPickMatching() const { return m_pickMatching; }
  bool getPickMatching() const { return m_pickMatching; }

  void handleEvent(SoHandleEventAction* action) override;

 protected:
  ~SoSelection() override;

 private:
  template <class F>
  struct Callback {
    F* function;
    void* data;
  };
  void setUpFields();
  // The path from this node, or null when `path` does not pass through it.
  SoPath* fromHere(const SoPath* path) const;
  int findPath(const SoPath* path) const;
  // The list operations; each answers whether the list changed.
  bool addPath(SoPath* path);
  bool removePath(int index);
  void listChanged();
  // What the user picked (after the filter), from this node; referenced.
  SoPath* pickedPath(SoHandleEventAction* action);
  void applyPolicy(SoPath* picked, bool shiftDown);
  // The paths the selection keeps begin at the selection itself, so each
  // holds a reference to it; those references are not counted (else the
  // selection would keep itself alive). hold() takes a referenced path,
  // release() gives the reference back.
  void hold(SoPath* path);
  void release(SoPath* path);

  SoPathList m_list;
  std::vector<Callback<SoSelectionPathCB>> m_selectionCBs;
  std::vector<Callback<SoSelectionPathCB>> m_deselectionCBs;
  std::vector<Callback<SoSelectionClassCB>> m_startCBs;
  std::vector<Callback<SoSelectionClassCB>> m_finishCBs;
  std::vector<Callback<SoSelectionClassCB>> m_changeCBs;
  SoSelectionPickCB* m_pickFilter = nullptr;
  void* m_pickFilterData = nullptr;
  bool m_filterOnlyIfSelectable = true;
  bool m_pickMatching = true;
  SoPath* m_downPath = nullptr;  // picked when the button went down
  bool m_buttonDown = false;
};
