// Nodes that carry information only.

#include <Orvex/nodes/SoInfo.h>
#include <Orvex/nodes/SoLabel.h>

SO_NODE_SOURCE(SoInfo)

SoInfo::SoInfo() {
  SO_NODE_CONSTRUCTOR(SoInfo);
  SO_NODE_ADD_FIELD(string, (SbString("<Undefined info>")));
}

SoInfo::~SoInfo() = default;

void SoInfo::initClass() { SO_NODE_INIT_CLASS(SoInfo, SoNode, "Node"); }

bool SoInfo::affectsState() const { return false; }

SO_NODE_SOURCE(SoLabel)

SoLabel::SoLabel() {
  SO_NODE_CONSTRUCTOR(SoLabel);
  SO_NODE_ADD_FIELD(label, (SbName("<Undefined label>")));
}

SoLabel::~SoLabel() = default;

void SoLabel::initClass() { SO_NODE_INIT_CLASS(SoLabel, SoNode, "Node"); }

bool SoLabel::affectsState() const { return false; }
