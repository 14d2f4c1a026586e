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

  // Called at the end of every copyContents with the copy and the original.
  // The copy gets the original's function and user data as they are; a
  // program whose user data is something held per node (a binding's
  // callback object) takes what the copy needs here, or clears the copy's
  // function. One hook for the process; nullptr removes it.
  typedef void CopyHook(SoCallback* copy, const SoCallback* original);
  static void setCopyHook(CopyHook* hook);

 protected:
  ~SoCallback() override;

 private:
  SoCallbackCB* m_function = nullptr;
  void* m_userData = nullptr;
};
