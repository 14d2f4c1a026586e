// What the property nodes put in the traversal state. A field that is
// ignored sets nothing; a property fixed by an override node above is left
// alone; an override node fixes what it sets for the nodes below.

#include <Orvex/actions/SoAction.h>
#include <Orvex/elements/SoComplexityElement.h>
#include <Orvex/elements/SoComplexityTypeElement.h>
#include <Orvex/elements/SoCoordinateElement.h>
#include <Orvex/elements/SoCreaseAngleElement.h>
#include <Orvex/elements/SoDepthBufferElement.h>
#include <Orvex/elements/SoDrawStyleElement.h>
#include <Orvex/elements/SoLazyElement.h>
#include <Orvex/elements/SoLinePatternElement.h>
#include <Orvex/elements/SoLineWidthElement.h>
#include <Orvex/elements/SoMaterialBindingElement.h>
#include <Orvex/elements/SoMaterialElement.h>
#include <Orvex/elements/SoNormalBindingElement.h>
#include <Orvex/elements/SoNormalElement.h>
#include <Orvex/elements/SoOverrideElement.h>
#include <Orvex/elements/SoPickStyleElement.h>
#include <Orvex/elements/SoPointSizeElement.h>
#include <Orvex/elements/SoShapeHintsElement.h>
#include <Orvex/elements/SoTextureCoordinateElement.h>
#include <Orvex/elements/SoTextureQualityElement.h>
#include <Orvex/nodes/SoBaseColor.h>
#include <Orvex/nodes/SoComplexity.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoDepthBuffer.h>
#include <Orvex/nodes/SoDrawStyle.h>
#include <Orvex/nodes/SoLightModel.h>
#include <Orvex/nodes/SoMaterial.h>
#include <Orvex/nodes/SoMaterialBinding.h>
#include <Orvex/nodes/SoNormal.h>
#include <Orvex/nodes/SoNormalBinding.h>
#include <Orvex/nodes/SoPickStyle.h>
#include <Orvex/nodes/SoShapeHints.h>
#include <Orvex/nodes/SoTextureCoordinate2.h>

namespace {

// Whether the node may set a property: the field is used and no override
// node above fixed the property. An override node then fixes it.
bool maySet(SoState* state, SoNode* node, const SoField& field, uint32_t flag) {
  if (field.isIgnored() || SoOverrideElement::isOverridden(state, flag)) return false;
  if (node->isOverride()) SoOverrideElement::setOverride(state, node, flag, true);
  return true;
}

}  // namespace

void SoMaterial::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state) return;
  bool any = false;
  if (maySet(state, this, ambientColor, SoOverrideElement::AMBIENT_COLOR) && ambientColor.getNum() > 0) {
    SoLazyElement::setAmbient(state, ambientColor[0]);
    any = true;
  }
  if (maySet(state, this, diffuseColor, SoOverrideElement::DIFFUSE_COLOR) && diffuseColor.getNum() > 0) {
    SoLazyElement::setDiffuse(state, this, diffuseColor.getNum(), diffuseColor.getValues(0));
    any = true;
  }
  if (maySet(state, this, specularColor, SoOverrideElement::SPECULAR_COLOR) && specularColor.getNum() > 0) {
    SoLazyElement::setSpecular(state, specularColor[0]);
    any = true;
  }
  if (maySet(state, this, emissiveColor, SoOverrideElement::EMISSIVE_COLOR) && emissiveColor.getNum() > 0) {
    SoLazyElement::setEmissive(state, emissiveColor[0]);
    any = true;
  }
  if (maySet(state, this, shininess, SoOverrideElement::SHININESS) && shininess.getNum() > 0) {
    SoLazyElement::setShininess(state, shininess[0]);
    any = true;
  }
  if (maySet(state, this, transparency, SoOverrideElement::TRANSPARENCY) && transparency.getNum() > 0) {
    SoLazyElement::setTransparency(state, this, transparency.getNum(), transparency.getValues(0));
    any = true;
  }
  if (any) SoMaterialElement::set(state, this);
}

void SoBaseColor::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state) return;
  if (maySet(state, this, rgb, SoOverrideElement::DIFFUSE_COLOR) && rgb.getNum() > 0)
    SoLazyElement::setDiffuse(state, this, rgb.getNum(), rgb.getValues(0));
}

void SoDrawStyle::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state) return;
  if (maySet(state, this, style, SoOverrideElement::DRAW_STYLE))
    SoDrawStyleElement::set(state, static_cast<SoDrawStyleElement::Style>(style.getValue()));
  if (maySet(state, this, pointSize, SoOverrideElement::POINT_SIZE))
    SoPointSizeElement::set(state, pointSize.getValue());
  if (maySet(state, this, lineWidth, SoOverrideElement::LINE_WIDTH))
    SoLineWidthElement::set(state, lineWidth.getValue());
  if (maySet(state, this, linePattern, SoOverrideElement::LINE_PATTERN))
    SoLinePatternElement::set(state, linePattern.getValue());
}

void SoShapeHints::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state) return;
  if (!SoOverrideElement::getShapeHintsOverride(state)) {
    const auto ordering = vertexOrdering.isIgnored()
                              ? SoShapeHintsElement::ORDERING_AS_IS
                              : static_cast<SoShapeHintsElement::VertexOrderings>(vertexOrdering.getValue());
    const auto shape = shapeType.isIgnored() ? SoShapeHintsElement::SHAPE_TYPE_AS_IS
                                             : static_cast<SoShapeHintsElement::ShapeTypes>(shapeType.getValue());
    const auto face = faceType.isIgnored() ? SoShapeHintsElement::FACE_TYPE_AS_IS
                                           : static_cast<SoShapeHintsElement::FaceTypes>(faceType.getValue());
    SoShapeHintsElement::set(state, this, ordering, shape, face);
    if (isOverride()) SoOverrideElement::setOverride(state, this, SoOverrideElement::SHAPE_HINTS, true);
  }
  if (maySet(state, this, creaseAngle, SoOverrideElement::CREASE_ANGLE))
    SoCreaseAngleElement::set(state, creaseAngle.getValue());
}

void SoComplexity::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state) return;
  if (maySet(state, this, type, SoOverrideElement::COMPLEXITY_TYPE))
    SoComplexityTypeElement::set(state, static_cast<SoComplexityTypeElement::Type>(type.getValue()));
  if (maySet(state, this, value, SoOverrideElement::COMPLEXITY)) SoComplexityElement::set(state, value.getValue());
  if (!textureQuality.isIgnored()) SoTextureQualityElement::set(state, textureQuality.getValue());
}

void SoLightModel::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state) return;
  if (maySet(state, this, model, SoOverrideElement::LIGHT_MODEL)) SoLazyElement::setLightModel(state, model.getValue());
}

void SoMaterialBinding::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state) return;
  if (maySet(state, this, value, SoOverrideElement::MATERIAL_BINDING))
    SoMaterialBindingElement::set(state, static_cast<SoMaterialBindingElement::Binding>(value.getValue()));
}

void SoNormalBinding::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state) return;
  if (maySet(state, this, value, SoOverrideElement::NORMAL_BINDING))
    SoNormalBindingElement::set(state, static_cast<SoNormalBindingElement::Binding>(value.getValue()));
}

void SoPickStyle::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state) return;
  if (maySet(state, this, style, SoOverrideElement::PICK_STYLE))
    SoPickStyleElement::set(state, static_cast<SoPickStyleElement::Style>(style.getValue()));
}

void SoCoordinate3::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state || point.isIgnored()) return;
  SoCoordinateElement::set3(state, this, point.getNum(), point.getNum() > 0 ? point.getValues(0) : nullptr);
}

void SoNormal::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state) return;
  if (maySet(state, this, vector, SoOverrideElement::NORMAL_VECTOR))
    SoNormalElement::set(state, this, vector.getNum(), vector.getNum() > 0 ? vector.getValues(0) : nullptr);
}

void SoTextureCoordinate2::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state || point.isIgnored()) return;
  SoTextureCoordinateElement::set2(state, this, point.getNum(), point.getNum() > 0 ? point.getValues(0) : nullptr);
}

void SoDepthBuffer::doAction(SoAction* action) {
  SoState* state = action->getState();
  if (!state || SoOverrideElement::getDepthBufferOverride(state)) return;
  SoDepthBufferElement::set(state, test.getValue(), write.getValue(),
                            static_cast<SoDepthBufferElement::DepthWriteFunctions>(function.getValue()),
                            range.getValue());
  if (isOverride()) SoOverrideElement::setOverride(state, this, SoOverrideElement::DEPTH_BUFFER, true);
}
