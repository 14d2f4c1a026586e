#pragma once
#include <Orvex/SbViewportRegion.h>
#include <Orvex/SoPickedPointList.h>
#include <Orvex/actions/SoSubAction.h>

#include <memory>

class SoEvent;
class SoPickedPoint;
class SoRayPickAction;

// Delivers an input event to a graph: nodes that handle events look at it
// as the traversal reaches them, and the first one that handles it ends the
// traversal. A node may grab events: they then go to it alone until it
// releases them. What lies under the event's position is picked on demand,
// once per event.
class SoHandleEventAction : public SoAction {
  SO_ACTION_HEADER(SoHandleEventAction);

 public:
  explicit SoHandleEventAction(const SbViewportRegion& region);
  ~SoHandleEventAction() override;

  void setViewportRegion(const SbViewportRegion& region);
  const SbViewportRegion& getViewportRegion() const { return m_viewport; }
  // The event is not owned; it must live while the action is applied.
  void setEvent(const SoEvent* event);
  const SoEvent* getEvent() const { return m_event; }

  // Ends the traversal: the event is used up.
  void setHandled();
  bool isHandled() const { return m_handled; }

  // Events go to `node` alone from the next application on (the node is
  // referenced while it grabs; its grabEventsSetup/Cleanup are called).
  void setGrabber(SoNode* node);
  void releaseGrabber();
  SoNode* getGrabber() const { return m_grabber; }

  // What the picks run on (by default the node the action is applied to).
  void setPickRoot(SoNode* node);
  SoNode* getPickRoot() const { return m_pickRoot; }
  void setPickRadius(float radiusInPixels);
  float getPickRadius() const { return m_pickRadius; }
  // The closest point under the event's position, or null.
  const SoPickedPoint* getPickedPoint();
  const SoPickedPointList& getPickedPointList();

 protected:
  void beginTraversal(SoNode* node) override;

 private:
  void pick(bool all);

  SbViewportRegion m_viewport;
  const SoEvent* m_event = nullptr;
  bool m_handled = false;
  SoNode* m_grabber = nullptr;
  SoNode* m_pickRoot = nullptr;
  SoNode* m_appliedTo = nullptr;  // during an application
  float m_pickRadius = 5.0f;
  std::unique_ptr<SoRayPickAction> m_pickAction;
  bool m_pickedOne = false;  // the closest point was picked for this event
  bool m_pickedAll = false;  // every point was picked for this event
  SoPickedPointList m_emptyList;
};
