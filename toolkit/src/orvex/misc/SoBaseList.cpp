#include <Orvex/misc/SoBaseList.h>

#include <Orvex/errors/SoDebugError.h>
#include <Orvex/misc/SoBase.h>

SoBaseList::SoBaseList() = default;

SoBaseList::SoBaseList(int initialSize) : SbPList(initialSize) {}

SoBaseList::SoBaseList(const SoBaseList& other) : SbPList(), m_addRefs(other.m_addRefs) { *this = other; }

SoBaseList& SoBaseList::operator=(const SoBaseList& other) {
  if (this == &other) return *this;
  // Reference the new contents before releasing the old, which may overlap.
  if (m_addRefs)
    for (int i = 0; i < other.getLength(); ++i)
      if (other[i]) other[i]->ref();
  truncate(0);
  SbPList::operator=(other);
  return *this;
}

SoBaseList::~SoBaseList() { truncate(0); }

void SoBaseList::append(SoBase* object) {
  if (m_addRefs && object) object->ref();
  SbPList::append(object);
}

void SoBaseList::insert(SoBase* object, int addBefore) {
  if (m_addRefs && object) object->ref();
  SbPList::insert(object, addBefore);
}

void SoBaseList::remove(int which) {
  if (which < 0 || which >= getLength()) return;
  SoBase* object = (*this)[which];
  SbPList::remove(which);
  if (m_addRefs && object) object->unref();
}

void SoBaseList::truncate(int start) {
  if (start < 0) return;
  while (getLength() > start) {
    SoBase* object = (*this)[getLength() - 1];
    SbPList::truncate(getLength() - 1);
    if (m_addRefs && object) object->unref();
  }
}

void SoBaseList::set(int i, SoBase* object) {
  if (i < 0) return;
  if (i >= getLength()) {
    for (int k = getLength(); k < i; ++k) SbPList::append(nullptr);
    append(object);
    return;
  }
  SoBase* old = (*this)[i];
  if (m_addRefs && object) object->ref();
  SbPList::set(i, object);
  if (m_addRefs && old) old->unref();
}

void SoBaseList::addReferences(bool flag) {
  if (getLength() > 0) {
    SoDebugError::post("SoBaseList::addReferences", "The list must be empty to change whether it references");
    return;
  }
  m_addRefs = flag;
}
