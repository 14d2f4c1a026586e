#include "GLShapeDrawer.h"

#include <Orvex/elements/SoDepthBufferElement.h>
#include <Orvex/elements/SoDrawStyleElement.h>
#include <Orvex/elements/SoLazyElement.h>
#include <Orvex/elements/SoLineWidthElement.h>
#include <Orvex/elements/SoModelMatrixElement.h>
#include <Orvex/elements/SoPointSizeElement.h>
#include <Orvex/elements/SoProjectionMatrixElement.h>
#include <Orvex/elements/SoShapeHintsElement.h>
#include <Orvex/elements/SoViewingMatrixElement.h>

#include <GL/gl.h>
#include <GL/glext.h>

#include <algorithm>

#include "GLLights.h"
#include "GLTextures.h"

namespace orvex {

namespace {

GLenum depthFunction(SoDepthBufferElement::DepthWriteFunctions f) {
  switch (f) {
    case SoDepthBufferElement::NEVER: return GL_NEVER;
    case SoDepthBufferElement::LESS: return GL_LESS;
    case SoDepthBufferElement::EQUAL: return GL_EQUAL;
    case SoDepthBufferElement::LEQUAL: return GL_LEQUAL;
    case SoDepthBufferElement::GREATER: return GL_GREATER;
    case SoDepthBufferElement::NOTEQUAL: return GL_NOTEQUAL;
    case SoDepthBufferElement::GEQUAL: return GL_GEQUAL;
    case SoDepthBufferElement::ALWAYS: return GL_ALWAYS;
  }
  return GL_LESS;
}

void sendDepth(SoState* state) {
  bool test = true, write = true;
  SoDepthBufferElement::DepthWriteFunctions function = SoDepthBufferElement::LESS;
  SbVec2f range(0.0f, 1.0f);
  SoDepthBufferElement::get(state, test, write, function, range);
  if (test)
    glEnable(GL_DEPTH_TEST);
  else
    glDisable(GL_DEPTH_TEST);
  glDepthMask(write ? GL_TRUE : GL_FALSE);
  glDepthFunc(depthFunction(function));
  glDepthRange(range[0], range[1]);
}

// Back faces are culled for solid shapes whose vertex ordering is known;
// faces of other shapes with a known ordering are lit on both sides.
void sendShapeHints(SoState* state) {
  SoShapeHintsElement::VertexOrderings ordering;
  SoShapeHintsElement::ShapeTypes shapeType;
  SoShapeHintsElement::FaceTypes faceType;
  SoShapeHintsElement::get(state, ordering, shapeType, faceType);
  const bool known = ordering == SoShapeHintsElement::CLOCKWISE || ordering == SoShapeHintsElement::COUNTERCLOCKWISE;
  glFrontFace(ordering == SoShapeHintsElement::CLOCKWISE ? GL_CW : GL_CCW);
  if (known && shapeType == SoShapeHintsElement::SOLID) {
    glEnable(GL_CULL_FACE);
    glCullFace(GL_BACK);
  } else {
    glDisable(GL_CULL_FACE);
  }
  glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, known && shapeType != SoShapeHintsElement::SOLID ? GL_TRUE : GL_FALSE);
}

void sendDrawStyle(SoState* state) {
  switch (SoDrawStyleElement::get(state)) {
    case SoDrawStyleElement::LINES: glPolygonMode(GL_FRONT_AND_BACK, GL_LINE); break;
    case SoDrawStyleElement::POINTS: glPolygonMode(GL_FRONT_AND_BACK, GL_POINT); break;
    default: glPolygonMode(GL_FRONT_AND_BACK, GL_FILL); break;
  }
  const float width = SoLineWidthElement::get(state);
  glLineWidth(width > 0.0f ? width : 1.0f);
  const float size = SoPointSizeElement::get(state);
  glPointSize(size > 0.0f ? size : 1.0f);
}

void setColor4(GLenum face, GLenum pname, const SbColor& c, float alpha) {
  const GLfloat v[4] = {c[0], c[1], c[2], alpha};
  glMaterialfv(face, pname, v);
}

// The material terms other than the diffuse colour, which comes with each
// vertex (colour material).
void sendMaterial(SoState* state) {
  setColor4(GL_FRONT_AND_BACK, GL_AMBIENT, SoLazyElement::getAmbient(state), 1.0f);
  setColor4(GL_FRONT_AND_BACK, GL_SPECULAR, SoLazyElement::getSpecular(state), 1.0f);
  setColor4(GL_FRONT_AND_BACK, GL_EMISSION, SoLazyElement::getEmissive(state), 1.0f);
  glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, std::clamp(SoLazyElement::getShininess(state), 0.0f, 1.0f) * 128.0f);
  glColorMaterial(GL_FRONT_AND_BACK, GL_DIFFUSE);
  glEnable(GL_COLOR_MATERIAL);
}

// The diffuse colour and opacity of each vertex, from its material index.
// Answers whether any vertex is transparent.
bool vertexColors(SoState* state, const GLVertexArray& array, bool opaque, std::vector<float>& colors) {
  colors.resize(array.size() * 4);
  bool transparent = false;
  for (size_t i = 0; i < array.size(); ++i) {
    const int index = array.materials[i];
    const SbColor& c = SoLazyElement::getDiffuse(state, index);
    const float alpha = opaque ? 1.0f : 1.0f - std::clamp(SoLazyElement::getTransparency(state, index), 0.0f, 1.0f);
    if (alpha < 1.0f) transparent = true;
    colors[i * 4 + 0] = c[0];
    colors[i * 4 + 1] = c[1];
    colors[i * 4 + 2] = c[2];
    colors[i * 4 + 3] = alpha;
  }
  return transparent;
}

bool isAdditive(SoGLRenderAction::TransparencyType type) {
  switch (type) {
    case SoGLRenderAction::ADD:
    case SoGLRenderAction::DELAYEDADD:
    case SoGLRenderAction::SORTEDOBJECTADD:
    case SoGLRenderAction::SORTEDOBJECTTRIANGLESADD:
    case SoGLRenderAction::SORTEDTRIANGLESADD: return true;
    default: return false;
  }
}

// Blending for transparent vertices. The destination alpha accumulates
// coverage (source alpha over what was there), so that a picture read
// with alpha shows where something was drawn.
void sendBlending(bool transparent, SoGLRenderAction::TransparencyType type) {
  if (!transparent) {
    glDisable(GL_BLEND);
    return;
  }
  glEnable(GL_BLEND);
  if (isAdditive(type))
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
  else
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
}

void drawArray(SoState* state, const GLVertexArray& array, GLenum mode, bool lit,
               const GLDrawSettings& settings) {
  if (array.size() == 0) return;
  if (lit)
    glEnable(GL_LIGHTING);
  else
    glDisable(GL_LIGHTING);
  std::vector<float> colors;
  const bool opaque = settings.transparency == SoGLRenderAction::NOTRANSPARENCY;
  sendBlending(vertexColors(state, array, opaque, colors), settings.transparency);
  glEnableClientState(GL_VERTEX_ARRAY);
  glVertexPointer(3, GL_FLOAT, 0, array.positions.data());
  glEnableClientState(GL_COLOR_ARRAY);
  glColorPointer(4, GL_FLOAT, 0, colors.data());
  const GLTextureScope texture(state, array, !opaque);
  if (lit) {
    glEnableClientState(GL_NORMAL_ARRAY);
    glNormalPointer(GL_FLOAT, 0, array.normals.data());
  } else {
    glDisableClientState(GL_NORMAL_ARRAY);
  }
  glDrawArrays(mode, 0, static_cast<GLsizei>(array.size()));
  glDisableClientState(GL_NORMAL_ARRAY);
  glDisableClientState(GL_COLOR_ARRAY);
  glDisableClientState(GL_VERTEX_ARRAY);
}

}  // namespace

void drawShapeArrays(SoState* state, const GLShapeArrays& arrays, const GLDrawSettings& settings) {
  const bool phong = SoLazyElement::getLightModel(state) == SoLazyElement::PHONG;
  if (phong && settings.lights) sendLightSources(*settings.lights, settings.numLights);
  glMatrixMode(GL_PROJECTION);
  glLoadMatrixf(&SoProjectionMatrixElement::get(state)[0][0]);
  glMatrixMode(GL_MODELVIEW);
  const SbMatrix modelView = SoModelMatrixElement::get(state) * SoViewingMatrixElement::get(state);
  glLoadMatrixf(&modelView[0][0]);

  sendDepth(state);
  sendShapeHints(state);
  sendDrawStyle(state);
  sendMaterial(state);
  drawArray(state, arrays.triangles, GL_TRIANGLES, phong, settings);
  drawArray(state, arrays.lines, GL_LINES, phong && arrays.lines.hasNormals, settings);
  drawArray(state, arrays.points, GL_POINTS, phong && arrays.points.hasNormals, settings);
}

}  // namespace orvex
