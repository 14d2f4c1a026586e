#pragma once
#include <Orvex/fields/SoSFNode.h>
#include <Orvex/nodes/SoShape.h>
#include <Orvex/nodes/SoSubNode.h>

// Base of the shapes made of vertices; vertexProperty may hold the vertex data
// instead of the state.
class SoVertexShape : public SoShape {
  SO_NODE_ABSTRACT_HEADER(SoVertexShape);

 public:
  SoSFNode vertexProperty;


 protected:
  SoVertexShape();
  ~SoVertexShape() override;
};
