#include "GLShapeDrawer.h"

#include <Orvex/elements/SoDepthBufferElement.h>
#include <Orvex/elements/SoLazyElement.h>
#include <Orvex/elements/SoModelMatrixElement.h>
#include <Orvex/elements/SoProjectionMatrixElement.h>
#include <Orvex/elements/SoViewingMatrixElement.h>

#include <GL/gl.h>
#include <GL/glext.h>

#include <algorithm>

#include "GLLights.h"
#include "GLTextures.h"

namespace orvex {

namespace {

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
void sendBlending(bool transparent, const GLDrawSettings& settings) {
  const SoGLRenderAction::TransparencyType type = settings.transparency;
  if (!transparent) {
    glDisable(GL_BLEND);
    return;
  }
  if (settings.keepDepthForTransparent) glDepthMask(GL_FALSE);
  glEnable(GL_BLEND);
  if (isAdditive(type))
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
  else
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
}

// Depth writes as the depth-buffer element has them, after a transparent
// shape drawn without.
void restoreDepthWrites(SoState* state) {
  bool test = true, write = true;
  SoDepthBufferElement::DepthWriteFunctions function = SoDepthBufferElement::LESS;
  SbVec2f range(0.0f, 1.0f);
  SoDepthBufferElement::get(state, test, write, function, range);
  glDepthMask(write ? GL_TRUE : GL_FALSE);
}

// Whether every vertex takes the same diffuse colour and transparency
// (one of each in the material), so that one colour serves the shape.
bool singleMaterial(SoState* state) {
  const SoLazyElement* lazy = SoLazyElement::getInstance(state);
  return !lazy || (lazy->getNumDiffuse() <= 1 && lazy->getNumTransparencies() <= 1);
}

// Points OpenGL at an array: in the buffer object when one can be used,
// else in client memory.
template <typename Pointer>
void arrayPointer(GLBufferObject& buffer, const std::vector<float>& values, Pointer&& point) {
  if (buffer.bind(values.data(), values.size() * sizeof(float))) {
    point(nullptr);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
  } else {
    point(values.data());
  }
}

void drawArray(SoState* state, GLVertexArray& array, GLenum mode, bool lit, const GLDrawSettings& settings) {
  if (array.size() == 0) return;
  if (lit)
    glEnable(GL_LIGHTING);
  else
    glDisable(GL_LIGHTING);
  const bool opaque = settings.transparency == SoGLRenderAction::NOTRANSPARENCY;
  std::vector<float> colors;
  if (singleMaterial(state)) {
    const SbColor& c = SoLazyElement::getDiffuse(state, 0);
    const float alpha = opaque ? 1.0f : 1.0f - std::clamp(SoLazyElement::getTransparency(state, 0), 0.0f, 1.0f);
    sendBlending(alpha < 1.0f, settings);
    glDisableClientState(GL_COLOR_ARRAY);
    glColor4f(c[0], c[1], c[2], alpha);
  } else {
    sendBlending(vertexColors(state, array, opaque, colors), settings);
    glEnableClientState(GL_COLOR_ARRAY);
    glColorPointer(4, GL_FLOAT, 0, colors.data());
  }
  glEnableClientState(GL_VERTEX_ARRAY);
  arrayPointer(*array.positionBuffer, array.positions,
               [](const void* p) { glVertexPointer(3, GL_FLOAT, 0, p); });
  const GLTextureScope texture(state, array, !opaque);
  if (lit) {
    glEnableClientState(GL_NORMAL_ARRAY);
    arrayPointer(*array.normalBuffer, array.normals, [](const void* p) { glNormalPointer(GL_FLOAT, 0, p); });
  } else {
    glDisableClientState(GL_NORMAL_ARRAY);
  }
  glDrawArrays(mode, 0, static_cast<GLsizei>(array.size()));
  if (settings.keepDepthForTransparent) restoreDepthWrites(state);
  glDisableClientState(GL_NORMAL_ARRAY);
  glDisableClientState(GL_COLOR_ARRAY);
  glDisableClientState(GL_VERTEX_ARRAY);
}

}  // namespace

bool materialIsTransparent(SoState* state) {
  const SoLazyElement* lazy = SoLazyElement::getInstance(state);
  if (!lazy) return false;
  const float* values = lazy->getTransparencyPointer();
  if (!values) return false;
  for (int32_t i = 0; i < lazy->getNumTransparencies(); ++i)
    if (values[i] > 0.0f) return true;
  return false;
}

void drawShapeArrays(SoState* state, GLShapeArrays& arrays, const GLDrawSettings& settings) {
  const bool phong = SoLazyElement::getLightModel(state) == SoLazyElement::PHONG;
  if (phong && settings.lights) sendLightSources(*settings.lights, settings.numLights);
  glMatrixMode(GL_PROJECTION);
  const SbMatrix projection = SoProjectionMatrixElement::get(state) * settings.pictureTransform;
  glLoadMatrixf(&projection[0][0]);
  glMatrixMode(GL_MODELVIEW);
  const SbMatrix modelView = SoModelMatrixElement::get(state) * SoViewingMatrixElement::get(state);
  glLoadMatrixf(&modelView[0][0]);

  // Depth, shape hints, draw style, line width and point size are the
  // OpenGL elements' to send (see SoGLRenderAction).
  sendMaterial(state);
  drawArray(state, arrays.triangles, GL_TRIANGLES, phong, settings);
  drawArray(state, arrays.lines, GL_LINES, phong && arrays.lines.hasNormals, settings);
  drawArray(state, arrays.points, GL_POINTS, phong && arrays.points.hasNormals, settings);
}

}  // namespace orvex
