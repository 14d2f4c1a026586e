#include <Orvex/antialiasing/SoAntialiasingEventListener.h>

// The base listener takes note of nothing.
void SoAntialiasingEventListener::antialiasingChanged(SoSceneManager*, SoSceneManager::AntialiasingMode, float) {}
