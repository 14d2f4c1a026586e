#pragma once
#include <Orvex/SbBase.h>

// Per-thread storage slots used by the toolkit's per-thread state (element
// stacks, caches). Each module reserves slots once; every thread sees its own
// zero-initialised block of the reserved size.
class SbThreadLocalStorage {
 public:
  // Prepares the calling thread's storage. Safe to call more than once and
  // on any thread; the toolkit also calls it lazily.
  static void initThreadLocalStorage();
  static bool isInitialized();  // for the calling thread

  // Reserves `size` bytes in every thread's block; returns the slot id.
  static size_t createStorage(size_t size);
  // The calling thread's memory for a slot (zeroed on first use).
  static void* getStorage(size_t slot);
};
