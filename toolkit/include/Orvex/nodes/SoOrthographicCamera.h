#pragma once
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/nodes/SoCamera.h>
#include <Orvex/nodes/SoSubNode.h>

// A camera with parallel projection; height is the height of the view volume.
class SoOrthographicCamera : public SoCamera {
  SO_NODE_HEADER(SoOrthographicCamera);

 public:
  SoSFFloat height;

  SoOrthographicCamera();
  SbViewVolume getViewVolume(float useAspectRatio = 0.0f) const override;

 protected:
  ~SoOrthographicCamera() override;
  void viewBoundingBox(const SbBox3f& box, float aspect, float slack) override;
};
