#pragma once
#include <Orvex/SbName.h>
#include <Orvex/SoPathList.h>
#include <Orvex/actions/SoSubAction.h>

class SoPath;

// Finds nodes in a graph by node, by type (optionally derived types too)
// and by name, or any combination: the first match, the last, or all of
// them. Each result is a path from the node the action was applied to.
// Switches are searched through the child they choose unless searching all.
class SoSearchAction : public SoAction {
  SO_ACTION_HEADER(SoSearchAction);

 public:
  enum LookFor { NODE = 0x01, TYPE = 0x02, NAME = 0x04 };
  enum Interest { FIRST, LAST, ALL };

  SoSearchAction();
  ~SoSearchAction() override;

  // Clears the criteria (to FIRST, nothing to look for) and the results.
  void reset();
  // Which criteria apply (a mask of LookFor); the setters below add theirs.
  void setFind(int what) { m_lookingFor = what; }
  int getFind() const { return m_lookingFor; }
  void setNode(SoNode* node);
  SoNode* getNode() const { return m_node; }
  void setType(SoType type, bool derivedIsOk = true);
  SoType getType(bool& derivedIsOk) const;
  void setName(const SbName& name);
  const SbName& getName() const { return m_name; }
  void setInterest(Interest interest) { m_interest = interest; }
  Interest getInterest() const { return m_interest; }
  // Searches every child of every switch, not only the chosen one.
  void setSearchingAll(bool flag) { m_searchingAll = flag; }
  bool isSearchingAll() const { return m_searchingAll; }

  // The path found (FIRST, LAST); nullptr when none. Owned by the action.
  SoPath* getPath() const { return m_path; }
  // The paths found (ALL).
  SoPathList& getPaths() { return m_paths; }

  // Whether a node meets the criteria.
  bool isMatch(const SoNode* node) const;
  // Records a result (the action takes a reference).
  void addPath(SoPath* path);
  bool isFound() const { return m_found; }
  void setFound() { m_found = true; }

 protected:
  void beginTraversal(SoNode* node) override;

 private:
  void clearResults();

  int m_lookingFor = 0;
  SoNode* m_node = nullptr;
  SoType m_type;
  bool m_derivedIsOk = true;
  SbName m_name;
  Interest m_interest = FIRST;
  bool m_searchingAll = false;
  bool m_found = false;
  SoPath* m_path = nullptr;
  SoPathList m_paths;
};
