#pragma once
// ScaleLux module: distributed and tiled rendering.
class SoScaleLux {
 public:
  static void init();
  static bool isInitialized();
  static void finish();
};
