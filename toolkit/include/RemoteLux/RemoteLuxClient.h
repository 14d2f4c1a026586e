#pragma once
// RemoteLux client module: remote rendering.
class RemoteLuxClient {
 public:
  static void init();
  static bool isInitialized();
  static void finish();
};
