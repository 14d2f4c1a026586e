#pragma once
#include <Orvex/SbBox3f.h>
#include <Orvex/SbViewportRegion.h>
#include <Orvex/SbXfBox3f.h>
#include <Orvex/actions/SoSubAction.h>

#include <vector>

// Computes the bounding box of a graph (or of what a path leads to) in
// world space, or in the space of the first camera met, together with a
// center point: the average of the centers of the shapes and groups met.
// The box is kept as a box with a transformation (getXfBoundingBox) and
// given as the axis-aligned box around it (getBoundingBox). A reset path
// lets part of the graph start afresh: when the traversal reaches its tail,
// the transformation, the box or both are reset, before or after the tail.
class SoGetBoundingBoxAction : public SoAction {
  SO_ACTION_HEADER(SoGetBoundingBoxAction);

 public:
  enum ResetType { TRANSFORM = 0x01, BBOX = 0x02, ALL = 0x03 };

  explicit SoGetBoundingBoxAction(const SbViewportRegion& region);
  ~SoGetBoundingBoxAction() override;

  void setViewportRegion(const SbViewportRegion& region);
  const SbViewportRegion& getViewportRegion() const { return m_viewport; }

  SbBox3f getBoundingBox() const { return m_box.project(); }
  SbXfBox3f& getXfBoundingBox() { return m_box; }
  // The center (world or camera space); the box's center when no shape set one.
  const SbVec3f& getCenter() const;

  void setInCameraSpace(bool flag) { m_inCameraSpace = flag; }
  bool isInCameraSpace() const { return m_inCameraSpace; }
  // The action keeps a reference to the path until another replaces it.
  void setResetPath(const SoPath* path, bool resetBefore = true, ResetType what = ALL);
  const SoPath* getResetPath() const { return m_resetPath; }
  bool isResetPath() const { return m_resetPath != nullptr; }
  bool isResetBefore() const { return m_resetBefore; }
  ResetType getWhatReset() const { return m_resetWhat; }

  // Used by nodes. Before and after a node: applies the reset path.
  void checkResetBefore();
  void checkResetAfter();
  // Adds a box given in the current object space (transformed by the
  // current model matrix).
  void extendBy(const SbBox3f& box);
  void extendBy(const SbXfBox3f& box);
  // Sets the center; with transformCenter the point is in object space.
  void setCenter(const SbVec3f& center, bool transformCenter);
  bool isCenterSet() const { return m_centerSet; }
  void resetCenter();

  // Separators that cache their box collect what their children add, in
  // world space; each call opens a collection, closed by the matching end.
  void beginCacheCollection();
  void endCacheCollection(SbXfBox3f& box);

 protected:
  void beginTraversal(SoNode* node) override;

 private:
  void addWorldBox(const SbXfBox3f& worldBox);
  bool isAtResetPath();
  void applyReset();

  SbViewportRegion m_viewport;
  SbXfBox3f m_box;
  SbVec3f m_center;
  mutable SbVec3f m_boxCenter;
  bool m_centerSet = false;
  bool m_inCameraSpace = false;
  SoPath* m_resetPath = nullptr;
  bool m_resetBefore = true;
  ResetType m_resetWhat = ALL;
  std::vector<SbXfBox3f> m_collections;
};
