#pragma once
#include <Orvex/SoSceneManager.h>

// Told by a scene manager whenever its antialiasing mode or quality
// changes (see SoSceneManager::setAntialiasingEventListener()), with the
// new settings. Derive from it and override the call; the manager does not
// own its listener.
class SoAntialiasingEventListener {
 public:
  SoAntialiasingEventListener() = default;
  virtual ~SoAntialiasingEventListener() = default;
  SoAntialiasingEventListener(const SoAntialiasingEventListener&) = delete;
  SoAntialiasingEventListener& operator=(const SoAntialiasingEventListener&) = delete;

  virtual void antialiasingChanged(SoSceneManager* manager, SoSceneManager::AntialiasingMode mode, float quality);
};
