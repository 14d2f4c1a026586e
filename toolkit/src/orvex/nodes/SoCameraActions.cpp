// The cameras in the traversal: they put their view volume and matrices in
// the state, give the pick its ray and can frame a graph.

#include <Orvex/actions/SoCallbackAction.h>
#include <Orvex/actions/SoGetBoundingBoxAction.h>
#include <Orvex/actions/SoGetPrimitiveCountAction.h>
#include <Orvex/actions/SoRayPickAction.h>
#include <Orvex/elements/SoFocalDistanceElement.h>
#include <Orvex/elements/SoModelMatrixElement.h>
#include <Orvex/elements/SoProjectionMatrixElement.h>
#include <Orvex/elements/SoViewVolumeElement.h>
#include <Orvex/elements/SoViewingMatrixElement.h>
#include <Orvex/elements/SoViewportRegionElement.h>
#include <Orvex/nodes/SoCamera.h>
#include <Orvex/nodes/SoOrthographicCamera.h>
#include <Orvex/nodes/SoPerspectiveCamera.h>

#include <cmath>

namespace {
SbMatrix modelMatrixOf(SoState* state) {
  const auto* elt =
      static_cast<const SoModelMatrixElement*>(state->getConstElement(SoModelMatrixElement::getClassStackIndex()));
  return elt ? elt->getModelMatrix() : SbMatrix::identity();
}

// The direction a camera with that orientation looks in.
SbVec3f viewDirection(const SbRotation& orientation) {
  SbVec3f dir;
  orientation.multVec(SbVec3f(0.0f, 0.0f, -1.0f), dir);
  return dir;
}
}  // namespace

// With ADJUST_CAMERA the camera takes the viewport's shape; a viewport
// taller than wide keeps the camera's height as its width. The other
// mappings keep the camera's own aspect ratio. A transformation above the
// camera moves and turns it (its scaling is not applied).
SbViewVolume SoCamera::worldViewVolume(SoState* state) const {
  SbViewportRegion vp;
  if (state->isElementEnabled(SoViewportRegionElement::getClassStackIndex())) vp = SoViewportRegionElement::get(state);
  const bool adjust = viewportMapping.getValue() == ADJUST_CAMERA;
  const float aspect = adjust ? vp.getViewportAspectRatio() : aspectRatio.getValue();
  SbViewVolume vv = getViewVolume(aspect);
  if (adjust && aspect < 1.0f && aspect > 0.0f) vv.scale(1.0f / aspect);
  const SbMatrix m = modelMatrixOf(state);
  if (!m.isIdentity()) {
    SbVec3f t, s;
    SbRotation r, so;
    m.getTransform(t, r, s, so);
    const SbVec3f eye = vv.getProjectionPoint();
    SbVec3f movedEye;
    m.multVecMatrix(eye, movedEye);
    vv.rotateCamera(r);
    vv.translateCamera(movedEye - eye);
  }
  return vv;
}

void SoCamera::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state) return;
  const SbViewVolume vv = worldViewVolume(state);
  SoViewVolumeElement::set(state, this, vv);
  SbMatrix viewing, projection;
  vv.getMatrices(viewing, projection);
  SoViewingMatrixElement::set(state, this, viewing);
  SoProjectionMatrixElement::set(state, this, projection);
  SoFocalDistanceElement::set(state, focalDistance.getValue());
}

void SoCamera::callback(SoCallbackAction* action) { doAction(action); }

void SoCamera::getBoundingBox(SoGetBoundingBoxAction* action) {
  doAction(action);
  if (!action->isInCameraSpace()) return;
  // What follows is measured in the camera's space.
  SoState* state = action->getState();
  SoModelMatrixElement::set(state, this, modelMatrixOf(state) * SoViewingMatrixElement::get(state));
}

void SoCamera::rayPick(SoRayPickAction* action) {
  doAction(action);
  action->computeWorldSpaceRay();
}

void SoCamera::getPrimitiveCount(SoGetPrimitiveCountAction* action) { doAction(action); }

void SoCamera::viewAll(SoNode* sceneRoot, const SbViewportRegion& vpRegion, float slack) {
  if (!sceneRoot) return;
  SoGetBoundingBoxAction action(vpRegion);
  action.apply(sceneRoot);
  const SbBox3f box = action.getBoundingBox();
  if (box.isEmpty()) return;
  const float aspect =
      viewportMapping.getValue() == ADJUST_CAMERA ? vpRegion.getViewportAspectRatio() : aspectRatio.getValue();
  viewBoundingBox(box, aspect, slack);
}

// ---- SoPerspectiveCamera ----------------------------------------------------------------

SbViewVolume SoPerspectiveCamera::getViewVolume(float useAspectRatio) const {
  const float aspect = useAspectRatio != 0.0f ? useAspectRatio : aspectRatio.getValue();
  SbViewVolume vv;
  vv.perspective(heightAngle.getValue(), aspect, nearDistance.getValue(), farDistance.getValue());
  vv.rotateCamera(orientation.getValue());
  vv.translateCamera(position.getValue());
  return vv;
}

// The sphere around the box fills the narrower of the two view angles.
void SoPerspectiveCamera::viewBoundingBox(const SbBox3f& box, float aspect, float slack) {
  const SbVec3f center = box.getCenter();
  const float radius = (box.getMax() - center).length() * (slack > 0.0f ? slack : 1.0f);
  double halfAngle = heightAngle.getValue() / 2.0;
  if (aspect < 1.0f && aspect > 0.0f) halfAngle = std::atan(std::tan(halfAngle) * aspect);
  const float distance = static_cast<float>(radius / std::sin(halfAngle));
  position = center - viewDirection(orientation.getValue()) * distance;
  nearDistance = distance - radius;
  farDistance = distance + radius;
  focalDistance = distance;
}

// ---- SoOrthographicCamera ---------------------------------------------------------------

SbViewVolume SoOrthographicCamera::getViewVolume(float useAspectRatio) const {
  const float aspect = useAspectRatio != 0.0f ? useAspectRatio : aspectRatio.getValue();
  const float h = height.getValue() / 2, w = h * aspect;
  SbViewVolume vv;
  vv.ortho(-w, w, -h, h, nearDistance.getValue(), farDistance.getValue());
  vv.rotateCamera(orientation.getValue());
  vv.translateCamera(position.getValue());
  return vv;
}

// The camera stands two radii from the center, the box's sphere filling
// the narrower side of the view.
void SoOrthographicCamera::viewBoundingBox(const SbBox3f& box, float aspect, float slack) {
  const SbVec3f center = box.getCenter();
  const float radius = (box.getMax() - center).length() * (slack > 0.0f ? slack : 1.0f);
  const float distance = 2.0f * radius;
  position = center - viewDirection(orientation.getValue()) * distance;
  height = aspect < 1.0f && aspect > 0.0f ? 2.0f * radius / aspect : 2.0f * radius;
  nearDistance = distance - radius;
  farDistance = distance + radius;
  focalDistance = distance;
}
