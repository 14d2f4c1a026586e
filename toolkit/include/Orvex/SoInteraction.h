#pragma once
// Interaction module (draggers, manipulators): brings up the core and the node kits.
class SoInteraction {
 public:
  static void init();
  static bool isInitialized();
  static void finish();
};
