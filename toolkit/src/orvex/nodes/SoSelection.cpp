#include <Orvex/nodes/SoSelection.h>

#include <Orvex/SoPath.h>
#include <Orvex/SoPickedPoint.h>
#include <Orvex/actions/SoHandleEventAction.h>
#include <Orvex/actions/SoSearchAction.h>
#include <Orvex/events/SoMouseButtonEvent.h>

#include <algorithm>

SO_NODE_SOURCE(SoSelection)

void SoSelection::setUpFields() {
  SO_NODE_CONSTRUCTOR(SoSelection);
  SO_NODE_DEFINE_ENUM_VALUE(Policy, SINGLE);
  SO_NODE_DEFINE_ENUM_VALUE(Policy, TOGGLE);
  SO_NODE_DEFINE_ENUM_VALUE(Policy, SHIFT);
  SO_NODE_ADD_FIELD(policy, (SHIFT));
  SO_NODE_SET_SF_ENUM_TYPE(policy, Policy);
}

SoSelection::SoSelection() { setUpFields(); }
SoSelection::SoSelection(int nChildren) : SoSeparator(nChildren) { setUpFields(); }

SoSelection::~SoSelection() {
  // The kept paths still refer to this node: their references are given
  // back first, with one more, so that letting them go cannot bring the
  // count to zero again while the node is being destroyed.
  ref();
  for (int i = 0; i < m_list.getLength(); ++i) ref();
  if (m_downPath) ref();
  m_list.truncate(0);
  if (m_downPath) m_downPath->unref();
  m_downPath = nullptr;
}

void SoSelection::hold(SoPath* path) {
  if (path && path->getHead() == this) unrefNoDelete();
}

void SoSelection::release(SoPath* path) {
  if (!path) return;
  if (path->getHead() == this) ref();
  path->unref();
}

void SoSelection::initClass() { SO_NODE_INIT_CLASS(SoSelection, SoSeparator, "Separator"); }

// ---- the list ---------------------------------------------------------------------------

SoPath* SoSelection::fromHere(const SoPath* path) const {
  if (!path) return nullptr;
  const int index = path->findNode(this);
  if (index < 0) return nullptr;
  return path->copy(index);
}

int SoSelection::findPath(const SoPath* path) const {
  if (!path) return -1;
  SoPath* own = fromHere(path);
  if (!own) return -1;
  own->ref();
  const int index = m_list.findPath(*own);
  own->unref();
  return index;
}

SoPath* SoSelection::getPath(int index) const {
  return index >= 0 && index < m_list.getLength() ? m_list[index] : nullptr;
}

namespace {
template <class List, class... Args>
void callEach(const List& list, Args... args) {
  const List copy = list;  // callbacks may change the registrations
  for (const auto& c : copy) c.function(c.data, args...);
}
}  // namespace

bool SoSelection::addPath(SoPath* path) {
  if (!path) return false;
  path->ref();
  const bool added = m_list.findPath(*path) < 0;
  if (added) {
    m_list.append(path);
    path->ref();  // the list's reference, held
    hold(path);
    path->unrefNoDelete();
    callEach(m_selectionCBs, path);
  }
  path->unref();
  return added;
}

bool SoSelection::removePath(int index) {
  if (index < 0 || index >= m_list.getLength()) return false;
  SoPath* path = m_list[index];
  path->ref();
  if (path->getHead() == this) ref();  // the list's reference comes back
  m_list.remove(index);
  callEach(m_deselectionCBs, path);
  path->unref();
  return true;
}

void SoSelection::listChanged() { callEach(m_changeCBs, this); }

void SoSelection::select(const SoPath* path) {
  if (addPath(fromHere(path))) listChanged();
}

namespace {
// The path from `root` to the first occurrence of `node` under it.
SoPath* pathTo(SoNode* root, SoNode* node) {
  if (!node) return nullptr;
  SoSearchAction search;
  search.setNode(node);
  search.setInterest(SoSearchAction::FIRST);
  search.setSearchingAll(true);
  search.apply(root);
  SoPath* found = search.getPath();
  return found ? found->copy() : nullptr;
}

// Holds a path (made elsewhere with no reference yet) for a scope.
struct PathRef {
  explicit PathRef(SoPath* p) : path(p) {
    if (path) path->ref();
  }
  ~PathRef() {
    if (path) path->unref();
  }
  PathRef(const PathRef&) = delete;
  PathRef& operator=(const PathRef&) = delete;
  SoPath* path;
};
}  // namespace

void SoSelection::select(SoNode* node) {
  PathRef p(pathTo(this, node));
  select(p.path);
}

void SoSelection::deselect(const SoPath* path) {
  if (removePath(findPath(path))) listChanged();
}

void SoSelection::deselect(int which) {
  if (removePath(which)) listChanged();
}

void SoSelection::deselect(SoNode* node) {
  PathRef p(pathTo(this, node));
  deselect(p.path);
}

void SoSelection::toggle(const SoPath* path) {
  const int index = findPath(path);
  if (index >= 0)
    deselect(index);
  else
    select(path);
}

void SoSelection::toggle(SoNode* node) {
  PathRef p(pathTo(this, node));
  toggle(p.path);
}

bool SoSelection::isSelected(const SoPath* path) const { return findPath(path) >= 0; }

bool SoSelection::isSelected(SoNode* node) const {
  PathRef p(pathTo(const_cast<SoSelection*>(this), node));
  return isSelected(p.path);
}

void SoSelection::deselectAll() {
  bool changed = false;
  while (m_list.getLength() > 0) changed = removePath(m_list.getLength() - 1) || changed;
  if (changed) listChanged();
}

// ---- callbacks --------------------------------------------------------------------------

namespace {
template <class List, class F>
void removeCallback(List& list, F* f, void* data) {
  auto it = std::find_if(list.begin(), list.end(), [&](const auto& c) { return c.function == f && c.data == data; });
  if (it != list.end()) list.erase(it);
}
}  // namespace

void SoSelection::addSelectionCallback(SoSelectionPathCB* f, void* d) { m_selectionCBs.push_back({f, d}); }
void SoSelection::removeSelectionCallback(SoSelectionPathCB* f, void* d) { removeCallback(m_selectionCBs, f, d); }
void SoSelection::addDeselectionCallback(SoSelectionPathCB* f, void* d) { m_deselectionCBs.push_back({f, d}); }
void SoSelection::removeDeselectionCallback(SoSelectionPathCB* f, void* d) { removeCallback(m_deselectionCBs, f, d); }
void SoSelection::addStartCallback(SoSelectionClassCB* f, void* d) { m_startCBs.push_back({f, d}); }
void SoSelection::removeStartCallback(SoSelectionClassCB* f, void* d) { removeCallback(m_startCBs, f, d); }
void SoSelection::addFinishCallback(SoSelectionClassCB* f, void* d) { m_finishCBs.push_back({f, d}); }
void SoSelection::removeFinishCallback(SoSelectionClassCB* f, void* d) { removeCallback(m_finishCBs, f, d); }
void SoSelection::addChangeCallback(SoSelectionClassCB* f, void* d) { m_changeCBs.push_back({f, d}); }
void SoSelection::removeChangeCallback(SoSelectionClassCB* f, void* d) { removeCallback(m_changeCBs, f, d); }

void SoSelection::setPickFilterCallback(SoSelectionPickCB* f, void* userData, bool callOnlyIfSelectable) {
  m_pickFilter = f;
  m_pickFilterData = userData;
  m_filterOnlyIfSelectable = callOnlyIfSelectable;
}

// ---- picking ----------------------------------------------------------------------------

SoPath* SoSelection::pickedPath(SoHandleEventAction* action) {
  const SoPickedPoint* pp = action->getPickedPoint();
  if (!pp) return nullptr;
  SoPath* path = nullptr;
  if (m_pickFilter && (!m_filterOnlyIfSelectable || pp->getPath()->containsNode(this))) {
    SoPath* filtered = m_pickFilter(m_pickFilterData, pp);
    if (!filtered) return nullptr;  // the filter refuses the pick
    filtered->ref();
    path = fromHere(filtered);
    filtered->unref();
  } else {
    path = fromHere(pp->getPath());
  }
  if (path) path->ref();
  return path;
}

void SoSelection::applyPolicy(SoPath* picked, bool shiftDown) {
  const int p = policy.getValue();
  const bool toggling = p == TOGGLE || (p == SHIFT && shiftDown);
  if (toggling) {
    if (!picked) return;  // nothing picked: nothing to toggle
    callEach(m_startCBs, this);
    const int index = m_list.findPath(*picked);
    if (index >= 0)
      removePath(index);
    else
      addPath(picked);
    listChanged();
    callEach(m_finishCBs, this);
    return;
  }
  // Single: the picked path alone, or nothing.
  const bool alreadyAlone = picked && m_list.getLength() == 1 && m_list.findPath(*picked) == 0;
  if (alreadyAlone || (!picked && m_list.getLength() == 0)) return;
  callEach(m_startCBs, this);
  bool changed = false;
  while (m_list.getLength() > 0) changed = removePath(m_list.getLength() - 1) || changed;
  if (picked) changed = addPath(picked) || changed;
  if (changed) listChanged();
  callEach(m_finishCBs, this);
}

void SoSelection::handleEvent(SoHandleEventAction* action) {
  // The children first: what they handle is not a selection.
  SoSeparator::handleEvent(action);
  if (action->isHandled()) return;
  const SoEvent* event = action->getEvent();
  if (SoMouseButtonEvent::isButtonPressEvent(event, SoMouseButtonEvent::BUTTON1)) {
    release(m_downPath);
    m_downPath = pickedPath(action);
    hold(m_downPath);
    m_buttonDown = true;
    return;
  }
  if (!SoMouseButtonEvent::isButtonReleaseEvent(event, SoMouseButtonEvent::BUTTON1) || !m_buttonDown) return;
  m_buttonDown = false;
  SoPath* picked = pickedPath(action);
  SoPath* down = m_downPath;
  m_downPath = nullptr;
  if (down && down->getHead() == this) ref();  // no longer held
  const bool matching = !m_pickMatching || (!picked && !down) || (picked && down && *picked == *down);
  if (matching) {
    applyPolicy(picked, event->wasShiftDown());
    action->setHandled();
  }
  if (picked) picked->unref();
  if (down) down->unref();
}
