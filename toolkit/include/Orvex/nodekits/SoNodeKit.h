#pragma once
// Node-kit module: brings up the core and registers the node-kit classes.
class SoNodeKit {
 public:
  static void init();          // idempotent; initialises SoDB first
  static bool isInitialized();
  static void finish();
};
