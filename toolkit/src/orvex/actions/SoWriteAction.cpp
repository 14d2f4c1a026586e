#include <Orvex/actions/SoWriteAction.h>

#include <Orvex/SoOutput.h>
#include <Orvex/SoPath.h>
#include <Orvex/nodes/SoNode.h>

SO_ACTION_SOURCE(SoWriteAction)

void SoWriteAction::initClass() {
  SO_ACTION_INIT_CLASS(SoWriteAction, SoAction);
  SO_ACTION_ADD_METHOD(SoNode, SoNode::writeS);
}

SoWriteAction::SoWriteAction() : m_ownOutput(std::make_unique<SoOutput>()) {
  SO_ACTION_CONSTRUCTOR(SoWriteAction);
  m_output = m_ownOutput.get();
}

SoWriteAction::SoWriteAction(SoOutput* out) : m_output(out) {
  SO_ACTION_CONSTRUCTOR(SoWriteAction);
  if (!m_output) {
    m_ownOutput = std::make_unique<SoOutput>();
    m_output = m_ownOutput.get();
  }
}

SoWriteAction::~SoWriteAction() = default;

void SoWriteAction::continueToApply(SoNode* node) {
  m_continuing = true;
  apply(node);
  m_continuing = false;
}

void SoWriteAction::continueToApply(SoPath* path) {
  m_continuing = true;
  apply(path);
  m_continuing = false;
}

void SoWriteAction::beginTraversal(SoNode* node) {
  if (m_continuing) {
    traverse(node);
    return;
  }
  // Each graph is a new write: its references are counted, then written.
  const bool headerWritten = m_output->isHeaderWritten();
  m_output->reset();
  m_output->setStage(SoOutput::COUNTREFS);
  traverse(node);
  setTerminated(false);
  m_output->setStage(SoOutput::WRITE);
  if (headerWritten)
    m_output->markHeaderWritten();
  else
    m_output->writeHeader();
  traverse(node);
  m_output->flushFile();
}
