#pragma once
#include <Orvex/SbBase.h>
#include <mutex>

// A recursive mutex.
class SbThreadMutex {
 public:
  SbThreadMutex() = default;
  SbThreadMutex(const SbThreadMutex&) = delete;
  SbThreadMutex& operator=(const SbThreadMutex&) = delete;
  int lock() { m_mutex.lock(); return 0; }
  int unlock() { m_mutex.unlock(); return 0; }
  bool trylock() { return m_mutex.try_lock(); }
 private:
  std::recursive_mutex m_mutex;
};

// Locks a mutex for the lifetime of a scope.
class SbThreadAutoLock {
 public:
  explicit SbThreadAutoLock(SbThreadMutex* mutex) : m_mutex(mutex) { if (m_mutex) m_mutex->lock(); }
  explicit SbThreadAutoLock(SbThreadMutex& mutex) : SbThreadAutoLock(&mutex) {}
  ~SbThreadAutoLock() { if (m_mutex) m_mutex->unlock(); }
  SbThreadAutoLock(const SbThreadAutoLock&) = delete;
  SbThreadAutoLock& operator=(const SbThreadAutoLock&) = delete;
 private:
  SbThreadMutex* m_mutex;
};
