#pragma once
#include <Orvex/SbVec3f.h>
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/fields/SoSFRotation.h>
#include <Orvex/fields/SoSFVec3f.h>
#include <Orvex/nodes/SoSubNode.h>

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

 protected:
  SoCamera();
  ~SoCamera() override;
};
