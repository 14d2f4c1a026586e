#include "GLLights.h"

#include <Orvex/elements/SoGLLightIdElement.h>
#include <Orvex/elements/SoModelMatrixElement.h>
#include <Orvex/elements/SoViewingMatrixElement.h>
#include <Orvex/nodes/SoDirectionalLight.h>
#include <Orvex/nodes/SoPointLight.h>
#include <Orvex/nodes/SoSpotLight.h>

#include <GL/gl.h>

#include <algorithm>
#include <cmath>

namespace orvex {

namespace {
SbVec4f point4(const SbMatrix& m, const SbVec3f& p) {
  SbVec3f q;
  m.multVecMatrix(p, q);
  return SbVec4f(q[0], q[1], q[2], 1.0f);
}

SbVec3f direction(const SbMatrix& m, const SbVec3f& d) {
  SbVec3f q;
  m.multDirMatrix(d, q);
  q.normalize();
  return q;
}
}  // namespace

bool makeLightSource(SoState* state, const SoLight* light, GLLightSource& source) {
  if (!light->on.getValue()) return false;
  const SbMatrix toEye = SoModelMatrixElement::get(state) * SoViewingMatrixElement::get(state);
  const SbColor& c = light->color.getValue();
  const float intensity = std::max(0.0f, light->intensity.getValue());
  source = GLLightSource();
  source.color = SbVec4f(c[0] * intensity, c[1] * intensity, c[2] * intensity, 1.0f);
  if (light->isOfType(SoDirectionalLight::getClassTypeId())) {
    // OpenGL wants the direction towards the light.
    const SbVec3f d = -direction(toEye, static_cast<const SoDirectionalLight*>(light)->direction.getValue());
    source.position = SbVec4f(d[0], d[1], d[2], 0.0f);
    return true;
  }
  if (light->isOfType(SoSpotLight::getClassTypeId())) {
    const auto* spot = static_cast<const SoSpotLight*>(light);
    source.position = point4(toEye, spot->location.getValue());
    const SbVec3f d = direction(toEye, spot->direction.getValue());
    source.spotDirection = SbVec4f(d[0], d[1], d[2], 0.0f);
    source.spotExponent = std::clamp(spot->dropOffRate.getValue(), 0.0f, 1.0f) * 128.0f;
    const float degrees = spot->cutOffAngle.getValue() * 180.0f / static_cast<float>(M_PI);
    source.spotCutoff = std::clamp(degrees, 0.0f, 90.0f);
    return true;
  }
  if (light->isOfType(SoPointLight::getClassTypeId())) {
    source.position = point4(toEye, static_cast<const SoPointLight*>(light)->location.getValue());
    return true;
  }
  return false;
}

void sendLightSources(const std::vector<GLLightSource>& sources, int count) {
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  const GLfloat black[4] = {0.0f, 0.0f, 0.0f, 1.0f};
  for (int i = 0; i < SoGLLightIdElement::getMaxGLSources(); ++i) {
    const GLenum id = static_cast<GLenum>(GL_LIGHT0 + i);
    if (i >= count || i >= static_cast<int>(sources.size())) {
      glDisable(id);
      continue;
    }
    const GLLightSource& s = sources[static_cast<size_t>(i)];
    glLightfv(id, GL_AMBIENT, black);
    glLightfv(id, GL_DIFFUSE, s.color.getValue());
    glLightfv(id, GL_SPECULAR, s.color.getValue());
    glLightfv(id, GL_POSITION, s.position.getValue());
    glLightfv(id, GL_SPOT_DIRECTION, s.spotDirection.getValue());
    glLightf(id, GL_SPOT_EXPONENT, s.spotExponent);
    glLightf(id, GL_SPOT_CUTOFF, s.spotCutoff);
    glLightf(id, GL_CONSTANT_ATTENUATION, 1.0f);
    glLightf(id, GL_LINEAR_ATTENUATION, 0.0f);
    glLightf(id, GL_QUADRATIC_ATTENUATION, 0.0f);
    glEnable(id);
  }
}

}  // namespace orvex
