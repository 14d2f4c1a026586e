#include "GLInlineBox.h"

#include <Orvex/actions/SoGLRenderAction.h>
#include <Orvex/elements/SoDrawStyleElement.h>
#include <Orvex/elements/SoModelMatrixElement.h>
#include <Orvex/elements/SoProjectionMatrixElement.h>
#include <Orvex/elements/SoViewingMatrixElement.h>
#include <Orvex/nodes/SoWWWInline.h>

#include <GL/gl.h>

namespace orvex {

namespace {

// The twelve edges of the box, unlit, in one colour, through the current
// model, viewing and projection matrices.
void drawWireBox(SoState* state, const SbBox3f& box, const SbColor& color) {
  const SbVec3f& lo = box.getMin();
  const SbVec3f& hi = box.getMax();
  GLfloat corners[8][3];
  for (int c = 0; c < 8; ++c) {
    corners[c][0] = c & 1 ? hi[0] : lo[0];
    corners[c][1] = c & 2 ? hi[1] : lo[1];
    corners[c][2] = c & 4 ? hi[2] : lo[2];
  }
  // Corner indices differ in one bit along each edge.
  static const int kEdges[12][2] = {{0, 1}, {2, 3}, {4, 5}, {6, 7}, {0, 2}, {1, 3},
                                    {4, 6}, {5, 7}, {0, 4}, {1, 5}, {2, 6}, {3, 7}};
  GLfloat lines[24][3];
  for (int e = 0; e < 12; ++e)
    for (int end = 0; end < 2; ++end)
      for (int k = 0; k < 3; ++k) lines[e * 2 + end][k] = corners[kEdges[e][end]][k];

  glMatrixMode(GL_PROJECTION);
  glLoadMatrixf(&SoProjectionMatrixElement::get(state)[0][0]);
  glMatrixMode(GL_MODELVIEW);
  const SbMatrix modelView = SoModelMatrixElement::get(state) * SoViewingMatrixElement::get(state);
  glLoadMatrixf(&modelView[0][0]);
  glDisable(GL_LIGHTING);
  glDisable(GL_TEXTURE_2D);
  glDisable(GL_BLEND);
  glEnable(GL_DEPTH_TEST);
  glDepthMask(GL_TRUE);
  glDepthFunc(GL_LESS);
  glLineWidth(1.0f);
  glColor3f(color[0], color[1], color[2]);
  glEnableClientState(GL_VERTEX_ARRAY);
  glVertexPointer(3, GL_FLOAT, 0, lines);
  glDrawArrays(GL_LINES, 0, 24);
  glDisableClientState(GL_VERTEX_ARRAY);
}

}  // namespace

void renderWWWInline(SoAction* action, SoNode* node) {
  auto* inlineNode = static_cast<SoWWWInline*>(node);
  inlineNode->doAction(action);
  const SoWWWInline::BboxVisibility visibility = SoWWWInline::getBoundingBoxVisibility();
  const bool show = visibility == SoWWWInline::ALWAYS ||
                    (visibility == SoWWWInline::UNTIL_LOADED && !inlineNode->isURLDataHere());
  if (!show) return;
  SoState* state = action->getState();
  if (SoDrawStyleElement::get(state) == SoDrawStyleElement::INVISIBLE) return;
  const SbBox3f box = inlineNode->getDeclaredBox();
  if (box.isEmpty()) return;
  drawWireBox(state, box, SoWWWInline::getBoundingBoxColor());
}

}  // namespace orvex
