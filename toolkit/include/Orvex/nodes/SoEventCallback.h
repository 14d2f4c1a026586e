#pragma once
#include <Orvex/nodes/SoSubNode.h>

#include <vector>

class SoEvent;
class SoEventCallback;
class SoHandleEventAction;
class SoPath;
class SoPickedPoint;

// The function an event callback node calls for an event of its type.
typedef void SoEventCallbackCB(void* userData, SoEventCallback* node);

// Calls functions for the events of chosen types that a handle-event action
// delivers through it. With a path set, only events whose picked point
// lies on that path count. Inside the function the node gives the action,
// the event and the picked point, and lets the function mark the event as
// handled or grab the events that follow.
class SoEventCallback : public SoNode {
  SO_NODE_HEADER(SoEventCallback);

 public:
  SoEventCallback();

  // The node keeps a reference to the path.
  void setPath(SoPath* path);
  SoPath* getPath() const { return m_path; }

  // Functions are called in the order they were added, for events of the
  // type or derived from it.
  void addEventCallback(SoType eventType, SoEventCallbackCB* f, void* userData = nullptr);
  void removeEventCallback(SoType eventType, SoEventCallbackCB* f, void* userData = nullptr);

  // Valid while a function runs.
  SoHandleEventAction* getAction() const { return m_action; }
  const SoEvent* getEvent() const;
  const SoPickedPoint* getPickedPoint() const;
  void setHandled();
  bool isHandled() const;
  // Makes this node receive every event until releaseEvents().
  void grabEvents();
  void releaseEvents();

  bool affectsState() const override { return false; }
  void handleEvent(SoHandleEventAction* action) override;

 protected:
  ~SoEventCallback() override;

 private:
  struct Callback {
    SoType type;
    SoEventCallbackCB* function;
    void* data;
  };
  std::vector<Callback> m_callbacks;
  SoPath* m_path = nullptr;
  SoHandleEventAction* m_action = nullptr;
};
