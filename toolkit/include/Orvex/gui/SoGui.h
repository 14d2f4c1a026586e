#pragma once
// Viewer and render-area support module.
class SoGui {
 public:
  static void init();
  static bool isInitialized();
  static void finish();
};
