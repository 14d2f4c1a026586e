#include <Orvex/fields/SoField.h>

#include <Orvex/SoFieldList.h>
#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>
#include <Orvex/engines/SoEngine.h>
#include <Orvex/engines/SoEngineOutput.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/fields/SoFieldContainer.h>
#include <Orvex/fields/SoMField.h>
#include <Orvex/fields/SoSField.h>

#include <algorithm>
#include <cstring>

#include "FieldRegistry.h"

namespace {
SoType s_fieldType;
}

// The masters of a connected field. The field audits each master; a change
// of a master is copied into the field.
struct SoField::Connection : SoFieldAuditor {
  explicit Connection(SoField* slave) : slave(slave) {}
  using SoFieldAuditor::fieldChanged;
  void fieldChanged(SoField* master) override {
    if (enabled) slave->takeValueFrom(master);
  }
  void fieldDestroyed(SoField* master) override {
    masters.erase(std::remove(masters.begin(), masters.end(), master), masters.end());
  }
  SoField* slave;
  std::vector<SoField*> masters;
  bool enabled = true;
};

struct SoField::Extra {
  std::vector<SoFieldAuditor*> auditors;
  std::unique_ptr<Connection> connection;
  SoEngineOutput* engineMaster = nullptr;  // the engine is referenced while connected
};

SoField::SoField() = default;

SoField::~SoField() {
  if (!m_extra) return;
  disconnectEngine();
  if (m_extra->connection) {
    for (SoField* master : m_extra->connection->masters) master->removeAuditor(m_extra->connection.get());
    m_extra->connection.reset();
  }
  const std::vector<SoFieldAuditor*> auditors = m_extra->auditors;
  for (SoFieldAuditor* a : auditors) a->fieldDestroyed(this);
}

SoField::Extra& SoField::extra() {
  if (!m_extra) m_extra = std::make_unique<Extra>();
  return *m_extra;
}

SoType SoField::getClassTypeId() { return s_fieldType; }

void SoField::initClass() {
  SoTypedObject::initClass();
  if (s_fieldType.isBad()) s_fieldType = SoType::createType(SoTypedObject::getClassTypeId(), "Field");
}

void SoField::initClasses() {
  initClass();
  SoSField::initClass();
  SoMField::initClass();
  orvex::initFieldClasses();
}

bool SoField::enableNotify(bool flag) {
  const bool previous = m_notifyEnabled;
  m_notifyEnabled = flag;
  return previous;
}

void SoField::touch() { startNotify(SoNotRec::FIELD_UPDATE, -1, -1); }

void SoField::valueChanged(bool resetDefault) {
  m_needsEvaluation = false;  // a value set directly (or by the engine) is current
  if (resetDefault) m_isDefault = false;
  startNotify(SoNotRec::FIELD_UPDATE, -1, -1);
}

void SoField::valueChanged(int index, int numChanged, bool resetDefault) {
  m_needsEvaluation = false;
  if (resetDefault) m_isDefault = false;
  startNotify(SoNotRec::FIELD_MULTIVALUE, index, numChanged);
}

void SoField::startNotify(SoNotRec::OperationType op, int index, int numChanged) {
  if (!m_notifyEnabled) return;
  // Nothing listens: the common case of setting up a fresh node.
  if ((!m_extra || m_extra->auditors.empty()) && !m_container) return;
  SoNotList list;
  notifyChange(&list, op, index, numChanged);
}

void SoField::notify(SoNotList* list) {
  const SoNotRec* last = list->getLastRec();
  notifyChange(list, last ? last->getOperationType() : SoNotRec::UNSPECIFIED, -1, -1);
}

void SoField::notifyChange(SoNotList* list, SoNotRec::OperationType op, int index, int numChanged) {
  // A field reached again while it is passing a notification on (a cycle
  // of connections or references) stops there.
  if (!m_notifyEnabled || m_inNotify) return;
  m_inNotify = true;
  if (m_extra && !m_extra->auditors.empty()) {
    // A copy: auditors may detach themselves while being told.
    const std::vector<SoFieldAuditor*> auditors = m_extra->auditors;
    for (SoFieldAuditor* a : auditors) {
      if (std::find(m_extra->auditors.begin(), m_extra->auditors.end(), a) != m_extra->auditors.end())
        a->fieldChanged(this, op, index, numChanged);
    }
  }
  if (m_container && m_container->isNotifyEnabled()) {
    SoNotRec rec(m_container);
    rec.setType(list->getLastRec() ? SoNotRec::FIELD : SoNotRec::CONTAINER);
    rec.setOperationType(op);
    rec.setFieldNumIndex(index);
    rec.setFieldNumChanged(numChanged);
    list->append(&rec, this);
    m_container->notify(list);
  }
  m_inNotify = false;
}

void SoField::addAuditor(SoFieldAuditor* auditor) {
  if (!auditor) return;
  extra().auditors.push_back(auditor);
}

void SoField::removeAuditor(SoFieldAuditor* auditor) {
  if (!m_extra) return;
  auto& auditors = m_extra->auditors;
  auto it = std::find(auditors.begin(), auditors.end(), auditor);
  if (it != auditors.end()) auditors.erase(it);
}

int SoField::getNumAuditors() const { return m_extra ? static_cast<int>(m_extra->auditors.size()) : 0; }

// ---- text ---------------------------------------------------------------------

bool SoField::set(const char* valueString) {
  if (!valueString) return false;
  SoInput in;
  in.setBuffer(const_cast<char*>(valueString), std::strlen(valueString));
  if (!readValue(&in)) return false;
  valueChanged();
  return true;
}

void SoField::get(SbString& valueString) const {
  evaluate();
  SoOutput out;
  out.setBuffer(nullptr, 0, nullptr);
  writeValue(&out);
  void* buffer = nullptr;
  size_t size = 0;
  out.getBuffer(buffer, size);
  valueString = SbString(std::string(static_cast<const char*>(buffer), size));
}

bool SoField::isSame(const SoField& f) const {
  if (f.getTypeId() != getTypeId()) return false;
  SbString a, b;
  get(a);
  f.get(b);
  return a == b;
}

void SoField::copyFrom(const SoField& f) {
  if (&f == this || f.getTypeId() != getTypeId()) return;
  SbString text;
  f.get(text);
  set(text.getString());
}

bool SoField::readValue(SoInput*) { return false; }

void SoField::writeValue(SoOutput*) const {}

bool SoField::read(SoInput* in, const SbName& name) {
  if (!readValue(in)) {
    SoReadError::post(in, "Couldn't read value for field \"%s\"", name.getString());
    return false;
  }
  valueChanged();
  return true;
}

void SoField::write(SoOutput* out, const SbName& name) const {
  evaluate();
  if (out->getStage() == SoOutput::COUNTREFS) {
    countWriteRefs(out);
    return;
  }
  if (out->isBinary()) {
    out->write(name);
    writeValue(out);
    return;
  }
  out->indent();
  out->write(name.getString());
  out->write(' ');
  writeValue(out);
  out->endLine();
}

// ---- connections ----------------------------------------------------------------

bool SoField::connectFrom(SoField* master, bool notify, bool append) {
  if (!master || master == this) return false;
  Extra& e = extra();
  if (!e.connection) e.connection = std::make_unique<Connection>(this);
  Connection& c = *e.connection;
  if (!append) {
    for (SoField* old : c.masters) old->removeAuditor(&c);
    c.masters.clear();
    disconnectEngine();
  }
  if (std::find(c.masters.begin(), c.masters.end(), master) == c.masters.end()) {
    c.masters.push_back(master);
    master->addAuditor(&c);
  }
  if (notify && c.enabled) takeValueFrom(master);
  return true;
}

void SoField::disconnect() {
  disconnectEngine();
  if (!m_extra || !m_extra->connection) return;
  for (SoField* master : m_extra->connection->masters) master->removeAuditor(m_extra->connection.get());
  m_extra->connection.reset();
}

void SoField::disconnect(SoField* master) {
  if (!m_extra || !m_extra->connection) return;
  Connection& c = *m_extra->connection;
  auto it = std::find(c.masters.begin(), c.masters.end(), master);
  if (it == c.masters.end()) return;
  master->removeAuditor(&c);
  c.masters.erase(it);
  if (c.masters.empty()) m_extra->connection.reset();
}

bool SoField::isConnected() const {
  return m_extra && ((m_extra->connection && !m_extra->connection->masters.empty()) || m_extra->engineMaster);
}

bool SoField::getConnectedField(SoField*& master) const {
  if (!m_extra || !m_extra->connection || m_extra->connection->masters.empty()) {
    master = nullptr;
    return false;
  }
  master = m_extra->connection->masters.back();
  return true;
}

int SoField::getNumConnections() const {
  if (!m_extra) return 0;
  const int fields = m_extra->connection ? static_cast<int>(m_extra->connection->masters.size()) : 0;
  return fields + (m_extra->engineMaster ? 1 : 0);
}

int SoField::getConnections(SoFieldList& list) const {
  if (!m_extra || !m_extra->connection) return 0;
  for (SoField* m : m_extra->connection->masters) list.append(m);
  return static_cast<int>(m_extra->connection->masters.size());
}

int SoField::getForwardConnections(SoFieldList& list) const {
  if (!m_extra) return 0;
  int n = 0;
  for (SoFieldAuditor* a : m_extra->auditors) {
    if (auto* c = dynamic_cast<Connection*>(a)) {
      list.append(c->slave);
      ++n;
    }
  }
  return n;
}

void SoField::enableConnection(bool flag) {
  Extra& e = extra();
  if (!e.connection) e.connection = std::make_unique<Connection>(this);
  e.connection->enabled = flag;
}

bool SoField::isConnectionEnabled() const { return !m_extra || !m_extra->connection || m_extra->connection->enabled; }

void SoField::copyConnection(const SoField* from) {
  SoEngineOutput* engineOutput = nullptr;
  if (from && from->getConnectedEngine(engineOutput)) {
    // An engine copied along (through an engine field) gives its copy's output.
    SoEngine* engine = engineOutput->getContainer();
    if (auto* copy = static_cast<SoEngine*>(SoFieldContainer::checkCopy(engine))) {
      SbName name;
      if (engine->getOutputName(engineOutput, name))
        if (SoEngineOutput* copied = copy->getOutput(name)) engineOutput = copied;
    }
    connectFrom(engineOutput);
    return;
  }
  SoField* master = nullptr;
  if (!from || !from->getConnectedField(master)) return;
  // A master inside the copied graph is replaced by its copy.
  if (SoFieldContainer* owner = master->getContainer()) {
    if (SoFieldContainer* copy = SoFieldContainer::checkCopy(owner)) {
      SbName name;
      if (owner->getFieldName(master, name))
        if (SoField* copied = copy->getField(name)) master = copied;
    }
  }
  connectFrom(master);
}

void SoField::takeValueFrom(SoField* master) {
  if (m_inNotify) return;
  if (master->getTypeId() == getTypeId()) {
    copyFrom(*master);
  } else {
    // Different types convert through their text form.
    SbString text;
    master->get(text);
    SoInput in;
    in.setBuffer(const_cast<char*>(text.getString()), text.getSize());
    if (readValue(&in)) valueChanged();
  }
}

// ---- engine connections -----------------------------------------------------------

bool SoField::connectFrom(SoEngineOutput* engineOutput, bool notify, bool append) {
  if (!engineOutput || !engineOutput->getContainer()) return false;
  Extra& e = extra();
  if (e.engineMaster == engineOutput) return true;
  // One engine at a time; without append the field masters go too.
  if (!append && e.connection) {
    for (SoField* old : e.connection->masters) old->removeAuditor(e.connection.get());
    e.connection.reset();
  }
  SoEngine* engine = engineOutput->getContainer();
  engine->ref();
  disconnectEngine();
  e.engineMaster = engineOutput;
  engineOutput->addConnection(this);
  m_needsEvaluation = true;
  if (notify && m_notifyEnabled) {
    SoNotList list;
    SoNotRec rec(engine);
    rec.setType(SoNotRec::ENGINE);
    list.append(&rec);
    this->notify(&list);
  }
  return true;
}

void SoField::disconnectEngine() {
  if (!m_extra || !m_extra->engineMaster) return;
  SoEngineOutput* output = m_extra->engineMaster;
  m_extra->engineMaster = nullptr;
  m_needsEvaluation = false;
  SoEngine* engine = output->getContainer();
  output->removeConnection(this);
  if (engine) engine->unref();
}

bool SoField::isConnectedFromEngine() const { return m_extra && m_extra->engineMaster; }

bool SoField::getConnectedEngine(SoEngineOutput*& engineOutput) const {
  engineOutput = m_extra ? m_extra->engineMaster : nullptr;
  return engineOutput != nullptr;
}

void SoField::engineOutputChanged(SoNotList* list) {
  if (!m_extra || !m_extra->engineMaster || !m_extra->engineMaster->isEnabled()) return;
  m_needsEvaluation = true;
  notify(list);
}

void SoField::engineOutputDestroyed(SoEngineOutput* engineOutput) {
  if (m_extra && m_extra->engineMaster == engineOutput) {
    m_extra->engineMaster = nullptr;
    m_needsEvaluation = false;
  }
}

void SoField::evaluateConnection() const {
  // Cleared first: the engine writing this field reads it back.
  m_needsEvaluation = false;
  if (!m_extra || !m_extra->engineMaster) return;
  if (SoEngine* engine = m_extra->engineMaster->getContainer()) engine->evaluateWrapper();
}
