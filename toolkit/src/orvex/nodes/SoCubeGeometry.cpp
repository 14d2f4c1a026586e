// The cube's primitives and box: six faces of two triangles each.

#include <Orvex/SoPrimitiveVertex.h>
#include <Orvex/actions/SoAction.h>
#include <Orvex/details/SoCubeDetail.h>
#include <Orvex/elements/SoMaterialBindingElement.h>
#include <Orvex/nodes/SoCube.h>

namespace {

// Each face: its outward normal and its corners counter-clockwise seen
// from outside, starting at the corner where the texture's (0, 0) goes
// (texture s to the right and t up, seen from outside; the top face is
// seen with -z up, the bottom face with +z up). Corners are given as signs
// of the half extents.
struct CubeFace {
  float normal[3];
  float corners[4][3];
};

const CubeFace kFaces[6] = {
    {{0, 0, 1}, {{-1, -1, 1}, {1, -1, 1}, {1, 1, 1}, {-1, 1, 1}}},          // front
    {{0, 0, -1}, {{1, -1, -1}, {-1, -1, -1}, {-1, 1, -1}, {1, 1, -1}}},     // back
    {{-1, 0, 0}, {{-1, -1, -1}, {-1, -1, 1}, {-1, 1, 1}, {-1, 1, -1}}},     // left
    {{1, 0, 0}, {{1, -1, 1}, {1, -1, -1}, {1, 1, -1}, {1, 1, 1}}},          // right
    {{0, 1, 0}, {{-1, 1, 1}, {1, 1, 1}, {1, 1, -1}, {-1, 1, -1}}},          // top
    {{0, -1, 0}, {{-1, -1, -1}, {1, -1, -1}, {1, -1, 1}, {-1, -1, 1}}},     // bottom
};

const float kTex[4][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};

}  // namespace

void SoCube::computeBBox(SoAction*, SbBox3f& box, SbVec3f& center) {
  const float w = width.getValue() / 2, h = height.getValue() / 2, d = depth.getValue() / 2;
  box.setBounds(SbVec3f(-std::fabs(w), -std::fabs(h), -std::fabs(d)), SbVec3f(std::fabs(w), std::fabs(h), std::fabs(d)));
  center.setValue(0.0f, 0.0f, 0.0f);
}

void SoCube::generatePrimitives(SoAction* action) {
  const SbVec3f half(width.getValue() / 2, height.getValue() / 2, depth.getValue() / 2);
  const SoMaterialBindingElement::Binding binding = SoMaterialBindingElement::get(action->getState());
  const bool perFace = binding == SoMaterialBindingElement::PER_PART ||
                       binding == SoMaterialBindingElement::PER_PART_INDEXED ||
                       binding == SoMaterialBindingElement::PER_FACE ||
                       binding == SoMaterialBindingElement::PER_FACE_INDEXED;
  const bool perVertex = binding == SoMaterialBindingElement::PER_VERTEX ||
                         binding == SoMaterialBindingElement::PER_VERTEX_INDEXED;
  SoPrimitiveVertex pv;
  SoCubeDetail detail;
  for (int f = 0; f < 6; ++f) {
    const CubeFace& face = kFaces[f];
    detail.setPart(f);
    pv.setDetail(&detail);
    pv.setNormal(face.normal[0], face.normal[1], face.normal[2]);
    beginShape(action, QUADS, &detail);
    for (int c = 0; c < 4; ++c) {
      pv.setPoint(face.corners[c][0] * half[0], face.corners[c][1] * half[1], face.corners[c][2] * half[2]);
      pv.setTextureCoords(SbVec4f(kTex[c][0], kTex[c][1], 0.0f, 1.0f));
      pv.setMaterialIndex(perFace ? f : perVertex ? f * 4 + c : 0);
      shapeVertex(&pv);
    }
    endShape();
  }
}

SoDetail* SoCube::createTriangleDetail(SoRayPickAction*, const SoPrimitiveVertex* v1, const SoPrimitiveVertex*,
                                       const SoPrimitiveVertex*, SoPickedPoint*) {
  auto* detail = new SoCubeDetail;
  if (const SoDetail* d = v1->getDetail())
    if (d->isOfType(SoCubeDetail::getClassTypeId())) detail->setPart(static_cast<const SoCubeDetail*>(d)->getPart());
  return detail;
}
