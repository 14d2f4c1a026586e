#pragma once
#include <Orvex/SoSceneManager.h>

// How a scene manager smooths its pictures: a mode and a quality from 0
// (none) to 1 (the best the mode offers). Copied by the manager.
class SoAntialiasingParameters {
 public:
  SoAntialiasingParameters() = default;
  SoAntialiasingParameters(SoSceneManager::AntialiasingMode mode, float quality) : m_mode(mode) {
    setQuality(quality);
  }
  virtual ~SoAntialiasingParameters() = default;

  SoSceneManager::AntialiasingMode getMode() const { return m_mode; }
  void setMode(SoSceneManager::AntialiasingMode mode) { m_mode = mode; }
  // Clamped to 0..1 (NaN: 0).
  float getQuality() const { return m_quality; }
  void setQuality(float quality) { m_quality = quality > 0.0f ? (quality < 1.0f ? quality : 1.0f) : 0.0f; }

 private:
  SoSceneManager::AntialiasingMode m_mode = SoSceneManager::NOANTIALIASING;
  float m_quality = 0.0f;
};
