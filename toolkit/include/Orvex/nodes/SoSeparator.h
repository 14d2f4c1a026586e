#pragma once
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/nodes/SoGroup.h>

#include <memory>
#include <mutex>

class SoBoundingBoxCache;
class SoState;

// A group that keeps its children's changes of the traversal state to
// itself: the state is pushed before its children and popped after.
class SoSeparator : public SoGroup {
  SO_NODE_HEADER(SoSeparator);

 public:
  // Whether caches are built: never, always, or when the toolkit decides.
  enum CacheEnabled { OFF, ON, AUTO };

  SoSFEnum renderCaching;
  SoSFEnum boundingBoxCaching;
  SoSFEnum renderCulling;
  SoSFEnum pickCulling;

  SoSeparator();
  explicit SoSeparator(int nChildren);

  // Number of render caches each separator may keep (process-wide).
  static void setNumRenderCaches(int howMany);
  static int getNumRenderCaches();

  bool affectsState() const override;
  void doAction(SoAction* action) override;
  void search(SoSearchAction* action) override;
  // Keeps the box of its children (boundingBoxCaching) while nothing it
  // depends on changes.
  void getBoundingBox(SoGetBoundingBoxAction* action) override;
  // Skips its children when the ray misses their cached box (pickCulling).
  void rayPick(SoRayPickAction* action) override;

 protected:
  ~SoSeparator() override;

 private:
  void setUpFields();
  // The cache when it is valid for this node and state, else null.
  std::shared_ptr<SoBoundingBoxCache> validBBoxCache(SoState* state);

  std::mutex m_bboxMutex;
  std::shared_ptr<SoBoundingBoxCache> m_bboxCache;  // guarded by m_bboxMutex
  uint64_t m_bboxCacheNodeId = 0;
};
