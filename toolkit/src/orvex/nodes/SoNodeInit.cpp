// Registration of every node class (parents before children).

#include <Orvex/nodes/SoBaseColor.h>
#include <Orvex/nodes/SoCallback.h>
#include <Orvex/nodes/SoCamera.h>
#include <Orvex/nodes/SoComplexity.h>
#include <Orvex/nodes/SoCone.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoCylinder.h>
#include <Orvex/nodes/SoDepthBuffer.h>
#include <Orvex/nodes/SoDirectionalLight.h>
#include <Orvex/nodes/SoDrawStyle.h>
#include <Orvex/nodes/SoFont.h>
#include <Orvex/nodes/SoEventCallback.h>
#include <Orvex/nodes/SoFaceSet.h>
#include <Orvex/nodes/SoGroup.h>
#include <Orvex/nodes/SoIndexedFaceSet.h>
#include <Orvex/nodes/SoIndexedLineSet.h>
#include <Orvex/nodes/SoIndexedShape.h>
#include <Orvex/nodes/SoInfo.h>
#include <Orvex/nodes/SoLabel.h>
#include <Orvex/nodes/SoLight.h>
#include <Orvex/nodes/SoLightModel.h>
#include <Orvex/nodes/SoLineSet.h>
#include <Orvex/nodes/SoMaterial.h>
#include <Orvex/nodes/SoMaterialBinding.h>
#include <Orvex/nodes/SoMatrixTransform.h>
#include <Orvex/nodes/SoNonIndexedShape.h>
#include <Orvex/nodes/SoNormal.h>
#include <Orvex/nodes/SoNormalBinding.h>
#include <Orvex/nodes/SoOrthographicCamera.h>
#include <Orvex/nodes/SoPattern.h>
#include <Orvex/nodes/SoPerspectiveCamera.h>
#include <Orvex/nodes/SoPickStyle.h>
#include <Orvex/nodes/SoPointLight.h>
#include <Orvex/nodes/SoPointSet.h>
#include <Orvex/nodes/SoResetTransform.h>
#include <Orvex/nodes/SoRotation.h>
#include <Orvex/nodes/SoRotationXYZ.h>
#include <Orvex/nodes/SoScale.h>
#include <Orvex/nodes/SoSelection.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoShape.h>
#include <Orvex/nodes/SoShapeHints.h>
#include <Orvex/nodes/SoSphere.h>
#include <Orvex/nodes/SoSpotLight.h>
#include <Orvex/nodes/SoSwitch.h>
#include <Orvex/nodes/SoText2.h>
#include <Orvex/nodes/SoText3.h>
#include <Orvex/nodes/SoTexture2.h>
#include <Orvex/nodes/SoTexture2Transform.h>
#include <Orvex/nodes/SoTextureCoordinate2.h>
#include <Orvex/nodes/SoTextureCoordinateBinding.h>
#include <Orvex/nodes/SoTransform.h>
#include <Orvex/nodes/SoTransformSeparator.h>
#include <Orvex/nodes/SoTransformation.h>
#include <Orvex/nodes/SoTranslation.h>
#include <Orvex/nodes/SoTriangleStripSet.h>
#include <Orvex/nodes/SoUnknownNode.h>
#include <Orvex/nodes/SoVertexShape.h>
#include <Orvex/nodes/SoWWWAnchor.h>
#include <Orvex/nodes/SoWWWInline.h>

void SoNode::initClasses() {
  initClass();
  SoGroup::initClass();
  SoSeparator::initClass();
  SoSwitch::initClass();
  SoTransformSeparator::initClass();
  SoUnknownNode::initClass();
  SoTransformation::initClass();
  SoTransform::initClass();
  SoTranslation::initClass();
  SoRotation::initClass();
  SoRotationXYZ::initClass();
  SoScale::initClass();
  SoMatrixTransform::initClass();
  SoResetTransform::initClass();
  SoMaterial::initClass();
  SoBaseColor::initClass();
  SoDrawStyle::initClass();
  SoShapeHints::initClass();
  SoComplexity::initClass();
  SoLightModel::initClass();
  SoMaterialBinding::initClass();
  SoNormalBinding::initClass();
  SoPickStyle::initClass();
  SoCoordinate3::initClass();
  SoNormal::initClass();
  SoTextureCoordinate2::initClass();
  SoTextureCoordinateBinding::initClass();
  SoTexture2::initClass();
  SoTexture2Transform::initClass();
  SoFont::initClass();
  SoDepthBuffer::initClass();
  SoCamera::initClass();
  SoPerspectiveCamera::initClass();
  SoOrthographicCamera::initClass();
  SoLight::initClass();
  SoDirectionalLight::initClass();
  SoPointLight::initClass();
  SoSpotLight::initClass();
  SoShape::initClass();
  SoCube::initClass();
  SoSphere::initClass();
  SoCone::initClass();
  SoCylinder::initClass();
  SoText2::initClass();
  SoText3::initClass();
  SoVertexShape::initClass();
  SoNonIndexedShape::initClass();
  SoPointSet::initClass();
  SoLineSet::initClass();
  SoFaceSet::initClass();
  SoTriangleStripSet::initClass();
  SoIndexedShape::initClass();
  SoIndexedLineSet::initClass();
  SoIndexedFaceSet::initClass();
  SoInfo::initClass();
  SoLabel::initClass();
  SoCallback::initClass();
  SoPattern::initClass();
  SoEventCallback::initClass();
  SoSelection::initClass();
  SoWWWInline::initClass();
  SoWWWAnchor::initClass();
}
