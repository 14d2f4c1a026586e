// The cameras.

#include <Orvex/nodes/SoCamera.h>
#include <Orvex/nodes/SoPerspectiveCamera.h>
#include <Orvex/nodes/SoOrthographicCamera.h>

SO_NODE_ABSTRACT_SOURCE(SoCamera)

SoCamera::SoCamera() {
  SO_NODE_CONSTRUCTOR(SoCamera);
  SO_NODE_DEFINE_ENUM_VALUE(ViewportMapping, CROP_VIEWPORT_FILL_FRAME);
  SO_NODE_DEFINE_ENUM_VALUE(ViewportMapping, CROP_VIEWPORT_LINE_FRAME);
  SO_NODE_DEFINE_ENUM_VALUE(ViewportMapping, CROP_VIEWPORT_NO_FRAME);
  SO_NODE_DEFINE_ENUM_VALUE(ViewportMapping, ADJUST_CAMERA);
  SO_NODE_DEFINE_ENUM_VALUE(ViewportMapping, LEAVE_ALONE);
  SO_NODE_ADD_FIELD(viewportMapping, (ADJUST_CAMERA));
  SO_NODE_ADD_FIELD(position, (0.0f, 0.0f, 1.0f));
  SO_NODE_ADD_FIELD(orientation, (SbRotation()));
  SO_NODE_ADD_FIELD(aspectRatio, (1.0f));
  SO_NODE_ADD_FIELD(nearDistance, (1.0f));
  SO_NODE_ADD_FIELD(farDistance, (10.0f));
  SO_NODE_ADD_FIELD(focalDistance, (5.0f));
  SO_NODE_SET_SF_ENUM_TYPE(viewportMapping, ViewportMapping);
}

SoCamera::~SoCamera() = default;

void SoCamera::initClass() { SO_NODE_INIT_ABSTRACT_CLASS(SoCamera, SoNode, "Node"); }

void SoCamera::pointAt(const SbVec3f& targetPoint) {
  SbVec3f dir = targetPoint - position.getValue();
  if (dir.normalize() == 0.0f) return;
  // First the view direction, then a twist about it that brings the
  // camera's up vector closest to +y.
  const SbRotation look(SbVec3f(0.0f, 0.0f, -1.0f), dir);
  SbVec3f up;
  look.multVec(SbVec3f(0.0f, 1.0f, 0.0f), up);
  SbVec3f wantedUp = SbVec3f(0.0f, 1.0f, 0.0f) - dir * dir.dot(SbVec3f(0.0f, 1.0f, 0.0f));
  SbRotation twist;
  if (wantedUp.normalize() > 0.0f) twist = SbRotation(up, wantedUp);
  orientation = look * twist;
  focalDistance = (targetPoint - position.getValue()).length();
}

SO_NODE_SOURCE(SoPerspectiveCamera)

SoPerspectiveCamera::SoPerspectiveCamera() {
  SO_NODE_CONSTRUCTOR(SoPerspectiveCamera);
  SO_NODE_ADD_FIELD(heightAngle, (0.785398163f));
}

SoPerspectiveCamera::~SoPerspectiveCamera() = default;

void SoPerspectiveCamera::initClass() { SO_NODE_INIT_CLASS(SoPerspectiveCamera, SoCamera, "Camera"); }

SO_NODE_SOURCE(SoOrthographicCamera)

SoOrthographicCamera::SoOrthographicCamera() {
  SO_NODE_CONSTRUCTOR(SoOrthographicCamera);
  SO_NODE_ADD_FIELD(height, (2.0f));
}

SoOrthographicCamera::~SoOrthographicCamera() = default;

void SoOrthographicCamera::initClass() { SO_NODE_INIT_CLASS(SoOrthographicCamera, SoCamera, "Camera"); }
