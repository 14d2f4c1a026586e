#pragma once
// VolumeLux module: volume data and volume rendering nodes.
class SoVolumeRendering {
 public:
  static void init();
  static bool isInitialized();
  static void finish();
};
