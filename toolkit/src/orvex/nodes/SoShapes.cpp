// The shapes.

#include <Orvex/nodes/SoShape.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoSphere.h>
#include <Orvex/nodes/SoCone.h>
#include <Orvex/nodes/SoCylinder.h>
#include <Orvex/nodes/SoVertexShape.h>
#include <Orvex/nodes/SoNonIndexedShape.h>
#include <Orvex/nodes/SoPointSet.h>
#include <Orvex/nodes/SoLineSet.h>
#include <Orvex/nodes/SoFaceSet.h>
#include <Orvex/nodes/SoTriangleStripSet.h>
#include <Orvex/nodes/SoIndexedShape.h>
#include <Orvex/nodes/SoIndexedLineSet.h>
#include <Orvex/nodes/SoIndexedFaceSet.h>

SO_NODE_ABSTRACT_SOURCE(SoShape)

SoShape::SoShape() {
  SO_NODE_CONSTRUCTOR(SoShape);
}

SoShape::~SoShape() = default;

void SoShape::initClass() { SO_NODE_INIT_ABSTRACT_CLASS(SoShape, SoNode, "Node"); }

bool SoShape::affectsState() const { return false; }

SO_NODE_SOURCE(SoCube)

SoCube::SoCube() {
  SO_NODE_CONSTRUCTOR(SoCube);
  SO_NODE_ADD_FIELD(width, (2.0f));
  SO_NODE_ADD_FIELD(height, (2.0f));
  SO_NODE_ADD_FIELD(depth, (2.0f));
}

SoCube::~SoCube() = default;

void SoCube::initClass() { SO_NODE_INIT_CLASS(SoCube, SoShape, "Shape"); }

SO_NODE_SOURCE(SoSphere)

SoSphere::SoSphere() {
  SO_NODE_CONSTRUCTOR(SoSphere);
  SO_NODE_ADD_FIELD(radius, (1.0f));
}

SoSphere::~SoSphere() = default;

void SoSphere::initClass() { SO_NODE_INIT_CLASS(SoSphere, SoShape, "Shape"); }

SO_NODE_SOURCE(SoCone)

SoCone::SoCone() {
  SO_NODE_CONSTRUCTOR(SoCone);
  SO_NODE_DEFINE_ENUM_VALUE(PartType, SIDES);
  SO_NODE_DEFINE_ENUM_VALUE(PartType, BOTTOM);
  SO_NODE_DEFINE_ENUM_VALUE(PartType, ALL);
  SO_NODE_ADD_FIELD(parts, (ALL));
  SO_NODE_ADD_FIELD(bottomRadius, (1.0f));
  SO_NODE_ADD_FIELD(height, (2.0f));
  SO_NODE_SET_SF_ENUM_TYPE(parts, PartType);
}

SoCone::~SoCone() = default;

void SoCone::initClass() { SO_NODE_INIT_CLASS(SoCone, SoShape, "Shape"); }

void SoCone::addPart(PartType part) { parts = parts.getValue() | part; }
void SoCone::removePart(PartType part) { parts = parts.getValue() & ~part; }
bool SoCone::hasPart(PartType part) const { return (parts.getValue() & part) == part; }

SO_NODE_SOURCE(SoCylinder)

SoCylinder::SoCylinder() {
  SO_NODE_CONSTRUCTOR(SoCylinder);
  SO_NODE_DEFINE_ENUM_VALUE(PartType, SIDES);
  SO_NODE_DEFINE_ENUM_VALUE(PartType, TOP);
  SO_NODE_DEFINE_ENUM_VALUE(PartType, BOTTOM);
  SO_NODE_DEFINE_ENUM_VALUE(PartType, ALL);
  SO_NODE_ADD_FIELD(parts, (ALL));
  SO_NODE_ADD_FIELD(radius, (1.0f));
  SO_NODE_ADD_FIELD(height, (2.0f));
  SO_NODE_SET_SF_ENUM_TYPE(parts, PartType);
}

SoCylinder::~SoCylinder() = default;

void SoCylinder::initClass() { SO_NODE_INIT_CLASS(SoCylinder, SoShape, "Shape"); }

void SoCylinder::addPart(PartType part) { parts = parts.getValue() | part; }
void SoCylinder::removePart(PartType part) { parts = parts.getValue() & ~part; }
bool SoCylinder::hasPart(PartType part) const { return (parts.getValue() & part) == part; }

SO_NODE_ABSTRACT_SOURCE(SoVertexShape)

SoVertexShape::SoVertexShape() {
  SO_NODE_CONSTRUCTOR(SoVertexShape);
  SO_NODE_ADD_FIELD(vertexProperty, (nullptr));
}

SoVertexShape::~SoVertexShape() = default;

void SoVertexShape::initClass() { SO_NODE_INIT_ABSTRACT_CLASS(SoVertexShape, SoShape, "Shape"); }

SO_NODE_ABSTRACT_SOURCE(SoNonIndexedShape)

SoNonIndexedShape::SoNonIndexedShape() {
  SO_NODE_CONSTRUCTOR(SoNonIndexedShape);
  SO_NODE_ADD_FIELD(startIndex, (0));
}

SoNonIndexedShape::~SoNonIndexedShape() = default;

void SoNonIndexedShape::initClass() { SO_NODE_INIT_ABSTRACT_CLASS(SoNonIndexedShape, SoVertexShape, "VertexShape"); }

SO_NODE_SOURCE(SoPointSet)

SoPointSet::SoPointSet() {
  SO_NODE_CONSTRUCTOR(SoPointSet);
  SO_NODE_ADD_FIELD(numPoints, (-1));
}

SoPointSet::~SoPointSet() = default;

void SoPointSet::initClass() { SO_NODE_INIT_CLASS(SoPointSet, SoNonIndexedShape, "NonIndexedShape"); }

SO_NODE_SOURCE(SoLineSet)

SoLineSet::SoLineSet() {
  SO_NODE_CONSTRUCTOR(SoLineSet);
  SO_NODE_ADD_FIELD(numVertices, (-1));
}

SoLineSet::~SoLineSet() = default;

void SoLineSet::initClass() { SO_NODE_INIT_CLASS(SoLineSet, SoNonIndexedShape, "NonIndexedShape"); }

SO_NODE_SOURCE(SoFaceSet)

SoFaceSet::SoFaceSet() {
  SO_NODE_CONSTRUCTOR(SoFaceSet);
  SO_NODE_ADD_FIELD(numVertices, (-1));
}

SoFaceSet::~SoFaceSet() = default;

void SoFaceSet::initClass() { SO_NODE_INIT_CLASS(SoFaceSet, SoNonIndexedShape, "NonIndexedShape"); }

SO_NODE_SOURCE(SoTriangleStripSet)

SoTriangleStripSet::SoTriangleStripSet() {
  SO_NODE_CONSTRUCTOR(SoTriangleStripSet);
  SO_NODE_ADD_FIELD(numVertices, (-1));
}

SoTriangleStripSet::~SoTriangleStripSet() = default;

void SoTriangleStripSet::initClass() { SO_NODE_INIT_CLASS(SoTriangleStripSet, SoNonIndexedShape, "NonIndexedShape"); }

SO_NODE_ABSTRACT_SOURCE(SoIndexedShape)

SoIndexedShape::SoIndexedShape() {
  SO_NODE_CONSTRUCTOR(SoIndexedShape);
  SO_NODE_ADD_FIELD(coordIndex, (0));
  SO_NODE_ADD_FIELD(materialIndex, (-1));
  SO_NODE_ADD_FIELD(normalIndex, (-1));
  SO_NODE_ADD_FIELD(textureCoordIndex, (-1));
}

SoIndexedShape::~SoIndexedShape() = default;

void SoIndexedShape::initClass() { SO_NODE_INIT_ABSTRACT_CLASS(SoIndexedShape, SoVertexShape, "VertexShape"); }

SO_NODE_SOURCE(SoIndexedLineSet)

SoIndexedLineSet::SoIndexedLineSet() {
  SO_NODE_CONSTRUCTOR(SoIndexedLineSet);
}

SoIndexedLineSet::~SoIndexedLineSet() = default;

void SoIndexedLineSet::initClass() { SO_NODE_INIT_CLASS(SoIndexedLineSet, SoIndexedShape, "IndexedShape"); }

SO_NODE_SOURCE(SoIndexedFaceSet)

SoIndexedFaceSet::SoIndexedFaceSet() {
  SO_NODE_CONSTRUCTOR(SoIndexedFaceSet);
}

SoIndexedFaceSet::~SoIndexedFaceSet() = default;

void SoIndexedFaceSet::initClass() { SO_NODE_INIT_CLASS(SoIndexedFaceSet, SoIndexedShape, "IndexedShape"); }
