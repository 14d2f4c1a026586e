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

 protected:
  ~SoOrthographicCamera() override;
};
