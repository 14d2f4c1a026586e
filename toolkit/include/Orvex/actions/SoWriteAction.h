#pragma once
#include <Orvex/actions/SoSubAction.h>

class SoOutput;

// Writes a graph (or a path, or paths) to an output as a scene file: the
// header, then the nodes. Writing takes two passes: the first counts how
// often each node is referenced, so that every shared node is written once
// with a name (DEF) and referred to by it (USE) afterwards.
class SoWriteAction : public SoAction {
  SO_ACTION_HEADER(SoWriteAction);

 public:
  // Writes to standard output.
  SoWriteAction();
  explicit SoWriteAction(SoOutput* out);
  ~SoWriteAction() override;

  SoOutput* getOutput() const { return m_output; }
  // Writes a node within the write in progress (a node that a field refers
  // to): in the output's current pass, without a header.
  void continueToApply(SoNode* node);
  void continueToApply(SoPath* path);

 protected:
  void beginTraversal(SoNode* node) override;

 private:
  SoOutput* m_output;
  std::unique_ptr<SoOutput> m_ownOutput;
  bool m_continuing = false;
};
