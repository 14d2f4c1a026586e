#include <Orvex/actions/SoGLRenderAction.h>

#include <Orvex/elements/SoDrawStyleElement.h>
#include <Orvex/elements/SoGLLightIdElement.h>
#include <Orvex/elements/SoViewportRegionElement.h>
#include <Orvex/nodes/SoLight.h>
#include <Orvex/nodes/SoNode.h>
#include <Orvex/nodes/SoShape.h>
#include <Orvex/nodes/SoWWWInline.h>

#include <GL/gl.h>

#include <mutex>

#include "actions/EnabledElements.h"
#include "render/GLInlineBox.h"
#include "render/GLLights.h"
#include "render/GLRenderCaches.h"
#include "render/GLShapeDrawer.h"

SO_ACTION_SOURCE(SoGLRenderAction)

void SoGLRenderAction::initClass() {
  // The library is loaded after the toolkit has set up its actions, so the
  // class sets itself up on first use; once only, whatever the thread.
  static std::once_flag once;
  std::call_once(once, [] {
    SoGLLightIdElement::initClass();
    SO_ACTION_INIT_CLASS(SoGLRenderAction, SoAction);
    SO_ACTION_ADD_METHOD(SoNode, &SoGLRenderAction::renderNode);
    SO_ACTION_ADD_METHOD(SoShape, &SoGLRenderAction::renderShape);
    SO_ACTION_ADD_METHOD(SoLight, &SoGLRenderAction::renderLight);
    SO_ACTION_ADD_METHOD(SoWWWInline, &orvex::renderWWWInline);
    orvex::enableShapeElements<SoGLRenderAction>();
    SO_ENABLE(SoGLRenderAction, SoGLLightIdElement);
  });
}

SoGLRenderAction::SoGLRenderAction(const SbViewportRegion& viewportRegion)
    : m_viewport(viewportRegion), m_caches(std::make_unique<orvex::GLRenderCaches>()) {
  initClass();
  SO_ACTION_CONSTRUCTOR(SoGLRenderAction);
}

SoGLRenderAction::~SoGLRenderAction() = default;

void SoGLRenderAction::setViewportRegion(const SbViewportRegion& region) { m_viewport = region; }

int SoGLRenderAction::getNumActiveLights() const {
  SoState* state = getState();
  return state && isBeingApplied() ? SoGLLightIdElement::get(state) + 1 : 0;
}

void SoGLRenderAction::invalidateCaches() { m_caches->clear(); }

void SoGLRenderAction::beginTraversal(SoNode* node) {
  SoState* state = getState();
  SoViewportRegionElement::set(state, m_viewport);
  const SbVec2s origin = m_viewport.getViewportOriginPixels();
  const SbVec2s size = m_viewport.getViewportSizePixels();
  glViewport(origin[0], origin[1], size[0], size[1]);
  // Scaled transformations must not change the lighting.
  glEnable(GL_NORMALIZE);
  glShadeModel(GL_SMOOTH);
  m_caches->beginTraversal();
  traverse(node);
  m_caches->endTraversal();
  // Leave the fixed-function state as a caller expects to find it.
  glDisable(GL_LIGHTING);
  glDisable(GL_BLEND);
  glDisable(GL_CULL_FACE);
  glDepthMask(GL_TRUE);
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
}

void SoGLRenderAction::renderNode(SoAction* action, SoNode* node) { node->doAction(action); }

void SoGLRenderAction::generatePrimitives(SoShape* shape, SoAction* action) { shape->generatePrimitives(action); }

void SoGLRenderAction::renderShape(SoAction* action, SoNode* node) {
  auto* self = static_cast<SoGLRenderAction*>(action);
  auto* shape = static_cast<SoShape*>(node);
  SoState* state = action->getState();
  if (SoDrawStyleElement::get(state) == SoDrawStyleElement::INVISIBLE) return;
  orvex::GLShapeCache* cache = self->m_caches->find(shape, state, shape->getNodeId());
  if (!cache) {
    auto fresh = std::make_unique<orvex::GLShapeCache>(state, shape->getNodeId());
    orvex::GLArrayCollector collector(fresh->arrays);
    {
      orvex::PrimitiveScope scope(orvex::PrimitiveScope::COLLECT, action, shape, &collector);
      generatePrimitives(shape, action);
    }
    cache = self->m_caches->store(shape, std::move(fresh));
  }
  orvex::GLDrawSettings settings;
  settings.transparency = self->m_transparencyType;
  settings.lights = &self->m_caches->lights();
  settings.numLights = SoGLLightIdElement::get(state) + 1;
  orvex::drawShapeArrays(state, cache->arrays, settings);
}

void SoGLRenderAction::renderLight(SoAction* action, SoNode* node) {
  auto* self = static_cast<SoGLRenderAction*>(action);
  SoState* state = action->getState();
  orvex::GLLightSource source;
  if (!orvex::makeLightSource(state, static_cast<SoLight*>(node), source)) return;
  const int32_t id = SoGLLightIdElement::increment(state);
  if (id < 0) return;
  self->m_caches->lights()[static_cast<size_t>(id)] = source;
}
