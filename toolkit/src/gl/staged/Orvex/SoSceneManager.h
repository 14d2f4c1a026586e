#pragma once
#include <Orvex/SbColor.h>
#include <Orvex/SbGLShareContext.h>
#include <Orvex/SbVec2s.h>
#include <Orvex/SbViewportRegion.h>

#include <cstdint>
#include <memory>

class SoAlarmSensor;
class SoAntialiasingEventListener;
class SoAntialiasingParameters;
class SoEvent;
class SoGLContext;
class SoGLRenderAction;
class SoHandleEventAction;
class SoNode;
class SoNodeSensor;
class SoOneShotSensor;
class SoSceneManager;
class SoSensor;

namespace orvex {
class GLFramebuffer;
}

// Asks the owner of a drawing area to redraw it (by calling render() with
// its context current).
typedef void SoSceneManagerRenderCB(void* userData, SoSceneManager* manager);
// Asked by the render action before each node while the manager renders:
// an SoGLRenderAction::AbortCode (0 continue, 1 abort, 2 prune, 3 delay;
// anything else continues).
typedef int SoSceneManagerAbortRenderCB(SoGLRenderAction* action, void* userData);

// Manages the scene of one drawing area: draws the scene graph with its
// render action into the OpenGL drawable current when render() is called,
// hands input events to the graph with its event action, and asks its
// owner to redraw (the render callback) when the graph changes or a
// redraw is scheduled. Redraw requests are a sensor of the delay queue:
// several requests before the queue is processed make one call.
class SoSceneManager {
 public:
  // How pictures are smoothed. NOANTIALIASING: not at all. FSAA: each
  // pixel from several samples of a multisampled framebuffer (quality 1
  // takes the most the driver offers). ACCUMBUFFERS and SUPERSAMPLING:
  // the mean of jittered rendering passes (1 + quality * 15 passes). AUTO
  // chooses FSAA. SMAA and FXAA are accepted and reported but draw as
  // NOANTIALIASING here.
  enum AntialiasingMode { NOANTIALIASING, SMAA, FXAA, FSAA, SUPERSAMPLING, ACCUMBUFFERS, AUTO, NUMANTIALIASINGMODE };

  // A manager for that many drawing surfaces (at least 1; kept and
  // reported, every surface shows the same scene), with its own render
  // and event actions, inactive, without a scene.
  explicit SoSceneManager(int numSurfaces = 1);
  virtual ~SoSceneManager();
  SoSceneManager(const SoSceneManager&) = delete;
  SoSceneManager& operator=(const SoSceneManager&) = delete;

  // Draws the scene into the drawable current on the calling thread, in
  // the viewport region, after clearing the whole window to the
  // background colour (clearWindow) and the depth buffer to the clear
  // depth (clearZbuffer). surfaceIndex names the surface (see
  // getNumSurfaces(); out of range: the first). still: draw the still
  // picture (still super-sampling) now rather than after the delay.
  // With FSAA the scene is drawn into a multisampled framebuffer of the
  // window's size, always cleared, and resolved into the drawable.
  virtual void render(bool clearWindow = true, bool clearZbuffer = true, int surfaceIndex = 0, bool still = false);
  // Hands the event to the scene with the event action; whether a node
  // handled it. False without a scene or an event.
  virtual bool processEvent(const SoEvent* event);
  // The graph drawn (referenced while set; null for none). Setting it
  // schedules a redraw.
  virtual void setSceneGraph(SoNode* root);
  virtual SoNode* getSceneGraph() const;
  // While active, changes of the graph schedule redraws; an inactive
  // manager schedules none (but scheduleForcedRedraw()).
  virtual void activate();
  virtual void deactivate();
  bool isActive() const { return m_active; }

  int getNumSurfaces() const { return m_numSurfaces; }

  // The redraw request: called with the user data and this manager when
  // a scheduled redraw comes due. Auto-redraw is on while one is set.
  void setRenderCallback(SoSceneManagerRenderCB* func, void* userData = nullptr);
  bool isAutoRedraw() const { return m_renderCB != nullptr; }
  // Asks for a redraw at the redraw priority (a delay-queue priority;
  // 0: at once), when auto-redraw is on and the manager active.
  void scheduleRedraw();
  // The same even when the manager is not active.
  void scheduleForcedRedraw();
  void setRedrawPriority(uint32_t priority);
  uint32_t getRedrawPriority() const { return m_redrawPriority; }
  static uint32_t getDefaultRedrawPriority() { return 10000; }

  // Asked before each node while rendering (see
  // SoSceneManagerAbortRenderCB); null asks nothing.
  void setAbortRenderCallback(SoSceneManagerAbortRenderCB* func, void* userData = nullptr);

  // The window (the whole drawable), and the viewport in it the scene is
  // drawn into (by default the whole window).
  void setWindowSize(const SbVec2s& size);
  const SbVec2s& getWindowSize() const;
  void setSize(const SbVec2s& size);
  SbVec2s getSize() const;
  void setOrigin(const SbVec2s& origin);
  SbVec2s getOrigin() const;
  void setViewportRegion(const SbViewportRegion& region);
  const SbViewportRegion& getViewportRegion() const { return m_viewport; }

  // The colour the window is cleared to: RGB with alpha 0, or RGBA; the
  // colour index is kept for colour-index drawables (none here: drawing
  // is always RGBA, so it is only reported, as isRGBMode() false is).
  void setBackgroundColor(const SbColor& color);
  SbColor getBackgroundColor() const;
  void setBackgroundColorRGBA(const SbColorRGBA& color) { m_background = color; }
  const SbColorRGBA& getBackgroundColorRGBA() const { return m_background; }
  void setBackgroundIndex(int index) { m_backgroundIndex = index; }
  int getBackgroundIndex() const { return m_backgroundIndex; }
  void setRGBMode(bool onOrOff) { m_rgbMode = onOrOff; }
  bool isRGBMode() const { return m_rgbMode; }
  // The depth the depth buffer is cleared to (clamped to 0..1; default 1).
  void setClearDepth(float depth);
  float getClearDepth() const { return m_clearDepth; }

  // The actions used (the manager's own unless one is given; a given one
  // stays the caller's and must outlive its use). Null goes back to the
  // manager's own.
  void setGLRenderAction(SoGLRenderAction* action);
  SoGLRenderAction* getGLRenderAction() const;
  void setHandleEventAction(SoHandleEventAction* action);
  SoHandleEventAction* getHandleEventAction() const;

  // Whether each render() first puts the time of day into the "realTime"
  // global field (default on); updateRealTimeSensor() does it now.
  void enableRealTimeUpdate(bool flag) { m_realTimeUpdate = flag; }
  bool isRealTimeUpdateEnabled() const { return m_realTimeUpdate; }
  void updateRealTimeSensor();

  // Antialiasing by mode and quality (0 to 1; 0 turns it off).
  void setAntialiasing(float quality, AntialiasingMode mode = AUTO);
  // From parameters (copied; null turns antialiasing off).
  void setAntialiasing(const SoAntialiasingParameters* parameters);
  // The older form: smoothing of lines and points, and a number of
  // jittered passes (more than 1 selects ACCUMBUFFERS with that many).
  void setAntialiasing(bool smoothing, int numPasses);
  AntialiasingMode getAntialiasingMode() const { return m_aaMode; }
  float getAntialiasingQuality() const { return m_aaQuality; }
  // The current settings as parameters (owned by the manager), or null
  // when antialiasing is off.
  const SoAntialiasingParameters* getAntialiasingParameters() const { return m_aaParameters.get(); }
  bool isSmoothing() const { return m_smoothing; }
  // Told each time the mode or the quality changes (not owned; null for
  // none).
  void setAntialiasingEventListener(SoAntialiasingEventListener* listener) { m_aaListener = listener; }
  SoAntialiasingEventListener* getAntialiasingEventListener() const { return m_aaListener; }
  // The samples per pixel FSAA asked for in the last render(); 0 when it
  // did not use a multisampled framebuffer.
  int getLastSamples() const { return m_lastSamples; }

  // Still super-sampling: once the scene has stayed unchanged for `delay`
  // seconds after a render, a redraw is requested and drawn with
  // 1 + quality * 15 jittered passes. Quality 0 turns it off.
  void setStillSuperSampling(float quality, float delay);
  float getStillSuperSamplingQuality() const { return m_stillQuality; }
  float getStillSuperSamplingDelay() const { return m_stillDelay; }

  // Interactive mode (while the user manipulates the scene): no still
  // super-sampling. With auto-interactive mode, processing an event that
  // a node handles switches it on until the next still redraw.
  void setInteractive(bool flag) { m_interactive = flag; }
  bool isInteractive() const { return m_interactive; }
  void setAutoInteractiveMode(bool flag) { m_autoInteractive = flag; }
  bool isAutoInteractiveMode() const { return m_autoInteractive; }

  // Forgets what was made in the old OpenGL context (the render action's
  // arrays, the multisampled framebuffer) after the drawable's context
  // changed; call it with the new context current.
  void reinitialize();
  // The context whose objects the drawable shares; with
  // reinitializeIfChanged, a different one reinitialises the manager.
  void setShareContext(SbGLShareContext shareContext, bool reinitializeIfChanged = true);
  const SbGLShareContext& getShareContext() const { return m_shareContext; }

  // Colour buffer of the multisampled framebuffer: floating point (16 or
  // 32 bits per channel) instead of 8-bit channels.
  void setFloatingColorBuffer(bool enable, int bitsPerChannel = 16);
  void getFloatingColorBuffer(bool& enable, int& bitsPerChannel) const;

 private:
  static void redrawSensorCB(void* data, SoSensor* sensor);
  static void sceneChangedCB(void* data, SoSensor* sensor);
  static void stillSensorCB(void* data, SoSensor* sensor);
  void installAbortCallback();
  void syncViewports();
  int passesFor(bool still) const;
  int fsaaSamples() const;
  void releaseTarget();

  int m_numSurfaces;
  SoNode* m_scene = nullptr;
  bool m_active = false;
  SbViewportRegion m_viewport;
  std::unique_ptr<SoGLRenderAction> m_ownRenderAction;
  SoGLRenderAction* m_renderAction = nullptr;
  std::unique_ptr<SoHandleEventAction> m_ownEventAction;
  SoHandleEventAction* m_eventAction = nullptr;

  SoSceneManagerRenderCB* m_renderCB = nullptr;
  void* m_renderData = nullptr;
  SoSceneManagerAbortRenderCB* m_abortCB = nullptr;
  void* m_abortData = nullptr;
  std::unique_ptr<SoOneShotSensor> m_redrawSensor;
  std::unique_ptr<SoNodeSensor> m_sceneSensor;
  std::unique_ptr<SoAlarmSensor> m_stillSensor;
  uint32_t m_redrawPriority = getDefaultRedrawPriority();
  bool m_stillDue = false;

  SbColorRGBA m_background{0.0f, 0.0f, 0.0f, 0.0f};
  int m_backgroundIndex = 0;
  bool m_rgbMode = true;
  float m_clearDepth = 1.0f;
  bool m_realTimeUpdate = true;

  AntialiasingMode m_aaMode = NOANTIALIASING;
  float m_aaQuality = 0.0f;
  int m_aaPasses = 0;  // explicit pass count of setAntialiasing(bool, int)
  bool m_smoothing = false;
  std::unique_ptr<SoAntialiasingParameters> m_aaParameters;
  SoAntialiasingEventListener* m_aaListener = nullptr;
  int m_lastSamples = 0;
  float m_stillQuality = 0.0f;
  float m_stillDelay = 0.0f;
  bool m_interactive = false;
  bool m_autoInteractive = false;

  SbGLShareContext m_shareContext;
  bool m_floatColor = false;
  int m_floatBits = 16;
  std::unique_ptr<orvex::GLFramebuffer> m_target;  // multisampled, for FSAA
  SoGLContext* m_targetContext = nullptr;           // current when m_target was made
};
