#pragma once
#include <Orvex/SbBase.h>
#include <shared_mutex>

// A reader-writer lock: many readers or one writer.
class SbThreadRWMutex {
 public:
  SbThreadRWMutex() = default;
  SbThreadRWMutex(const SbThreadRWMutex&) = delete;
  SbThreadRWMutex& operator=(const SbThreadRWMutex&) = delete;
  int readlock() { m_mutex.lock_shared(); return 0; }
  int readunlock() { m_mutex.unlock_shared(); return 0; }
  int writelock() { m_mutex.lock(); return 0; }
  int writeunlock() { m_mutex.unlock(); return 0; }
  bool tryreadlock() { return m_mutex.try_lock_shared(); }
  bool trywritelock() { return m_mutex.try_lock(); }
 private:
  std::shared_mutex m_mutex;
};

class SbThreadAutoReadLock {
 public:
  explicit SbThreadAutoReadLock(SbThreadRWMutex* m) : m_mutex(m) { m_mutex->readlock(); }
  ~SbThreadAutoReadLock() { m_mutex->readunlock(); }
  SbThreadAutoReadLock(const SbThreadAutoReadLock&) = delete;
  SbThreadAutoReadLock& operator=(const SbThreadAutoReadLock&) = delete;
 private:
  SbThreadRWMutex* m_mutex;
};

class SbThreadAutoWriteLock {
 public:
  explicit SbThreadAutoWriteLock(SbThreadRWMutex* m) : m_mutex(m) { m_mutex->writelock(); }
  ~SbThreadAutoWriteLock() { m_mutex->writeunlock(); }
  SbThreadAutoWriteLock(const SbThreadAutoWriteLock&) = delete;
  SbThreadAutoWriteLock& operator=(const SbThreadAutoWriteLock&) = delete;
 private:
  SbThreadRWMutex* m_mutex;
};
