#pragma once
#include <Orvex/SbVec3f.h>
#include <Orvex/SbViewVolume.h>
#include <Orvex/SbViewportRegion.h>
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/fields/SoSFRotation.h>
#include <Orvex/fields/SoSFVec3f.h>
#include <Orvex/nodes/SoSubNode.h>

class SbBox3f;
class SoState;

// Base of the cameras: where the viewer stands, where it looks, and the range
// of depths seen.
class SoCamera : public SoNode {
  SO_NODE_ABSTRACT_HEADER(SoCamera);

 public:
  enum ViewportMapping { CROP_VIEWPORT_FILL_FRAME = 0, CROP_VIEWPORT_LINE_FRAME = 1, CROP_VIEWPORT_NO_FRAME = 2, ADJUST_CAMERA = 3, LEAVE_ALONE = 4 };

  SoSFEnum viewportMapping;
  SoSFVec3f position;
  SoSFRotation orientation;
  SoSFFloat aspectRatio;
  SoSFFloat nearDistance;
  SoSFFloat farDistance;
  SoSFFloat focalDistance;

  // Turns the camera so that it looks at `targetPoint` (its up direction
  // kept as close to +y as possible).
  void pointAt(const SbVec3f& targetPoint);

  // The volume the camera sees in its own space (position and orientation
  // applied); with useAspectRatio 0 the aspectRatio field gives the width.
  virtual SbViewVolume getViewVolume(float useAspectRatio = 0.0f) const = 0;
  // Moves the camera back along its view direction (and sets its near and
  // far distances) so that the whole graph under sceneRoot is seen in the
  // viewport; slack > 1 leaves room around it.
  void viewAll(SoNode* sceneRoot, const SbViewportRegion& vpRegion, float slack = 1.0f);

  // Sets the view volume, viewing and projection matrices and the focal
  // distance in the state, for the viewport of the state.
  void doAction(SoAction* action) override;
  void callback(SoCallbackAction* action) override;
  // In camera space the boxes that follow are measured from the camera.
  void getBoundingBox(SoGetBoundingBoxAction* action) override;
  // Gives the pick its ray.
  void rayPick(SoRayPickAction* action) override;
  void getPrimitiveCount(SoGetPrimitiveCountAction* action) override;

 protected:
  SoCamera();
  // Places the camera to see a sphere, keeping its orientation.
  virtual void viewBoundingBox(const SbBox3f& box, float aspect, float slack) = 0;
  // The view volume for the viewport of the action's state, in world space.
  SbViewVolume worldViewVolume(SoState* state) const;
  ~SoCamera() override;
};
