#include <Orvex/misc/SoAuditorList.h>

#include <Orvex/fields/SoField.h>
#include <Orvex/misc/SoBase.h>

#include <algorithm>

// Entries are the auditor's address with the type in the low three bits:
// every auditor is a polymorphic object, so its address is 8-byte aligned.
namespace {
constexpr uintptr_t kTypeMask = 7;
}

uintptr_t SoAuditorList::pack(void* auditor, SoNotRec::Type type) {
  return reinterpret_cast<uintptr_t>(auditor) | static_cast<uintptr_t>(type);
}

uintptr_t SoAuditorList::entry(int index) const { return index == 0 ? m_first : (*m_rest)[index - 1]; }

void SoAuditorList::append(void* auditor, SoNotRec::Type type) {
  if (!auditor) return;
  const uintptr_t e = pack(auditor, type);
  if (m_first == 0) {
    m_first = e;
    return;
  }
  if (!m_rest) m_rest = std::make_unique<std::vector<uintptr_t>>();
  m_rest->push_back(e);
}

int SoAuditorList::find(void* auditor, SoNotRec::Type type) const {
  const uintptr_t e = pack(auditor, type);
  const int n = getLength();
  for (int i = 0; i < n; ++i)
    if (entry(i) == e) return i;
  return -1;
}

void SoAuditorList::remove(int index) {
  const int n = getLength();
  if (index < 0 || index >= n) return;
  if (index == 0) {
    if (m_rest && !m_rest->empty()) {
      m_first = m_rest->front();
      m_rest->erase(m_rest->begin());
    } else {
      m_first = 0;
    }
  } else {
    m_rest->erase(m_rest->begin() + (index - 1));
  }
  if (m_rest && m_rest->empty()) m_rest.reset();
}

void SoAuditorList::remove(void* auditor, SoNotRec::Type type) { remove(find(auditor, type)); }

void* SoAuditorList::getObject(int index) const { return reinterpret_cast<void*>(entry(index) & ~kTypeMask); }

SoNotRec::Type SoAuditorList::getType(int index) const {
  return static_cast<SoNotRec::Type>(entry(index) & kTypeMask);
}

void SoAuditorList::notify(SoNotList* list) const {
  const int n = getLength();
  if (n == 0) return;
  // A snapshot, because auditors may change the list; each entry is checked
  // again before it is told, so one that was removed meanwhile is skipped.
  uintptr_t inlineEntries[4];
  std::vector<uintptr_t> heapEntries;
  uintptr_t* entries = inlineEntries;
  if (n > 4) {
    heapEntries.resize(static_cast<size_t>(n));
    entries = heapEntries.data();
  }
  for (int i = 0; i < n; ++i) entries[i] = entry(i);

  for (int i = 0; i < n; ++i) {
    const uintptr_t e = entries[i];
    // Entries only move when an earlier one is removed, so an entry still
    // in its place is present; only then is the whole list searched (a
    // node with many parents would otherwise cost a search per parent).
    if (i > 0 && !(i < getLength() && entry(i) == e)) {
      bool present = false;
      for (int k = 0, len = getLength(); k < len && !present; ++k) present = entry(k) == e;
      if (!present) continue;
    }
    void* object = reinterpret_cast<void*>(e & ~kTypeMask);
    const auto type = static_cast<SoNotRec::Type>(e & kTypeMask);
    SoNotList copy(*list);
    switch (type) {
      case SoNotRec::FIELD:
        static_cast<SoField*>(object)->notify(&copy);
        break;
      case SoNotRec::SENSOR:
        static_cast<SoAuditor*>(object)->notify(&copy);
        break;
      case SoNotRec::PARENT:
      case SoNotRec::ENGINE:
      case SoNotRec::CONTAINER: {
        auto* base = static_cast<SoBase*>(object);
        SoNotRec rec(base);
        rec.setType(type);
        if (const SoNotRec* last = copy.getLastRec()) rec.setOperationType(last->getOperationType());
        copy.append(&rec);
        base->notify(&copy);
        break;
      }
    }
  }
}

void SoAuditorList::notifyDying(SoBase* dying) const {
  const int n = getLength();
  if (n == 0) return;
  std::vector<SoAuditor*> sensors;
  for (int i = 0; i < n; ++i)
    if (getType(i) == SoNotRec::SENSOR) sensors.push_back(static_cast<SoAuditor*>(getObject(i)));
  for (SoAuditor* s : sensors) {
    // A sensor told earlier may have detached this one.
    if (find(s, SoNotRec::SENSOR) >= 0) s->dyingReference(dying);
  }
}
