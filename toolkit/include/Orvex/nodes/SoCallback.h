#pragma once
#include <Orvex/nodes/SoSubNode.h>

class SoAction;

// The function an SoCallback node calls.
typedef void SoCallbackCB(void* userData, SoAction* action);

// A node that calls a function whenever an action traverses it: a way to
// run code (or change the state) at a place in the graph.
class SoCallback : public SoNode {
  SO_NODE_HEADER(SoCallback);

 public:
  SoCallback();
  // Replaces the function (nullptr removes it).
  void setCallback(SoCallbackCB* function, void* userData = nullptr);
  SoCallbackCB* getCallback() const { return m_function; }
  void* getCallbackData() const { return m_userData; }

  void doAction(SoAction* action) override;
  void search(SoSearchAction* action) override;
  void write(SoWriteAction* action) override;
  void copyContents(const SoFieldContainer* from, bool copyConnections) override;

 protected:
  ~SoCallback() override;

 private:
  SoCallbackCB* m_function = nullptr;
  void* m_userData = nullptr;
};
