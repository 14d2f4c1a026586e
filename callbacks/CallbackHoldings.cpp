#include "CallbackHoldings.h"

#include <Orvex/misc/SoBase.h>

namespace orvexjava {

CallbackHoldings::~CallbackHoldings() { clear(); }

void CallbackHoldings::add(JNIEnv* env, jobject javaCB, JCallback* callback, uint64_t slot) {
  callback->hold(env, javaCB);
  const std::lock_guard<std::mutex> lock(m_mutex);
  m_entries.push_back({callback, slot});
}

bool CallbackHoldings::remove(JCallback* callback, uint64_t slot) {
  {
    const std::lock_guard<std::mutex> lock(m_mutex);
    auto it = m_entries.begin();
    while (it != m_entries.end() && !(it->callback == callback && it->slot == slot)) ++it;
    if (it == m_entries.end()) return false;
    m_entries.erase(it);
  }
  callback->letGo();
  return true;
}

std::vector<CallbackHoldings::Entry> CallbackHoldings::takeAll(bool (*match)(const Entry&, uint64_t),
                                                               uint64_t slot) {
  const std::lock_guard<std::mutex> lock(m_mutex);
  std::vector<Entry> taken;
  std::vector<Entry> kept;
  for (const Entry& e : m_entries) (match(e, slot) ? taken : kept).push_back(e);
  m_entries.swap(kept);
  return taken;
}

void CallbackHoldings::removeSlot(uint64_t slot) {
  // Holds are given back outside the lock: the last one releases a global
  // reference, which may attach the thread.
  for (const Entry& e : takeAll([](const Entry& e, uint64_t s) { return e.slot == s; }, slot)) e.callback->letGo();
}

void CallbackHoldings::removeSlotExceptLast(uint64_t slot) {
  std::vector<Entry> taken = takeAll([](const Entry& e, uint64_t s) { return e.slot == s; }, slot);
  if (taken.empty()) return;
  {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_entries.push_back(taken.back());
  }
  taken.pop_back();
  for (const Entry& e : taken) e.callback->letGo();
}

void CallbackHoldings::clear() {
  for (const Entry& e : takeAll([](const Entry&, uint64_t) { return true; }, 0)) e.callback->letGo();
}

namespace {
// Serialises the creation of a holder's holdings.
std::mutex g_attachMutex;
}  // namespace

BaseCallbackHoldings& BaseCallbackHoldings::of(SoBase* holder) {
  const std::lock_guard<std::mutex> lock(g_attachMutex);
  const SoAuditorList& auditors = holder->getAuditors();
  for (int i = 0; i < auditors.getLength(); ++i) {
    if (auditors.getType(i) != SoNotRec::SENSOR) continue;
    auto* mine = dynamic_cast<BaseCallbackHoldings*>(static_cast<SoAuditor*>(auditors.getObject(i)));
    if (mine != nullptr) return *mine;
  }
  auto* holdings = new BaseCallbackHoldings(holder);  // owned by the holder: deleted when it dies
  holder->addAuditor(holdings);
  return *holdings;
}

void BaseCallbackHoldings::dyingReference(SoBase* dying) {
  {
    const std::lock_guard<std::mutex> lock(g_attachMutex);
    m_holder->removeAuditor(this);
  }
  delete this;  // gives every hold back
}

}  // namespace orvexjava
