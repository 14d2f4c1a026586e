#pragma once
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/nodes/SoGroup.h>

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

 protected:
  ~SoSeparator() override;

 private:
  void setUpFields();
};
