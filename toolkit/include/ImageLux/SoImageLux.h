#pragma once
// ImageLux module: image processing.
class SoImageLux {
 public:
  static void init();
  static bool isInitialized();
  static void finish();
};
