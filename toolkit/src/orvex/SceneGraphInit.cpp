#include "SceneGraphInit.h"

#include <Orvex/SoPath.h>
#include <Orvex/actions/SoAction.h>
#include <Orvex/details/SoDetail.h>
#include <Orvex/elements/SoElement.h>
#include <Orvex/engines/SoEngine.h>
#include <Orvex/fields/SoFieldContainer.h>
#include <Orvex/nodes/SoNode.h>

namespace orvex {

void initSceneGraph() {
  SoFieldContainer::initClass();
  SoEngine::initClass();
  // The node base before the actions (which register methods for it), the
  // actions before the node classes (which enable elements for them).
  SoNode::initClass();
  SoPath::initClass();
  SoElement::initElements();
  SoDetail::initClasses();
  SoAction::initClasses();
  SoNode::initClasses();
  SoEngine::initClasses();
}

}  // namespace orvex
