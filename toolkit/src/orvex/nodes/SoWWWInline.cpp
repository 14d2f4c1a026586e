#include <Orvex/nodes/SoWWWInline.h>

#include <Orvex/SoInput.h>
#include <Orvex/actions/SoGetBoundingBoxAction.h>
#include <Orvex/actions/SoGetMatrixAction.h>
#include <Orvex/actions/SoSearchAction.h>
#include <Orvex/misc/SoState.h>

#include <mutex>
#include <string>

SO_NODE_SOURCE(SoWWWInline)

namespace {

// The process-wide settings of inline nodes.
struct InlineSettings {
  std::mutex mutex;
  SoWWWInlineFetchURLCB* fetch = nullptr;
  void* fetchData = nullptr;
  SoWWWInline::BboxVisibility visibility = SoWWWInline::UNTIL_LOADED;
  SbColor color = SbColor(1.0f, 1.0f, 1.0f);
};

InlineSettings& settings() {
  static InlineSettings* instance = new InlineSettings;  // nodes may outlive static destruction
  return *instance;
}

// `name` as seen from the file being read: relative names are taken from
// the file's directory; URLs with a scheme and absolute paths stay as given.
SbString resolveAgainst(const SoInput* in, const SbString& name) {
  const std::string& text = name.toStdString();
  if (text.empty() || text[0] == '/' || text.find("://") != std::string::npos) return name;
  const char* file = in ? in->getCurFileName() : nullptr;
  if (!file) return name;
  const std::string path(file);
  const size_t slash = path.rfind('/');
  if (slash == std::string::npos) return name;
  return SbString(path.substr(0, slash + 1) + text);
}

}  // namespace

SoWWWInline::SoWWWInline() : m_children(this, 1) {
  SO_NODE_CONSTRUCTOR(SoWWWInline);
  SO_NODE_ADD_FIELD(name, ("<Undefined file>"));
  SO_NODE_ADD_FIELD(bboxCenter, (0.0f, 0.0f, 0.0f));
  SO_NODE_ADD_FIELD(bboxSize, (0.0f, 0.0f, 0.0f));
}

SoWWWInline::~SoWWWInline() = default;

void SoWWWInline::initClass() { SO_NODE_INIT_CLASS(SoWWWInline, SoNode, "Node"); }

void SoWWWInline::setFullURLName(const SbString& url) {
  m_fullURLName = url;
  m_hasFullURLName = true;
}

SbString SoWWWInline::getFullURLName() const { return m_hasFullURLName ? m_fullURLName : name.getValue(); }

void SoWWWInline::setChildData(SoNode* data) {
  // Referenced first: the new data may hold the only other reference to the old.
  if (data) data->ref();
  m_children.truncate(0);
  if (data) {
    m_children.append(data);
    data->unref();
  }
  m_requested = false;
}

SoNode* SoWWWInline::getChildData() const { return m_children.getLength() > 0 ? m_children.get(0) : nullptr; }

SoNode* SoWWWInline::copyChildren() const {
  SoNode* data = getChildData();
  return data ? data->copy() : nullptr;
}

void SoWWWInline::requestURLData() {
  if (m_requested) return;
  SoWWWInlineFetchURLCB* fetch;
  void* fetchData;
  {
    InlineSettings& s = settings();
    std::lock_guard<std::mutex> lock(s.mutex);
    fetch = s.fetch;
    fetchData = s.fetchData;
  }
  if (!fetch) return;
  m_requested = true;
  // The function may drop the last reference to this node (replacing the
  // graph that holds it); keep a referenced node alive until the call is
  // over. An unreferenced one is left as it is, so that the guard itself
  // does not delete it.
  const bool guard = getRefCount() > 0;
  if (guard) ref();
  fetch(getFullURLName(), fetchData, this);
  if (guard) unref();
}

void SoWWWInline::setFetchURLCallBack(SoWWWInlineFetchURLCB* f, void* userData) {
  InlineSettings& s = settings();
  std::lock_guard<std::mutex> lock(s.mutex);
  s.fetch = f;
  s.fetchData = userData;
}

void SoWWWInline::setBoundingBoxVisibility(BboxVisibility v) {
  if (v != NEVER && v != UNTIL_LOADED && v != ALWAYS) return;  // a cast integer keeps the setting
  InlineSettings& s = settings();
  std::lock_guard<std::mutex> lock(s.mutex);
  s.visibility = v;
}

SoWWWInline::BboxVisibility SoWWWInline::getBoundingBoxVisibility() {
  InlineSettings& s = settings();
  std::lock_guard<std::mutex> lock(s.mutex);
  return s.visibility;
}

void SoWWWInline::setBoundingBoxColor(const SbColor& color) {
  InlineSettings& s = settings();
  std::lock_guard<std::mutex> lock(s.mutex);
  s.color = color;
}

SbColor SoWWWInline::getBoundingBoxColor() {
  InlineSettings& s = settings();
  std::lock_guard<std::mutex> lock(s.mutex);
  return s.color;
}

SbBox3f SoWWWInline::getDeclaredBox() const {
  const SbVec3f size = bboxSize.getValue();
  const bool declared = size[0] >= 0.0f && size[1] >= 0.0f && size[2] >= 0.0f &&
                        (size[0] > 0.0f || size[1] > 0.0f || size[2] > 0.0f);
  if (!declared) return SbBox3f();
  const SbVec3f half = size * 0.5f;
  const SbVec3f center = bboxCenter.getValue();
  return SbBox3f(center - half, center + half);
}

SoChildList* SoWWWInline::getChildren() const { return &m_children; }

void SoWWWInline::doAction(SoAction* action) {
  if (m_children.getLength() == 0) return;
  SoState* state = action->getState();
  if (state) state->push();
  int numIndices;
  const int* indices;
  if (action->getPathCode(numIndices, indices) == SoAction::IN_PATH)
    m_children.traverse(action, 0, indices[numIndices - 1]);
  else
    m_children.traverse(action);
  if (state) state->pop();
}

void SoWWWInline::search(SoSearchAction* action) {
  SoNode::search(action);
  if (action->isFound() && action->getInterest() == SoSearchAction::FIRST) return;
  doAction(action);
}

void SoWWWInline::getBoundingBox(SoGetBoundingBoxAction* action) {
  if (m_children.getLength() > 0) {
    doAction(action);
    return;
  }
  const SbBox3f box = getDeclaredBox();
  if (box.isEmpty()) return;
  action->extendBy(box);
  action->setCenter(bboxCenter.getValue(), true);
}

void SoWWWInline::getMatrix(SoGetMatrixAction* action) {
  int numIndices;
  const int* indices;
  if (action->getPathCode(numIndices, indices) == SoAction::IN_PATH)
    m_children.traverse(action, 0, indices[numIndices - 1]);
}

bool SoWWWInline::readInstance(SoInput* in, unsigned short flags) {
  if (!SoNode::readInstance(in, flags)) return false;
  setFullURLName(resolveAgainst(in, name.getValue()));
  requestURLData();
  return true;
}

void SoWWWInline::copyContents(const SoFieldContainer* from, bool copyConnections) {
  SoNode::copyContents(from, copyConnections);
  if (!from->isOfType(getClassTypeId())) return;  // only another SoWWWInline has more to copy
  const auto* source = static_cast<const SoWWWInline*>(from);
  m_fullURLName = source->m_fullURLName;
  m_hasFullURLName = source->m_hasFullURLName;
  m_requested = false;
  SoNode* data = source->getChildData();
  setChildData(data ? static_cast<SoNode*>(findCopy(data, copyConnections)) : nullptr);
}
