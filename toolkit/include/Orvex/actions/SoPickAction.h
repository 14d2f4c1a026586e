#pragma once
#include <Orvex/SbViewportRegion.h>
#include <Orvex/actions/SoSubAction.h>

// Base of the picking actions: they work in a viewport region, and may skip
// parts of the graph whose bounding box the pick cannot reach (culling).
class SoPickAction : public SoAction {
  SO_ACTION_HEADER(SoPickAction);

 public:
  ~SoPickAction() override;

  void setViewportRegion(const SbViewportRegion& region) { m_viewport = region; }
  const SbViewportRegion& getViewportRegion() const { return m_viewport; }
  void enableCulling(bool flag) { m_culling = flag; }
  bool isCullingEnabled() const { return m_culling; }

 protected:
  explicit SoPickAction(const SbViewportRegion& region);
  void beginTraversal(SoNode* node) override;

 private:
  SbViewportRegion m_viewport;
  bool m_culling = true;
};
