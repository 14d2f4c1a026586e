#include <Orvex/fields/SoFieldContainer.h>

#include <Orvex/SoFieldList.h>
#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/fields/SoField.h>
#include <Orvex/fields/SoFieldData.h>

#include <cstring>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

SoType s_containerType;

// Copy dictionaries, innermost last; one stack per thread.
struct CopyDict {
  std::unordered_map<const SoFieldContainer*, SoFieldContainer*> copies;
  std::vector<SoFieldContainer*> order;  // copies in the order they were made
};
thread_local std::vector<CopyDict> t_copyDicts;

// A fresh instance of the container's type, referenced; nullptr when the
// type cannot make instances.
SoFieldContainer* freshInstance(const SoFieldContainer* c) {
  const SoType type = c->getTypeId();
  if (!type.canCreateInstance()) return nullptr;
  auto* base = static_cast<SoBase*>(type.createInstance());
  auto* fresh = dynamic_cast<SoFieldContainer*>(base);
  if (!fresh) {
    if (base) {
      base->ref();
      base->unref();
    }
    return nullptr;
  }
  fresh->ref();
  return fresh;
}

}  // namespace

SoFieldContainer::SoFieldContainer() = default;
SoFieldContainer::~SoFieldContainer() = default;

SoType SoFieldContainer::getClassTypeId() { return s_containerType; }

void SoFieldContainer::initClass() {
  SoBase::initClass();
  if (s_containerType.isBad())
    s_containerType = SoType::createType(SoBase::getClassTypeId(), "FieldContainer");
}

const SoFieldData* SoFieldContainer::getFieldData() const { return nullptr; }

SoField* SoFieldContainer::getField(const SbName& fieldName) const {
  const SoFieldData* fd = getFieldData();
  if (!fd) return nullptr;
  const int index = fd->getFieldIndex(fieldName);
  return index < 0 ? nullptr : fd->getField(this, index);
}

SoField* SoFieldContainer::getEventIn(const SbName& fieldName) const {
  if (SoField* f = getField(fieldName)) {
    const int t = f->getFieldType();
    if (t == SoField::EVENTIN_FIELD || t == SoField::EXPOSED_FIELD) return f;
  }
  const char* text = fieldName.getString();
  if (std::strncmp(text, "set_", 4) == 0) {
    if (SoField* f = getField(SbName(text + 4)))
      if (f->getFieldType() == SoField::EXPOSED_FIELD) return f;
  }
  return nullptr;
}

SoField* SoFieldContainer::getEventOut(const SbName& fieldName) const {
  if (SoField* f = getField(fieldName)) {
    const int t = f->getFieldType();
    if (t == SoField::EVENTOUT_FIELD || t == SoField::EXPOSED_FIELD) return f;
  }
  const std::string text = fieldName.getString();
  const std::string suffix = "_changed";
  if (text.size() > suffix.size() && text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0) {
    if (SoField* f = getField(SbName(text.substr(0, text.size() - suffix.size()))))
      if (f->getFieldType() == SoField::EXPOSED_FIELD) return f;
  }
  return nullptr;
}

bool SoFieldContainer::getFieldName(const SoField* field, SbName& fieldName) const {
  const SoFieldData* fd = getFieldData();
  const int index = fd ? fd->getIndex(this, field) : -1;
  if (index < 0) return false;
  fieldName = fd->getFieldName(index);
  return true;
}

int SoFieldContainer::getFields(SoFieldList& list) const {
  const SoFieldData* fd = getFieldData();
  if (!fd) return 0;
  int n = 0;
  for (int i = 0; i < fd->getNumFields(); ++i) {
    SoField* f = fd->getField(this, i);
    if (f->getFieldType() == SoField::INTERNAL_FIELD) continue;
    list.append(f);
    ++n;
  }
  return n;
}

int SoFieldContainer::getAllFields(SoFieldList& list) const {
  const SoFieldData* fd = getFieldData();
  if (!fd) return 0;
  for (int i = 0; i < fd->getNumFields(); ++i) list.append(fd->getField(this, i));
  return fd->getNumFields();
}

void SoFieldContainer::setToDefaults() {
  const SoFieldData* fd = getFieldData();
  if (!fd) return;
  SoFieldContainer* fresh = freshInstance(this);
  if (!fresh) return;
  const bool notify = enableNotify(false);
  fd->overlay(this, fresh, false);
  for (int i = 0; i < fd->getNumFields(); ++i) fd->getField(this, i)->setDefault(true);
  enableNotify(notify);
  fresh->unref();
  touch();
}

bool SoFieldContainer::hasDefaultValues() const {
  const SoFieldData* fd = getFieldData();
  if (!fd) return true;
  if (SoFieldContainer* fresh = freshInstance(this)) {
    const bool same = fd->isSame(this, fresh);
    fresh->unref();
    return same;
  }
  for (int i = 0; i < fd->getNumFields(); ++i)
    if (!fd->getField(this, i)->isDefault()) return false;
  return true;
}

bool SoFieldContainer::fieldsAreEqual(const SoFieldContainer* fc) const {
  const SoFieldData* fd = getFieldData();
  if (!fc) return false;
  if (!fd) return fc->getFieldData() == nullptr;
  const SoFieldData* other = fc->getFieldData();
  if (!other || other->getNumFields() != fd->getNumFields()) return false;
  return fd->isSame(this, fc);
}

void SoFieldContainer::copyFieldValues(const SoFieldContainer* fc, bool copyConnections) {
  const SoFieldData* fd = getFieldData();
  if (!fd || !fc || fc == this) return;
  const bool notify = enableNotify(false);
  fd->overlay(this, fc, copyConnections);
  enableNotify(notify);
  touch();
}

bool SoFieldContainer::set(const char* fieldDataString) {
  const SoFieldData* fd = getFieldData();
  if (!fd || !fieldDataString) return false;
  SoInput in;
  in.setBuffer(const_cast<char*>(fieldDataString), std::strlen(fieldDataString));
  if (!fd->read(&in, this, true)) return false;
  char c;
  if (in.read(c)) {
    SoReadError::post(&in, "Unexpected text after the field values");
    return false;
  }
  return true;
}

void SoFieldContainer::get(SbString& fieldDataString) const {
  fieldDataString.makeEmpty();
  const SoFieldData* fd = getFieldData();
  if (!fd) return;
  SoOutput out;
  out.setBuffer(nullptr, 0, nullptr);
  fd->write(&out, this);
  void* buffer = nullptr;
  size_t size = 0;
  out.getBuffer(buffer, size);
  fieldDataString = SbString(std::string(static_cast<const char*>(buffer), size));
}

bool SoFieldContainer::enableNotify(bool flag) {
  const bool previous = m_notifyEnabled;
  m_notifyEnabled = flag;
  return previous;
}

void SoFieldContainer::notify(SoNotList* list) {
  if (!m_notifyEnabled) return;
  SoBase::notify(list);
}

bool SoFieldContainer::readInstance(SoInput* in, unsigned short) {
  const SoFieldData* fd = getFieldData();
  if (!fd) return true;
  const bool notify = enableNotify(false);
  const bool ok = fd->read(in, this, true);
  enableNotify(notify);
  return ok;
}

void SoFieldContainer::writeInstance(SoOutput* out) {
  if (out->getStage() == SoOutput::COUNTREFS) {
    if (addWriteReference(out))
      if (const SoFieldData* fd = getFieldData()) fd->countWriteRefs(out, this);
    return;
  }
  if (writeHeader(out, false, false)) return;
  if (const SoFieldData* fd = getFieldData()) fd->write(out, this);
  writeFooter(out);
}

// ---- copying ---------------------------------------------------------------------

void SoFieldContainer::initCopyDict() { t_copyDicts.emplace_back(); }

void SoFieldContainer::addCopy(const SoFieldContainer* original, const SoFieldContainer* copy) {
  if (t_copyDicts.empty() || !original || !copy) return;
  CopyDict& dict = t_copyDicts.back();
  auto* c = const_cast<SoFieldContainer*>(copy);
  auto [it, inserted] = dict.copies.emplace(original, c);
  if (!inserted) return;
  // The dictionary keeps each copy alive until copyDone().
  c->ref();
  dict.order.push_back(c);
}

SoFieldContainer* SoFieldContainer::checkCopy(const SoFieldContainer* original) {
  if (t_copyDicts.empty()) return nullptr;
  const CopyDict& dict = t_copyDicts.back();
  auto it = dict.copies.find(original);
  return it == dict.copies.end() ? nullptr : it->second;
}

SoFieldContainer* SoFieldContainer::findCopy(const SoFieldContainer* original, bool copyConnections) {
  if (!original) return nullptr;
  if (SoFieldContainer* existing = checkCopy(original)) return existing;
  SoFieldContainer* copy = freshInstance(original);
  if (!copy) return nullptr;
  addCopy(original, copy);
  copy->unref();  // the dictionary holds it now
  copy->copyContents(original, copyConnections);
  return copy;
}

void SoFieldContainer::copyDone() {
  if (t_copyDicts.empty()) return;
  CopyDict dict = std::move(t_copyDicts.back());
  t_copyDicts.pop_back();
  // Copies that nothing else refers to are deleted here.
  for (SoFieldContainer* c : dict.order) c->unref();
}

void SoFieldContainer::copyContents(const SoFieldContainer* from, bool copyConnections) {
  const SoFieldData* fd = getFieldData();
  if (!fd || !from) return;
  const bool notify = enableNotify(false);
  fd->overlay(this, from, copyConnections);
  // Node and path values that were copied too refer to their copies.
  for (int i = 0; i < fd->getNumFields(); ++i) fd->getField(this, i)->fixCopy(copyConnections);
  enableNotify(notify);
}

SoFieldContainer* SoFieldContainer::copyThroughConnection() const {
  SoFieldContainer* copy = checkCopy(this);
  return copy ? copy : const_cast<SoFieldContainer*>(this);
}
