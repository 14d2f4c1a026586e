#include <Orvex/nodes/SoWWWAnchor.h>

#include <Orvex/SoPath.h>
#include <Orvex/SoPickedPoint.h>
#include <Orvex/actions/SoHandleEventAction.h>
#include <Orvex/events/SoLocation2Event.h>
#include <Orvex/events/SoMouseButtonEvent.h>

#include <mutex>

SO_NODE_SOURCE(SoWWWAnchor)

namespace {

struct AnchorCallback {
  SoWWWAnchorCB* function = nullptr;
  void* data = nullptr;
};

// The process-wide functions of anchors.
struct AnchorSettings {
  std::mutex mutex;
  AnchorCallback fetch;
  AnchorCallback highlight;
};

AnchorSettings& settings() {
  static AnchorSettings* instance = new AnchorSettings;  // nodes may outlive static destruction
  return *instance;
}

AnchorCallback current(AnchorCallback AnchorSettings::*which) {
  AnchorSettings& s = settings();
  std::lock_guard<std::mutex> lock(s.mutex);
  return s.*which;
}

void install(AnchorCallback AnchorSettings::*which, SoWWWAnchorCB* f, void* userData) {
  AnchorSettings& s = settings();
  std::lock_guard<std::mutex> lock(s.mutex);
  s.*which = AnchorCallback{f, userData};
}

}  // namespace

void SoWWWAnchor::setUpFields() {
  SO_NODE_CONSTRUCTOR(SoWWWAnchor);
  SO_NODE_ADD_FIELD(name, ("<Undefined URL>"));
  SO_NODE_ADD_FIELD(description, (""));
  SO_NODE_DEFINE_ENUM_VALUE(Mapping, NONE);
  SO_NODE_DEFINE_ENUM_VALUE(Mapping, POINT);
  SO_NODE_ADD_FIELD(map, (NONE));
  SO_NODE_SET_SF_ENUM_TYPE(map, Mapping);
}

SoWWWAnchor::SoWWWAnchor() { setUpFields(); }
SoWWWAnchor::SoWWWAnchor(int nChildren) : SoSeparator(nChildren) { setUpFields(); }
SoWWWAnchor::~SoWWWAnchor() = default;

void SoWWWAnchor::initClass() { SO_NODE_INIT_CLASS(SoWWWAnchor, SoSeparator, "Separator"); }

void SoWWWAnchor::setFullURLName(const SbString& url) {
  m_fullURLName = url;
  m_hasFullURLName = true;
}

SbString SoWWWAnchor::getFullURLName() const { return m_hasFullURLName ? m_fullURLName : name.getValue(); }

void SoWWWAnchor::setFetchURLCallBack(SoWWWAnchorCB* f, void* userData) { install(&AnchorSettings::fetch, f, userData); }

void SoWWWAnchor::setHighlightURLCallBack(SoWWWAnchorCB* f, void* userData) {
  install(&AnchorSettings::highlight, f, userData);
}

bool SoWWWAnchor::isUnderCursor(SoHandleEventAction* action) const {
  const SoPickedPoint* pp = action->getPickedPoint();
  return pp && pp->getPath() && pp->getPath()->containsNode(this);
}

void SoWWWAnchor::handleEvent(SoHandleEventAction* action) {
  SoSeparator::handleEvent(action);
  if (action->isHandled()) return;
  const SoEvent* event = action->getEvent();
  if (!event) return;
  // A function may drop the last reference to this node.
  ref();
  if (SoMouseButtonEvent::isButtonPressEvent(event, SoMouseButtonEvent::BUTTON1)) {
    if (isUnderCursor(action)) {
      SbString url = getFullURLName();
      if (map.getValue() == POINT) {
        const SbVec3f p = action->getPickedPoint()->getObjectPoint(this);
        url += SbString::sprintf("?%g,%g,%g", p[0], p[1], p[2]);
      }
      action->setHandled();
      const AnchorCallback fetch = current(&AnchorSettings::fetch);
      if (fetch.function) fetch.function(url, fetch.data, this);
    }
  } else if (event->isOfType(SoLocation2Event::getClassTypeId())) {
    const bool over = isUnderCursor(action);
    if (over != m_highlighted) {
      m_highlighted = over;
      const AnchorCallback highlight = current(&AnchorSettings::highlight);
      if (highlight.function) highlight.function(over ? getFullURLName() : SbString(), highlight.data, this);
    }
  }
  unref();
}

void SoWWWAnchor::copyContents(const SoFieldContainer* from, bool copyConnections) {
  SoSeparator::copyContents(from, copyConnections);
  if (!from->isOfType(getClassTypeId())) return;  // only another SoWWWAnchor has more to copy
  const auto* source = static_cast<const SoWWWAnchor*>(from);
  m_fullURLName = source->m_fullURLName;
  m_hasFullURLName = source->m_hasFullURLName;
}
