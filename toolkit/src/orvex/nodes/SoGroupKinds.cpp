// The groups that change how their children are traversed: separators,
// switches and transform separators.

#include <Orvex/SoOutput.h>
#include <Orvex/actions/SoSearchAction.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/elements/SoModelMatrixElement.h>
#include <Orvex/elements/SoSwitchElement.h>
#include <Orvex/misc/SoState.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoSwitch.h>
#include <Orvex/nodes/SoTransformSeparator.h>

#include <atomic>

// ---- SoSeparator -------------------------------------------------------------------

namespace {
std::atomic<int> s_numRenderCaches{2};
}

SO_NODE_SOURCE(SoSeparator)

void SoSeparator::setUpFields() {
  SO_NODE_CONSTRUCTOR(SoSeparator);
  SO_NODE_DEFINE_ENUM_VALUE(CacheEnabled, OFF);
  SO_NODE_DEFINE_ENUM_VALUE(CacheEnabled, ON);
  SO_NODE_DEFINE_ENUM_VALUE(CacheEnabled, AUTO);
  SO_NODE_ADD_FIELD(renderCaching, (AUTO));
  SO_NODE_ADD_FIELD(boundingBoxCaching, (AUTO));
  SO_NODE_ADD_FIELD(renderCulling, (AUTO));
  SO_NODE_ADD_FIELD(pickCulling, (AUTO));
  SO_NODE_SET_SF_ENUM_TYPE(renderCaching, CacheEnabled);
  SO_NODE_SET_SF_ENUM_TYPE(boundingBoxCaching, CacheEnabled);
  SO_NODE_SET_SF_ENUM_TYPE(renderCulling, CacheEnabled);
  SO_NODE_SET_SF_ENUM_TYPE(pickCulling, CacheEnabled);
}

SoSeparator::SoSeparator() { setUpFields(); }
SoSeparator::SoSeparator(int nChildren) : SoGroup(nChildren) { setUpFields(); }
SoSeparator::~SoSeparator() = default;

void SoSeparator::initClass() { SO_NODE_INIT_CLASS(SoSeparator, SoGroup, "Group"); }

void SoSeparator::setNumRenderCaches(int howMany) { s_numRenderCaches = howMany < 0 ? 0 : howMany; }
int SoSeparator::getNumRenderCaches() { return s_numRenderCaches; }

bool SoSeparator::affectsState() const { return false; }

void SoSeparator::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (state) state->push();
  SoGroup::doAction(action);
  if (state) state->pop();
}

void SoSeparator::search(SoSearchAction* action) {
  SoNode::search(action);
  if (action->isFound() && action->getInterest() == SoSearchAction::FIRST) return;
  doAction(action);
}

// ---- SoSwitch ----------------------------------------------------------------------

SO_NODE_SOURCE(SoSwitch)

SoSwitch::SoSwitch() {
  SO_NODE_CONSTRUCTOR(SoSwitch);
  SO_NODE_ADD_FIELD(whichChild, (SO_SWITCH_NONE));
}

SoSwitch::SoSwitch(int nChildren) : SoGroup(nChildren) {
  SO_NODE_CONSTRUCTOR(SoSwitch);
  SO_NODE_ADD_FIELD(whichChild, (SO_SWITCH_NONE));
}

SoSwitch::~SoSwitch() = default;

void SoSwitch::initClass() {
  SO_NODE_INIT_CLASS(SoSwitch, SoGroup, "Group");
  // Every action keeps the choice for inheriting switches.
  SoAction::enableElement(SoSwitchElement::getClassTypeId(), SoSwitchElement::getClassStackIndex());
}

// A switch passes its choice on to the switches after it that inherit.
bool SoSwitch::affectsState() const { return true; }

void SoSwitch::traverseChildren(SoAction* action) {
  int numIndices;
  const int* indices;
  if (action->getPathCode(numIndices, indices) == SoAction::IN_PATH) {
    // Along a path the path decides.
    children.traverse(action, 0, indices[numIndices - 1]);
    return;
  }
  int which = whichChild.getValue();
  SoState* state = action->getState();
  if (which == SO_SWITCH_INHERIT) {
    which = state ? SoSwitchElement::get(state) : SO_SWITCH_NONE;
  } else if (state) {
    SoSwitchElement::set(state, which);
  }
  if (which == SO_SWITCH_ALL)
    children.traverse(action);
  else if (which >= 0 && which < getNumChildren())
    children.traverse(action, which);
}

void SoSwitch::doAction(SoAction* action) { traverseChildren(action); }

void SoSwitch::search(SoSearchAction* action) {
  SoNode::search(action);
  if (action->isFound() && action->getInterest() == SoSearchAction::FIRST) return;
  if (action->isSearchingAll())
    children.traverse(action);
  else
    traverseChildren(action);
}

// A switch is written with all its children, whichever it shows.
void SoSwitch::write(SoWriteAction* action) {
  SoOutput* out = action->getOutput();
  const SoFieldData* fd = getFieldData();
  int numIndices;
  const int* indices;
  const bool onPath = action->getPathCode(numIndices, indices) == SoAction::IN_PATH;
  if (out->getStage() == SoOutput::COUNTREFS) {
    if (addWriteReference(out)) {
      fd->countWriteRefs(out, this);
      if (onPath)
        children.traverse(action, 0, indices[numIndices - 1]);
      else
        children.traverse(action);
    }
    return;
  }
  if (writeHeader(out, true, false)) return;
  fd->write(out, this);
  if (out->isBinary()) out->write(getNumChildrenToWrite(action));
  if (onPath)
    children.traverse(action, 0, indices[numIndices - 1]);
  else
    children.traverse(action);
  writeFooter(out);
}

// ---- SoTransformSeparator ------------------------------------------------------------

SO_NODE_SOURCE(SoTransformSeparator)

SoTransformSeparator::SoTransformSeparator() { SO_NODE_CONSTRUCTOR(SoTransformSeparator); }
SoTransformSeparator::SoTransformSeparator(int nChildren) : SoGroup(nChildren) {
  SO_NODE_CONSTRUCTOR(SoTransformSeparator);
}
SoTransformSeparator::~SoTransformSeparator() = default;

void SoTransformSeparator::initClass() { SO_NODE_INIT_CLASS(SoTransformSeparator, SoGroup, "Group"); }

// The transformation is saved around the children and restored after
// them; every other element keeps what the children set.
void SoTransformSeparator::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state || !state->isElementEnabled(SoModelMatrixElement::getClassStackIndex())) {
    SoGroup::doAction(action);
    return;
  }
  const SbMatrix saved = SoModelMatrixElement::pushMatrix(state);
  SoGroup::doAction(action);
  SoModelMatrixElement::popMatrix(state, saved);
}
