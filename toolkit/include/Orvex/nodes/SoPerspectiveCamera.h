#pragma once
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/nodes/SoCamera.h>
#include <Orvex/nodes/SoSubNode.h>

// A camera with perspective projection; heightAngle is the vertical view angle
// in radians.
class SoPerspectiveCamera : public SoCamera {
  SO_NODE_HEADER(SoPerspectiveCamera);

 public:
  SoSFFloat heightAngle;

  SoPerspectiveCamera();
  SbViewVolume getViewVolume(float useAspectRatio = 0.0f) const override;

 protected:
  ~SoPerspectiveCamera() override;
  void viewBoundingBox(const SbBox3f& box, float aspect, float slack) override;
};
