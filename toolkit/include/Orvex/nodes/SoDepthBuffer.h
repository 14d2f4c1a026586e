#pragma once
#include <Orvex/fields/SoSFBool.h>
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/fields/SoSFVec2f.h>
#include <Orvex/nodes/SoSubNode.h>

// How the depth buffer is used for the shapes that follow: whether depth is
// tested and written, the comparison and the depth range.
class SoDepthBuffer : public SoNode {
  SO_NODE_HEADER(SoDepthBuffer);

 public:
  enum DepthWriteFunctions { NEVER = 0, LESS = 1, EQUAL = 2, LEQUAL = 3, GREATER = 4, NOTEQUAL = 5, GEQUAL = 6, ALWAYS = 7 };

  SoSFBool test;
  SoSFBool write;
  SoSFEnum function;
  SoSFVec2f range;

  SoDepthBuffer();
  void doAction(SoAction* action) override;

 protected:
  ~SoDepthBuffer() override;
};
