#include <Orvex/SbThreadLocalStorage.h>

#include <memory>
#include <mutex>
#include <vector>

namespace {

// Sizes of the reserved slots, shared by all threads.
struct SlotRegistry {
  std::mutex mutex;
  std::vector<size_t> sizes;

  bool sizeOf(size_t slot, size_t& size) {
    std::lock_guard<std::mutex> lock(mutex);
    if (slot >= sizes.size()) return false;
    size = sizes[slot];
    return true;
  }
};

SlotRegistry& registry() {
  // Never destroyed: threads may still ask for slots while the process exits.
  static SlotRegistry* instance = new SlotRegistry;
  return *instance;
}

// One thread's memory: a zeroed block per slot, freed when the thread ends.
struct ThreadBlock {
  bool initialized = false;
  std::vector<std::unique_ptr<unsigned char[]>> slots;

  void* get(size_t slot, size_t size) {
    if (slots.size() <= slot) slots.resize(slot + 1);
    if (!slots[slot]) slots[slot] = std::make_unique<unsigned char[]>(size ? size : 1);
    return slots[slot].get();
  }
};

thread_local ThreadBlock t_block;

}  // namespace

void SbThreadLocalStorage::initThreadLocalStorage() {
  if (t_block.initialized) return;
  t_block.initialized = true;
  // Allocate what is already reserved so the thread starts with its full block.
  std::vector<size_t> sizes;
  {
    std::lock_guard<std::mutex> lock(registry().mutex);
    sizes = registry().sizes;
  }
  for (size_t slot = 0; slot < sizes.size(); ++slot) t_block.get(slot, sizes[slot]);
}

bool SbThreadLocalStorage::isInitialized() { return t_block.initialized; }

size_t SbThreadLocalStorage::createStorage(size_t size) {
  std::lock_guard<std::mutex> lock(registry().mutex);
  registry().sizes.push_back(size);
  return registry().sizes.size() - 1;
}

void* SbThreadLocalStorage::getStorage(size_t slot) {
  size_t size = 0;
  if (!registry().sizeOf(slot, size)) return nullptr;
  initThreadLocalStorage();
  return t_block.get(slot, size);
}
