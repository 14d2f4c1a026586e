#include <Orvex/misc/SoCallbackList.h>

#include <algorithm>
#include <atomic>

// Entries are shared with running invocations, which hold a snapshot of the
// list; the flag tells such a snapshot that the entry has left the list.
struct SoCallbackList::Entry {
  Entry(SoCallbackListCB* f, void* d) : function(f), userData(d) {}
  SoCallbackListCB* const function;
  void* const userData;
  std::atomic<bool> removed{false};
};

SoCallbackList::SoCallbackList() = default;

// A list destroyed by one of its own functions calls nothing more.
SoCallbackList::~SoCallbackList() {
  for (const auto& e : m_entries) e->removed = true;
}

void SoCallbackList::addCallback(SoCallbackListCB* f, void* userData) {
  if (!f) return;
  auto entry = std::make_shared<Entry>(f, userData);
  std::lock_guard<std::mutex> lock(m_mutex);
  m_entries.push_back(std::move(entry));
}

void SoCallbackList::removeCallback(SoCallbackListCB* f, void* userData) {
  std::lock_guard<std::mutex> lock(m_mutex);
  auto it = std::find_if(m_entries.begin(), m_entries.end(), [&](const std::shared_ptr<Entry>& e) {
    return e->function == f && e->userData == userData;
  });
  if (it == m_entries.end()) return;
  (*it)->removed = true;
  m_entries.erase(it);
}

void SoCallbackList::clearCallbacks() {
  std::lock_guard<std::mutex> lock(m_mutex);
  for (const auto& e : m_entries) e->removed = true;
  m_entries.clear();
}

int SoCallbackList::getNumCallbacks() const {
  std::lock_guard<std::mutex> lock(m_mutex);
  return static_cast<int>(m_entries.size());
}

void SoCallbackList::invokeCallbacks(void* callbackData) {
  std::vector<std::shared_ptr<Entry>> snapshot;
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    snapshot = m_entries;
  }
  // Only the snapshot is used from here on, so a function may even destroy
  // the list.
  for (const auto& e : snapshot) {
    if (!e->removed.load()) e->function(e->userData, callbackData);
  }
}
