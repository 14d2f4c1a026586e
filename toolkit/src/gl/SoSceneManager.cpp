#include <Orvex/SoSceneManager.h>

#include <Orvex/SbTime.h>
#include <Orvex/SoDB.h>
#include <Orvex/actions/SoGLRenderAction.h>
#include <Orvex/actions/SoHandleEventAction.h>
#include <Orvex/antialiasing/SoAntialiasingEventListener.h>
#include <Orvex/antialiasing/SoAntialiasingParameters.h>
#include <Orvex/devices/SoGLContext.h>
#include <Orvex/fields/SoSFTime.h>
#include <Orvex/nodes/SoNode.h>
#include <Orvex/sensors/SoAlarmSensor.h>
#include <Orvex/sensors/SoNodeSensor.h>
#include <Orvex/sensors/SoOneShotSensor.h>

#include <GL/gl.h>
#include <GL/glext.h>

#include <algorithm>
#include <cmath>

#include "render/GLFramebuffer.h"

namespace {
// Passes of the jittered modes at quality 1.
constexpr int kMostPasses = 16;

int passesForQuality(float quality) {
  return 1 + static_cast<int>(std::lround(std::clamp(quality, 0.0f, 1.0f) * (kMostPasses - 1)));
}

float unitQuality(float quality) { return quality > 0.0f ? std::min(quality, 1.0f) : 0.0f; }
}  // namespace

SoSceneManager::SoSceneManager(int numSurfaces)
    : m_numSurfaces(std::max(1, numSurfaces)),
      m_ownRenderAction(std::make_unique<SoGLRenderAction>(m_viewport)),
      m_ownEventAction(std::make_unique<SoHandleEventAction>(m_viewport)),
      m_redrawSensor(std::make_unique<SoOneShotSensor>(&SoSceneManager::redrawSensorCB, this)),
      m_sceneSensor(std::make_unique<SoNodeSensor>(&SoSceneManager::sceneChangedCB, this)),
      m_stillSensor(std::make_unique<SoAlarmSensor>(&SoSceneManager::stillSensorCB, this)) {
  m_renderAction = m_ownRenderAction.get();
  m_eventAction = m_ownEventAction.get();
  m_redrawSensor->setPriority(m_redrawPriority);
  // A change reaches the redraw sensor at once; the redraw sensor then
  // waits for the delay queue, so that many changes make one redraw.
  m_sceneSensor->setPriority(0);
  installAbortCallback();
}

SoSceneManager::~SoSceneManager() {
  // Sensors first: none may fire into a half-destroyed manager.
  m_stillSensor.reset();
  m_sceneSensor.reset();
  m_redrawSensor.reset();
  if (m_renderAction != m_ownRenderAction.get()) m_renderAction->setAbortCallback(nullptr, nullptr);
  releaseTarget();
  if (m_scene) m_scene->unref();
}

// ---- drawing ----------------------------------------------------------------------------

int SoSceneManager::passesFor(bool still) const {
  int passes = 1;
  if (m_aaMode == ACCUMBUFFERS || m_aaMode == SUPERSAMPLING)
    passes = m_aaPasses > 1 ? m_aaPasses : (m_aaQuality > 0.0f ? passesForQuality(m_aaQuality) : 1);
  if (still && m_stillQuality > 0.0f && !m_interactive) passes = std::max(passes, passesForQuality(m_stillQuality));
  return passes;
}

int SoSceneManager::fsaaSamples() const {
  if ((m_aaMode != FSAA && m_aaMode != AUTO) || m_aaQuality <= 0.0f) return 0;
  GLint most = 0;
  glGetIntegerv(GL_MAX_SAMPLES, &most);
  if (most < 2) return 0;
  return std::clamp(static_cast<int>(std::lround(m_aaQuality * static_cast<float>(most))), 2, static_cast<int>(most));
}

void SoSceneManager::releaseTarget() {
  // The framebuffer's names belong to the context it was made in; with
  // another context current they would name someone else's objects.
  if (m_target && SoGLContext::getCurrent() != m_targetContext) m_target->abandon();
  m_target.reset();
  m_targetContext = nullptr;
}

void SoSceneManager::render(bool clearWindow, bool clearZbuffer, int, bool still) {
  if (m_realTimeUpdate) updateRealTimeSensor();
  const bool stillPicture = still || m_stillDue;
  m_stillDue = false;
  SoGLRenderAction* action = getGLRenderAction();
  action->setViewportRegion(m_viewport);
  action->setNumPasses(passesFor(stillPicture));

  const SbVec2s window = m_viewport.getWindowSize();
  const int samples = fsaaSamples();
  GLint drawTarget = 0, readTarget = 0;
  if (samples > 0) {
    glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &drawTarget);
    glGetIntegerv(GL_READ_FRAMEBUFFER_BINDING, &readTarget);
    const GLenum format = m_floatColor ? (m_floatBits >= 32 ? GL_RGBA32F : GL_RGBA16F) : GL_RGBA8;
    if (!m_target || m_target->width() != window[0] || m_target->height() != window[1] ||
        m_target->samples() != samples || m_target->colorFormat() != format || m_targetContext != SoGLContext::getCurrent()) {
      releaseTarget();
      m_target = std::make_unique<orvex::GLFramebuffer>(window[0], window[1], samples, format);
      m_targetContext = SoGLContext::getCurrent();
    }
    if (!m_target->isComplete()) releaseTarget();
  }
  const bool multisampled = samples > 0 && m_target;
  m_lastSamples = multisampled ? samples : 0;
  if (multisampled) m_target->bind();

  glDisable(GL_SCISSOR_TEST);
  glViewport(0, 0, window[0], window[1]);
  GLbitfield clear = 0;
  if (clearWindow || multisampled) {
    glClearColor(m_background[0], m_background[1], m_background[2], m_background[3]);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    clear |= GL_COLOR_BUFFER_BIT;
  }
  if (clearZbuffer || multisampled) {
    glClearDepth(m_clearDepth);
    glDepthMask(GL_TRUE);
    clear |= GL_DEPTH_BUFFER_BIT;
  }
  if (clear) glClear(clear);

  if (m_smoothing) {
    glEnable(GL_LINE_SMOOTH);
    glEnable(GL_POINT_SMOOTH);
  }
  if (m_scene) action->apply(m_scene);
  glDisable(GL_LINE_SMOOTH);
  glDisable(GL_POINT_SMOOTH);

  if (multisampled) {
    // Resolve the samples into the drawable the caller had bound.
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, static_cast<GLuint>(drawTarget));
    glBlitFramebuffer(0, 0, window[0], window[1], 0, 0, window[0], window[1], GL_COLOR_BUFFER_BIT, GL_NEAREST);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, static_cast<GLuint>(readTarget));
  }

  if (stillPicture) {
    m_interactive = m_autoInteractive ? false : m_interactive;
  } else if (m_stillQuality > 0.0f && !m_interactive) {
    m_stillSensor->setTimeFromNow(SbTime(static_cast<double>(m_stillDelay)));
    m_stillSensor->schedule();
  }
}

bool SoSceneManager::processEvent(const SoEvent* event) {
  if (!m_scene || !event) return false;
  SoHandleEventAction* action = getHandleEventAction();
  action->setViewportRegion(m_viewport);
  action->setEvent(event);
  action->apply(m_scene);
  const bool handled = action->isHandled();
  if (handled && m_autoInteractive) m_interactive = true;
  return handled;
}

// ---- scene and redraws ---------------------------------------------------------------------

void SoSceneManager::setSceneGraph(SoNode* root) {
  if (root == m_scene) return;
  if (root) root->ref();
  m_sceneSensor->detach();
  if (m_scene) m_scene->unref();
  m_scene = root;
  if (m_scene && m_active) m_sceneSensor->attach(m_scene);
  scheduleRedraw();
}

SoNode* SoSceneManager::getSceneGraph() const { return m_scene; }

void SoSceneManager::activate() {
  m_active = true;
  if (m_scene) m_sceneSensor->attach(m_scene);
}

void SoSceneManager::deactivate() {
  m_active = false;
  m_sceneSensor->detach();
  m_redrawSensor->unschedule();
  m_stillSensor->unschedule();
}

void SoSceneManager::setRenderCallback(SoSceneManagerRenderCB* func, void* userData) {
  m_renderCB = func;
  m_renderData = userData;
  if (!func) m_redrawSensor->unschedule();
}

void SoSceneManager::scheduleRedraw() {
  if (isAutoRedraw() && m_active) m_redrawSensor->schedule();
}

void SoSceneManager::scheduleForcedRedraw() {
  if (isAutoRedraw()) m_redrawSensor->schedule();
}

void SoSceneManager::setRedrawPriority(uint32_t priority) {
  m_redrawPriority = priority;
  m_redrawSensor->setPriority(priority);
}

void SoSceneManager::redrawSensorCB(void* data, SoSensor*) {
  auto* self = static_cast<SoSceneManager*>(data);
  if (self->m_renderCB) self->m_renderCB(self->m_renderData, self);
}

void SoSceneManager::sceneChangedCB(void* data, SoSensor*) { static_cast<SoSceneManager*>(data)->scheduleRedraw(); }

void SoSceneManager::stillSensorCB(void* data, SoSensor*) {
  auto* self = static_cast<SoSceneManager*>(data);
  if (self->m_interactive) return;
  self->m_stillDue = true;
  if (self->m_renderCB) self->m_renderCB(self->m_renderData, self);
}

void SoSceneManager::setAbortRenderCallback(SoSceneManagerAbortRenderCB* func, void* userData) {
  m_abortCB = func;
  m_abortData = userData;
  installAbortCallback();
}

void SoSceneManager::installAbortCallback() {
  if (!m_abortCB) {
    m_renderAction->setAbortCallback(nullptr, nullptr);
    return;
  }
  m_renderAction->setAbortCallback(
      [](void* data) {
        auto* self = static_cast<SoSceneManager*>(data);
        const int code = self->m_abortCB(self->m_renderAction, self->m_abortData);
        switch (code) {
          case SoGLRenderAction::ABORT:
          case SoGLRenderAction::PRUNE:
          case SoGLRenderAction::DELAY: return static_cast<SoGLRenderAction::AbortCode>(code);
          default: return SoGLRenderAction::CONTINUE;
        }
      },
      this);
}

// ---- viewport and clearing -------------------------------------------------------------------

void SoSceneManager::syncViewports() {
  m_renderAction->setViewportRegion(m_viewport);
  m_eventAction->setViewportRegion(m_viewport);
}

void SoSceneManager::setWindowSize(const SbVec2s& size) {
  m_viewport.setWindowSize(size);
  syncViewports();
}

const SbVec2s& SoSceneManager::getWindowSize() const { return m_viewport.getWindowSize(); }

void SoSceneManager::setSize(const SbVec2s& size) {
  m_viewport.setViewportPixels(m_viewport.getViewportOriginPixels(), size);
  syncViewports();
}

SbVec2s SoSceneManager::getSize() const { return m_viewport.getViewportSizePixels(); }

void SoSceneManager::setOrigin(const SbVec2s& origin) {
  m_viewport.setViewportPixels(origin, m_viewport.getViewportSizePixels());
  syncViewports();
}

SbVec2s SoSceneManager::getOrigin() const { return m_viewport.getViewportOriginPixels(); }

void SoSceneManager::setViewportRegion(const SbViewportRegion& region) {
  m_viewport = region;
  syncViewports();
}

void SoSceneManager::setBackgroundColor(const SbColor& color) { m_background.setValue(color[0], color[1], color[2], 0.0f); }

SbColor SoSceneManager::getBackgroundColor() const { return SbColor(m_background[0], m_background[1], m_background[2]); }

void SoSceneManager::setClearDepth(float depth) { m_clearDepth = std::isnan(depth) ? 1.0f : std::clamp(depth, 0.0f, 1.0f); }

// ---- actions -----------------------------------------------------------------------------------

void SoSceneManager::setGLRenderAction(SoGLRenderAction* action) {
  if (m_renderAction != m_ownRenderAction.get()) m_renderAction->setAbortCallback(nullptr, nullptr);
  m_renderAction = action ? action : m_ownRenderAction.get();
  m_renderAction->setViewportRegion(m_viewport);
  installAbortCallback();
}

SoGLRenderAction* SoSceneManager::getGLRenderAction() const { return m_renderAction; }

void SoSceneManager::setHandleEventAction(SoHandleEventAction* action) {
  m_eventAction = action ? action : m_ownEventAction.get();
  m_eventAction->setViewportRegion(m_viewport);
}

SoHandleEventAction* SoSceneManager::getHandleEventAction() const { return m_eventAction; }

void SoSceneManager::updateRealTimeSensor() {
  SoField* field = SoDB::getGlobalField("realTime");
  if (field && field->isOfType(SoSFTime::getClassTypeId())) static_cast<SoSFTime*>(field)->setValue(SbTime::getTimeOfDay());
}

// ---- antialiasing ------------------------------------------------------------------------------

void SoSceneManager::setAntialiasing(float quality, AntialiasingMode mode) {
  const AntialiasingMode oldMode = m_aaMode;
  const float oldQuality = m_aaQuality;
  m_aaQuality = unitQuality(quality);
  m_aaMode = m_aaQuality > 0.0f && mode >= NOANTIALIASING && mode < NUMANTIALIASINGMODE ? mode : NOANTIALIASING;
  if (m_aaMode == NOANTIALIASING) m_aaQuality = 0.0f;
  m_aaPasses = 0;
  if (m_aaMode == NOANTIALIASING)
    m_aaParameters.reset();
  else
    m_aaParameters = std::make_unique<SoAntialiasingParameters>(m_aaMode, m_aaQuality);
  if (m_aaListener && (oldMode != m_aaMode || oldQuality != m_aaQuality))
    m_aaListener->antialiasingChanged(this, m_aaMode, m_aaQuality);
}

void SoSceneManager::setAntialiasing(const SoAntialiasingParameters* parameters) {
  if (!parameters)
    setAntialiasing(0.0f, NOANTIALIASING);
  else
    setAntialiasing(parameters->getQuality(), parameters->getMode());
}

void SoSceneManager::setAntialiasing(bool smoothing, int numPasses) {
  m_smoothing = smoothing;
  if (numPasses > 1) {
    const int passes = std::min(numPasses, 255);
    setAntialiasing(static_cast<float>(passes - 1) / static_cast<float>(kMostPasses - 1), ACCUMBUFFERS);
    m_aaPasses = passes;
  } else {
    setAntialiasing(0.0f, NOANTIALIASING);
  }
}

void SoSceneManager::setStillSuperSampling(float quality, float delay) {
  m_stillQuality = unitQuality(quality);
  m_stillDelay = delay > 0.0f ? delay : 0.0f;
  if (m_stillQuality <= 0.0f) m_stillSensor->unschedule();
}

// ---- contexts ----------------------------------------------------------------------------------

void SoSceneManager::reinitialize() {
  m_renderAction->invalidateCaches();
  releaseTarget();
}

void SoSceneManager::setShareContext(SbGLShareContext shareContext, bool reinitializeIfChanged) {
  const bool changed = shareContext != m_shareContext;
  m_shareContext = shareContext;
  if (changed && reinitializeIfChanged) reinitialize();
}

void SoSceneManager::setFloatingColorBuffer(bool enable, int bitsPerChannel) {
  m_floatColor = enable;
  m_floatBits = bitsPerChannel >= 32 ? 32 : 16;
}

void SoSceneManager::getFloatingColorBuffer(bool& enable, int& bitsPerChannel) const {
  enable = m_floatColor;
  bitsPerChannel = m_floatBits;
}
