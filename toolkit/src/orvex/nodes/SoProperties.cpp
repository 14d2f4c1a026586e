// The property nodes: materials, styles, hints, bindings, coordinates and normals.

#include <Orvex/nodes/SoMaterial.h>
#include <Orvex/nodes/SoBaseColor.h>
#include <Orvex/nodes/SoDrawStyle.h>
#include <Orvex/nodes/SoShapeHints.h>
#include <Orvex/nodes/SoComplexity.h>
#include <Orvex/nodes/SoLightModel.h>
#include <Orvex/nodes/SoMaterialBinding.h>
#include <Orvex/nodes/SoNormalBinding.h>
#include <Orvex/nodes/SoPickStyle.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoNormal.h>
#include <Orvex/nodes/SoTextureCoordinate2.h>
#include <Orvex/nodes/SoDepthBuffer.h>

SO_NODE_SOURCE(SoMaterial)

SoMaterial::SoMaterial() {
  SO_NODE_CONSTRUCTOR(SoMaterial);
  SO_NODE_ADD_FIELD(ambientColor, (0.2f, 0.2f, 0.2f));
  SO_NODE_ADD_FIELD(diffuseColor, (0.8f, 0.8f, 0.8f));
  SO_NODE_ADD_FIELD(specularColor, (0.0f, 0.0f, 0.0f));
  SO_NODE_ADD_FIELD(emissiveColor, (0.0f, 0.0f, 0.0f));
  SO_NODE_ADD_FIELD(shininess, (0.2f));
  SO_NODE_ADD_FIELD(transparency, (0.0f));
}

SoMaterial::~SoMaterial() = default;

void SoMaterial::initClass() { SO_NODE_INIT_CLASS(SoMaterial, SoNode, "Node"); }

SO_NODE_SOURCE(SoBaseColor)

SoBaseColor::SoBaseColor() {
  SO_NODE_CONSTRUCTOR(SoBaseColor);
  SO_NODE_ADD_FIELD(rgb, (0.8f, 0.8f, 0.8f));
}

SoBaseColor::~SoBaseColor() = default;

void SoBaseColor::initClass() { SO_NODE_INIT_CLASS(SoBaseColor, SoNode, "Node"); }

SO_NODE_SOURCE(SoDrawStyle)

SoDrawStyle::SoDrawStyle() {
  SO_NODE_CONSTRUCTOR(SoDrawStyle);
  SO_NODE_DEFINE_ENUM_VALUE(Style, FILLED);
  SO_NODE_DEFINE_ENUM_VALUE(Style, LINES);
  SO_NODE_DEFINE_ENUM_VALUE(Style, POINTS);
  SO_NODE_DEFINE_ENUM_VALUE(Style, INVISIBLE);
  SO_NODE_ADD_FIELD(style, (FILLED));
  SO_NODE_ADD_FIELD(pointSize, (0.0f));
  SO_NODE_ADD_FIELD(lineWidth, (0.0f));
  SO_NODE_ADD_FIELD(linePattern, (static_cast<unsigned short>(0xFFFF)));
  SO_NODE_SET_SF_ENUM_TYPE(style, Style);
}

SoDrawStyle::~SoDrawStyle() = default;

void SoDrawStyle::initClass() { SO_NODE_INIT_CLASS(SoDrawStyle, SoNode, "Node"); }

SO_NODE_SOURCE(SoShapeHints)

SoShapeHints::SoShapeHints() {
  SO_NODE_CONSTRUCTOR(SoShapeHints);
  SO_NODE_DEFINE_ENUM_VALUE(VertexOrdering, UNKNOWN_ORDERING);
  SO_NODE_DEFINE_ENUM_VALUE(VertexOrdering, CLOCKWISE);
  SO_NODE_DEFINE_ENUM_VALUE(VertexOrdering, COUNTERCLOCKWISE);
  SO_NODE_DEFINE_ENUM_VALUE(ShapeType, UNKNOWN_SHAPE_TYPE);
  SO_NODE_DEFINE_ENUM_VALUE(ShapeType, SOLID);
  SO_NODE_DEFINE_ENUM_VALUE(FaceType, UNKNOWN_FACE_TYPE);
  SO_NODE_DEFINE_ENUM_VALUE(FaceType, CONVEX);
  SO_NODE_ADD_FIELD(vertexOrdering, (UNKNOWN_ORDERING));
  SO_NODE_ADD_FIELD(shapeType, (UNKNOWN_SHAPE_TYPE));
  SO_NODE_ADD_FIELD(faceType, (CONVEX));
  SO_NODE_ADD_FIELD(creaseAngle, (0.0f));
  SO_NODE_SET_SF_ENUM_TYPE(vertexOrdering, VertexOrdering);
  SO_NODE_SET_SF_ENUM_TYPE(shapeType, ShapeType);
  SO_NODE_SET_SF_ENUM_TYPE(faceType, FaceType);
}

SoShapeHints::~SoShapeHints() = default;

void SoShapeHints::initClass() { SO_NODE_INIT_CLASS(SoShapeHints, SoNode, "Node"); }

SO_NODE_SOURCE(SoComplexity)

SoComplexity::SoComplexity() {
  SO_NODE_CONSTRUCTOR(SoComplexity);
  SO_NODE_DEFINE_ENUM_VALUE(Type, OBJECT_SPACE);
  SO_NODE_DEFINE_ENUM_VALUE(Type, SCREEN_SPACE);
  SO_NODE_DEFINE_ENUM_VALUE(Type, BOUNDING_BOX);
  SO_NODE_ADD_FIELD(type, (OBJECT_SPACE));
  SO_NODE_ADD_FIELD(value, (0.5f));
  SO_NODE_ADD_FIELD(textureQuality, (0.5f));
  SO_NODE_SET_SF_ENUM_TYPE(type, Type);
}

SoComplexity::~SoComplexity() = default;

void SoComplexity::initClass() { SO_NODE_INIT_CLASS(SoComplexity, SoNode, "Node"); }

SO_NODE_SOURCE(SoLightModel)

SoLightModel::SoLightModel() {
  SO_NODE_CONSTRUCTOR(SoLightModel);
  SO_NODE_DEFINE_ENUM_VALUE(Model, BASE_COLOR);
  SO_NODE_DEFINE_ENUM_VALUE(Model, PHONG);
  SO_NODE_ADD_FIELD(model, (PHONG));
  SO_NODE_SET_SF_ENUM_TYPE(model, Model);
}

SoLightModel::~SoLightModel() = default;

void SoLightModel::initClass() { SO_NODE_INIT_CLASS(SoLightModel, SoNode, "Node"); }

SO_NODE_SOURCE(SoMaterialBinding)

SoMaterialBinding::SoMaterialBinding() {
  SO_NODE_CONSTRUCTOR(SoMaterialBinding);
  SO_NODE_DEFINE_ENUM_VALUE(Binding, OVERALL);
  SO_NODE_DEFINE_ENUM_VALUE(Binding, PER_PART);
  SO_NODE_DEFINE_ENUM_VALUE(Binding, PER_PART_INDEXED);
  SO_NODE_DEFINE_ENUM_VALUE(Binding, PER_FACE);
  SO_NODE_DEFINE_ENUM_VALUE(Binding, PER_FACE_INDEXED);
  SO_NODE_DEFINE_ENUM_VALUE(Binding, PER_VERTEX);
  SO_NODE_DEFINE_ENUM_VALUE(Binding, PER_VERTEX_INDEXED);
  SO_NODE_ADD_FIELD(value, (OVERALL));
  SO_NODE_SET_SF_ENUM_TYPE(value, Binding);
}

SoMaterialBinding::~SoMaterialBinding() = default;

void SoMaterialBinding::initClass() { SO_NODE_INIT_CLASS(SoMaterialBinding, SoNode, "Node"); }

SO_NODE_SOURCE(SoNormalBinding)

SoNormalBinding::SoNormalBinding() {
  SO_NODE_CONSTRUCTOR(SoNormalBinding);
  SO_NODE_DEFINE_ENUM_VALUE(Binding, OVERALL);
  SO_NODE_DEFINE_ENUM_VALUE(Binding, PER_PART);
  SO_NODE_DEFINE_ENUM_VALUE(Binding, PER_PART_INDEXED);
  SO_NODE_DEFINE_ENUM_VALUE(Binding, PER_FACE);
  SO_NODE_DEFINE_ENUM_VALUE(Binding, PER_FACE_INDEXED);
  SO_NODE_DEFINE_ENUM_VALUE(Binding, PER_VERTEX);
  SO_NODE_DEFINE_ENUM_VALUE(Binding, PER_VERTEX_INDEXED);
  SO_NODE_ADD_FIELD(value, (PER_VERTEX_INDEXED));
  SO_NODE_SET_SF_ENUM_TYPE(value, Binding);
}

SoNormalBinding::~SoNormalBinding() = default;

void SoNormalBinding::initClass() { SO_NODE_INIT_CLASS(SoNormalBinding, SoNode, "Node"); }

SO_NODE_SOURCE(SoPickStyle)

SoPickStyle::SoPickStyle() {
  SO_NODE_CONSTRUCTOR(SoPickStyle);
  SO_NODE_DEFINE_ENUM_VALUE(Style, SHAPE);
  SO_NODE_DEFINE_ENUM_VALUE(Style, BOUNDING_BOX);
  SO_NODE_DEFINE_ENUM_VALUE(Style, UNPICKABLE);
  SO_NODE_ADD_FIELD(style, (SHAPE));
  SO_NODE_SET_SF_ENUM_TYPE(style, Style);
}

SoPickStyle::~SoPickStyle() = default;

void SoPickStyle::initClass() { SO_NODE_INIT_CLASS(SoPickStyle, SoNode, "Node"); }

SO_NODE_SOURCE(SoCoordinate3)

SoCoordinate3::SoCoordinate3() {
  SO_NODE_CONSTRUCTOR(SoCoordinate3);
  SO_NODE_ADD_FIELD(point, (0.0f, 0.0f, 0.0f));
}

SoCoordinate3::~SoCoordinate3() = default;

void SoCoordinate3::initClass() { SO_NODE_INIT_CLASS(SoCoordinate3, SoNode, "Node"); }

SO_NODE_SOURCE(SoNormal)

SoNormal::SoNormal() {
  SO_NODE_CONSTRUCTOR(SoNormal);
  SO_NODE_ADD_FIELD(vector, (0.0f, 0.0f, 0.0f));
  vector.setNum(0);
  vector.setDefault(true);
}

SoNormal::~SoNormal() = default;

void SoNormal::initClass() { SO_NODE_INIT_CLASS(SoNormal, SoNode, "Node"); }

SO_NODE_SOURCE(SoTextureCoordinate2)

SoTextureCoordinate2::SoTextureCoordinate2() {
  SO_NODE_CONSTRUCTOR(SoTextureCoordinate2);
  SO_NODE_ADD_FIELD(point, (0.0f, 0.0f));
}

SoTextureCoordinate2::~SoTextureCoordinate2() = default;

void SoTextureCoordinate2::initClass() { SO_NODE_INIT_CLASS(SoTextureCoordinate2, SoNode, "Node"); }

SO_NODE_SOURCE(SoDepthBuffer)

SoDepthBuffer::SoDepthBuffer() {
  SO_NODE_CONSTRUCTOR(SoDepthBuffer);
  SO_NODE_DEFINE_ENUM_VALUE(DepthWriteFunctions, NEVER);
  SO_NODE_DEFINE_ENUM_VALUE(DepthWriteFunctions, LESS);
  SO_NODE_DEFINE_ENUM_VALUE(DepthWriteFunctions, EQUAL);
  SO_NODE_DEFINE_ENUM_VALUE(DepthWriteFunctions, LEQUAL);
  SO_NODE_DEFINE_ENUM_VALUE(DepthWriteFunctions, GREATER);
  SO_NODE_DEFINE_ENUM_VALUE(DepthWriteFunctions, NOTEQUAL);
  SO_NODE_DEFINE_ENUM_VALUE(DepthWriteFunctions, GEQUAL);
  SO_NODE_DEFINE_ENUM_VALUE(DepthWriteFunctions, ALWAYS);
  SO_NODE_ADD_FIELD(test, (true));
  SO_NODE_ADD_FIELD(write, (true));
  SO_NODE_ADD_FIELD(function, (LESS));
  SO_NODE_ADD_FIELD(range, (0.0f, 1.0f));
  SO_NODE_SET_SF_ENUM_TYPE(function, DepthWriteFunctions);
}

SoDepthBuffer::~SoDepthBuffer() = default;

void SoDepthBuffer::initClass() { SO_NODE_INIT_CLASS(SoDepthBuffer, SoNode, "Node"); }
