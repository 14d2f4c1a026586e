#include <Orvex/actions/SoGLRenderAction.h>

#include <Orvex/SoDB.h>
#include <Orvex/SoPath.h>
#include <Orvex/SoPathList.h>
#include <Orvex/elements/SoDrawStyleElement.h>
#include <Orvex/elements/SoGLDepthBufferElement.h>
#include <Orvex/elements/SoGLDrawStyleElement.h>
#include <Orvex/elements/SoGLLightIdElement.h>
#include <Orvex/elements/SoGLLinePatternElement.h>
#include <Orvex/elements/SoGLLineWidthElement.h>
#include <Orvex/elements/SoGLPointSizeElement.h>
#include <Orvex/elements/SoGLRenderPassElement.h>
#include <Orvex/elements/SoGLShapeHintsElement.h>
#include <Orvex/elements/SoGLUpdateAreaElement.h>
#include <Orvex/elements/SoGLViewportRegionElement.h>
#include <Orvex/elements/SoModelMatrixElement.h>
#include <Orvex/elements/SoViewingMatrixElement.h>
#include <Orvex/elements/SoViewportRegionElement.h>
#include <Orvex/nodes/SoLight.h>
#include <Orvex/nodes/SoNode.h>
#include <Orvex/nodes/SoShape.h>
#include <Orvex/nodes/SoText2.h>
#include <Orvex/nodes/SoWWWInline.h>

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <mutex>
#include <new>

#include "actions/EnabledElements.h"
#include "render/GLDelayedShapes.h"
#include "render/GLInlineBox.h"
#include "render/GLLights.h"
#include "render/GLPassAccumulator.h"
#include "render/GLRenderCaches.h"
#include "render/GLShapeDrawer.h"
#include "render/GLText.h"

SO_ACTION_SOURCE(SoGLRenderAction)

namespace {
// More passes than this add nothing an 8-bit channel can show.
constexpr int kMostPasses = 256;
}  // namespace

void SoGLRenderAction::initClass() {
  // The library is loaded after the toolkit has set up its actions, so the
  // class sets itself up on first use; once only, whatever the thread.
  static std::once_flag once;
  std::call_once(once, [] {
    SoGLLightIdElement::initClass();
    SoGLDrawStyleElement::initClass();
    SoGLLineWidthElement::initClass();
    SoGLLinePatternElement::initClass();
    SoGLPointSizeElement::initClass();
    SoGLDepthBufferElement::initClass();
    SoGLShapeHintsElement::initClass();
    SoGLRenderPassElement::initClass();
    SoGLUpdateAreaElement::initClass();
    SoGLViewportRegionElement::initClass();
    SO_ACTION_INIT_CLASS(SoGLRenderAction, SoAction);
    SO_ACTION_ADD_METHOD(SoNode, &SoGLRenderAction::renderNode);
    SO_ACTION_ADD_METHOD(SoShape, &SoGLRenderAction::renderShape);
    SO_ACTION_ADD_METHOD(SoLight, &SoGLRenderAction::renderLight);
    SO_ACTION_ADD_METHOD(SoText2, &orvex::renderText2);
    SO_ACTION_ADD_METHOD(SoWWWInline, &orvex::renderWWWInline);
    orvex::enableShapeElements<SoGLRenderAction>();
    SO_ENABLE(SoGLRenderAction, SoGLLightIdElement);
    // The OpenGL kinds of the shape elements take their places in the
    // state: they send their values to OpenGL as they change.
    SO_ENABLE(SoGLRenderAction, SoGLDrawStyleElement);
    SO_ENABLE(SoGLRenderAction, SoGLLineWidthElement);
    SO_ENABLE(SoGLRenderAction, SoGLLinePatternElement);
    SO_ENABLE(SoGLRenderAction, SoGLPointSizeElement);
    SO_ENABLE(SoGLRenderAction, SoGLDepthBufferElement);
    SO_ENABLE(SoGLRenderAction, SoGLShapeHintsElement);
    SO_ENABLE(SoGLRenderAction, SoGLRenderPassElement);
    SO_ENABLE(SoGLRenderAction, SoGLUpdateAreaElement);
    SO_ENABLE(SoGLRenderAction, SoGLViewportRegionElement);
  });
}

SoGLRenderAction::SoGLRenderAction(const SbViewportRegion& viewportRegion)
    : m_viewport(viewportRegion),
      m_caches(std::make_unique<orvex::GLRenderCaches>()),
      m_delayed(std::make_unique<orvex::GLDelayedShapes>()) {
  initClass();
  SO_ACTION_CONSTRUCTOR(SoGLRenderAction);
}

SoGLRenderAction::~SoGLRenderAction() = default;

void SoGLRenderAction::setViewportRegion(const SbViewportRegion& region) { m_viewport = region; }

void SoGLRenderAction::setAbortCallback(SoGLRenderAbortCB* func, void* userData) {
  m_abortCB = func;
  m_abortData = userData;
}

void SoGLRenderAction::setPassCallback(SoGLRenderPassCB* func, void* userData) {
  m_passCB = func;
  m_passData = userData;
}

void SoGLRenderAction::setNumPasses(int num) { m_numPasses = std::clamp(num, 1, kMostPasses); }

void SoGLRenderAction::setUpdateArea(const SbVec2f& origin, const SbVec2f& size) {
  const auto unit = [](float v) { return std::isnan(v) ? 0.0f : std::clamp(v, 0.0f, 1.0f); };
  m_updateOrigin.setValue(unit(origin[0]), unit(origin[1]));
  m_updateSize.setValue(unit(size[0]), unit(size[1]));
}

void SoGLRenderAction::getUpdateArea(SbVec2f& origin, SbVec2f& size) const {
  origin = m_updateOrigin;
  size = m_updateSize;
}

int SoGLRenderAction::getNumActiveLights() const {
  SoState* state = getState();
  return state && isBeingApplied() ? SoGLLightIdElement::get(state) + 1 : 0;
}

void SoGLRenderAction::invalidateCaches() { m_caches->clear(); }

bool SoGLRenderAction::delaysTransparentShapes() const {
  switch (m_transparencyType) {
    case NOTRANSPARENCY:
    case SCREENDOOR:
    case ADD:
    case BLEND: return false;
    default: return true;
  }
}

namespace {
bool sortsTransparentShapes(SoGLRenderAction::TransparencyType type) {
  return type != SoGLRenderAction::DELAYEDADD && type != SoGLRenderAction::DELAYEDBLEND;
}
}  // namespace

// ---- applying: passes and delayed shapes --------------------------------------------

void SoGLRenderAction::apply(SoNode* node) {
  if (!node) return;
  if (isBeingApplied()) {
    SoAction::apply(node);
    return;
  }
  renderFrame([this, node] { SoAction::apply(node); });
}

void SoGLRenderAction::apply(SoPath* path) {
  if (!path || isBeingApplied()) return;
  renderFrame([this, path] { SoAction::apply(path); });
}

void SoGLRenderAction::setTile(int x, int y, int width, int height) {
  m_tile[0] = x;
  m_tile[1] = y;
  m_tile[2] = std::max(0, width);
  m_tile[3] = std::max(0, height);
}

void SoGLRenderAction::apply(const SoPathList& pathList, bool obeysRules) {
  if (isBeingApplied()) return;
  renderFrame([this, &pathList, obeysRules] { SoAction::apply(pathList, obeysRules); });
}

void SoGLRenderAction::sendViewport() const { sendViewport(m_viewport); }

void SoGLRenderAction::sendViewport(const SbViewportRegion& region) const {
  const SbVec2s origin = region.getViewportOriginPixels();
  const SbVec2s size = region.getViewportSizePixels();
  // Only the update area is touched; rounded outwards to whole pixels.
  int x0 = origin[0] + static_cast<int>(std::floor(m_updateOrigin[0] * size[0]));
  int y0 = origin[1] + static_cast<int>(std::floor(m_updateOrigin[1] * size[1]));
  int x1 = origin[0] + static_cast<int>(std::ceil(std::min(1.0f, m_updateOrigin[0] + m_updateSize[0]) * size[0]));
  int y1 = origin[1] + static_cast<int>(std::ceil(std::min(1.0f, m_updateOrigin[1] + m_updateSize[1]) * size[1]));
  if (m_tile[2] > 0) {
    // The tile fills the drawable; the projection maps it there (see
    // pictureTransform()). Window coordinates shift by the tile's corner.
    glViewport(0, 0, m_tile[2], m_tile[3]);
    x0 = std::max(x0, m_tile[0]) - m_tile[0];
    y0 = std::max(y0, m_tile[1]) - m_tile[1];
    x1 = std::min(x1, m_tile[0] + m_tile[2]) - m_tile[0];
    y1 = std::min(y1, m_tile[1] + m_tile[3]) - m_tile[1];
  } else {
    glViewport(origin[0], origin[1], size[0], size[1]);
  }
  glScissor(x0, y0, std::max(0, x1 - x0), std::max(0, y1 - y0));
  glEnable(GL_SCISSOR_TEST);
}

SbMatrix SoGLRenderAction::pictureTransform(const SbViewportRegion& region) const {
  // Applied after the projection, in clip coordinates (row vectors:
  // x' = s x + t w), so that it moves and scales the whole picture.
  const SbVec2s origin = region.getViewportOriginPixels();
  const SbVec2s size = region.getViewportSizePixels();
  SbMatrix m = SbMatrix::identity();
  float drawableWidth = size[0], drawableHeight = size[1];
  if (m_tile[2] > 0 && size[0] > 0 && size[1] > 0) {
    // The tile's edges in the viewport's normalised coordinates, a to b,
    // go to -1 and 1.
    const float ax = 2.0f * static_cast<float>(m_tile[0] - origin[0]) / size[0] - 1.0f;
    const float ay = 2.0f * static_cast<float>(m_tile[1] - origin[1]) / size[1] - 1.0f;
    const float sx = static_cast<float>(size[0]) / static_cast<float>(m_tile[2]);
    const float sy = static_cast<float>(size[1]) / static_cast<float>(m_tile[3]);
    m[0][0] = sx;
    m[1][1] = sy;
    m[3][0] = -1.0f - ax * sx;
    m[3][1] = -1.0f - ay * sy;
    drawableWidth = static_cast<float>(m_tile[2]);
    drawableHeight = static_cast<float>(m_tile[3]);
  }
  if ((m_jitter[0] != 0.0f || m_jitter[1] != 0.0f) && drawableWidth > 0.0f && drawableHeight > 0.0f) {
    // The pass's sub-pixel shift, in the drawable's pixels.
    m[3][0] += 2.0f * m_jitter[0] / drawableWidth;
    m[3][1] += 2.0f * m_jitter[1] / drawableHeight;
  }
  return m;
}

void SoGLRenderAction::renderFrame(const std::function<void()>& applyScene) {
  m_aborted = false;
  // With render caching turned off nothing is kept from frame to frame.
  if (SoDB::getNumRenderCaches() <= 0) m_caches->clear();
  m_caches->beginFrame();
  const int passes = m_numPasses;
  if (passes <= 1) {
    renderPass(applyScene);
  } else {
    sendViewport();
    GLint box[4] = {0, 0, 0, 0};
    glGetIntegerv(GL_SCISSOR_BOX, box);
    std::unique_ptr<orvex::GLPassAccumulator> accumulator;
    try {
      accumulator = std::make_unique<orvex::GLPassAccumulator>(box[0], box[1], box[2], box[3]);
    } catch (const std::bad_alloc&) {
      // No memory for the sums of so large an area: one plain pass.
      renderPass(applyScene);
      m_caches->endFrame();
      glDisable(GL_SCISSOR_TEST);
      return;
    }
    for (int pass = 0; pass < passes && !m_aborted; ++pass) {
      m_curPass = pass;
      if (pass > 0) {
        if (m_passCB) {
          m_passCB(m_passData);
        } else {
          sendViewport();
          glDepthMask(GL_TRUE);
          glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        }
      }
      float dx = 0.0f, dy = 0.0f;
      orvex::passJitter(pass, passes, dx, dy);
      m_jitter.setValue(dx, dy);
      renderPass(applyScene);
      sendViewport();
      accumulator->add();
    }
    accumulator->drawMean();
  }
  m_curPass = 0;
  m_jitter.setValue(0.0f, 0.0f);
  m_caches->endFrame();
  glDisable(GL_SCISSOR_TEST);
}

void SoGLRenderAction::renderPass(const std::function<void()>& applyScene) {
  m_delayed->clear();
  applyScene();
  if (!m_aborted && !m_delayed->empty()) {
    const SoPathList delayed = m_delayed->drawingOrder(sortsTransparentShapes(m_transparencyType));
    m_delayed->phase = orvex::GLDelayedShapes::DELAYED;
    SoAction::apply(delayed, false);
  }
  m_delayed->clear();
}

void SoGLRenderAction::beginTraversal(SoNode* node) {
  SoState* state = getState();
  // The OpenGL viewport element sends the viewport (through
  // sendViewport(), which knows tiles and the update area).
  SoViewportRegionElement::set(state, m_viewport);
  SoGLRenderPassElement::set(state, m_curPass);
  SoGLUpdateAreaElement::set(state, m_updateOrigin, m_updateSize);
  // Scaled transformations must not change the lighting.
  glEnable(GL_NORMALIZE);
  glShadeModel(GL_SMOOTH);
  m_caches->resetLights();
  traverse(node);
  // Leave the fixed-function state as a caller expects to find it.
  glDisable(GL_LIGHTING);
  glDisable(GL_COLOR_MATERIAL);
  glDisable(GL_LINE_STIPPLE);
  glDisable(GL_BLEND);
  glDisable(GL_CULL_FACE);
  glDepthMask(GL_TRUE);
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
}

// ---- traversal ------------------------------------------------------------------------

void SoNode::GLRenderS(SoAction* action, SoNode* node) {
  auto* render = static_cast<SoGLRenderAction*>(action);
  switch (action->getCurPathCode()) {
    case SoAction::NO_PATH: node->GLRender(render); break;
    case SoAction::BELOW_PATH: node->GLRenderBelowPath(render); break;
    case SoAction::IN_PATH: node->GLRenderInPath(render); break;
    case SoAction::OFF_PATH: node->GLRenderOffPath(render); break;
  }
}

bool SoGLRenderAction::traversalAllowed(SoGLRenderAction* action, SoNode*) {
  if (!action->m_abortCB) return true;
  switch (action->m_abortCB(action->m_abortData)) {
    case ABORT:
      action->m_aborted = true;
      action->setTerminated(true);
      return false;
    case PRUNE: return false;
    case DELAY:
      if (action->m_delayed->phase != orvex::GLDelayedShapes::MAIN) return true;
      action->m_delayed->addDelayed(action->getCurPath()->copy());
      return false;
    default: return true;
  }
}

void SoGLRenderAction::renderNode(SoAction* action, SoNode* node) {
  if (traversalAllowed(static_cast<SoGLRenderAction*>(action), node)) SoNode::GLRenderS(action, node);
}

void SoGLRenderAction::generatePrimitives(SoShape* shape, SoAction* action) { shape->generatePrimitives(action); }

namespace {
std::unique_ptr<orvex::GLShapeCache> buildShapeArrays(SoAction* action, SoShape* shape,
                                                      void (*generate)(SoShape*, SoAction*)) {
  auto fresh = std::make_unique<orvex::GLShapeCache>(action->getState(), shape->getNodeId());
  orvex::GLArrayCollector collector(fresh->arrays);
  orvex::PrimitiveScope scope(orvex::PrimitiveScope::COLLECT, action, shape, &collector);
  generate(shape, action);
  return fresh;
}

// The depth of a point of the shape's object space in eye coordinates.
float eyeDepth(SoState* state, const SbVec3f& point) {
  const SbMatrix modelView = SoModelMatrixElement::get(state) * SoViewingMatrixElement::get(state);
  SbVec3f eye;
  modelView.multVecMatrix(point, eye);
  return eye[2];
}
}  // namespace

void SoGLRenderAction::renderShape(SoAction* action, SoNode* node) {
  auto* self = static_cast<SoGLRenderAction*>(action);
  if (!traversalAllowed(self, node)) return;
  auto* shape = static_cast<SoShape*>(node);
  SoState* state = action->getState();
  if (SoDrawStyleElement::get(state) == SoDrawStyleElement::INVISIBLE) return;

  std::unique_ptr<orvex::GLShapeCache> uncached;
  orvex::GLShapeCache* cache = self->m_caches->find(shape, state, shape->getNodeId());
  if (!cache) {
    if (SoDB::getNumRenderCaches() > 0) {
      cache = self->m_caches->store(shape, buildShapeArrays(action, shape, &generatePrimitives));
    } else {
      uncached = buildShapeArrays(action, shape, &generatePrimitives);
      cache = uncached.get();
    }
  }

  const bool delayedPhase = self->m_delayed->phase == orvex::GLDelayedShapes::DELAYED;
  if (!delayedPhase && self->delaysTransparentShapes() && orvex::materialIsTransparent(state)) {
    self->m_delayed->addTransparent(self->getCurPath()->copy(), eyeDepth(state, cache->arrays.boundsCenter()));
    return;
  }

  orvex::GLDrawSettings settings;
  settings.transparency = self->m_transparencyType;
  settings.lights = &self->m_caches->lights();
  settings.numLights = SoGLLightIdElement::get(state) + 1;
  settings.pictureTransform = self->pictureTransform(SoViewportRegionElement::get(state));
  settings.keepDepthForTransparent = delayedPhase && self->delaysTransparentShapes();
  orvex::drawShapeArrays(state, cache->arrays, settings);
}

void SoGLRenderAction::renderLight(SoAction* action, SoNode* node) {
  auto* self = static_cast<SoGLRenderAction*>(action);
  if (!traversalAllowed(self, node)) return;
  SoState* state = action->getState();
  orvex::GLLightSource source;
  if (!orvex::makeLightSource(state, static_cast<SoLight*>(node), source)) return;
  const int32_t id = SoGLLightIdElement::increment(state);
  if (id < 0) return;
  self->m_caches->lights()[static_cast<size_t>(id)] = source;
}
