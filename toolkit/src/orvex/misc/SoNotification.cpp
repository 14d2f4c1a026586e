#include <Orvex/misc/SoNotification.h>

#include <atomic>

namespace {
std::atomic<uint64_t> s_notificationCounter{0};
}

SoNotList::SoNotList() : m_timeStamp(++s_notificationCounter) {}

void SoNotList::append(SoNotRec* rec) {
  rec->setPrevious(m_last);
  if (!m_first) m_first = rec;
  m_last = rec;
  ++m_numRecs;
}

void SoNotList::append(SoNotRec* rec, SoField* field) {
  append(rec);
  if (!m_firstField) m_firstField = field;
  m_lastField = field;
}

void SoNotList::setLastType(SoNotRec::Type type) {
  if (m_last) m_last->setType(type);
}
