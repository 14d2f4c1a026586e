#pragma once
// MeshLux module: mesh data and mesh representation nodes.
class PoMeshLux {
 public:
  static void init();
  static bool isInitialized();
  static void finish();
};
