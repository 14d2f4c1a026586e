#include <Orvex/engines/SoEngine.h>

#include <Orvex/SoFieldList.h>
#include <Orvex/engines/SoEngineList.h>
#include <Orvex/fields/SoField.h>
#include <Orvex/fields/SoMField.h>
#include <Orvex/fields/SoSField.h>
#include <Orvex/misc/SoBaseList.h>

namespace {
SoType s_engineType;
const SoFieldData* s_engineFieldData = nullptr;
const SoEngineOutputData* s_engineOutputData = nullptr;
}  // namespace

SoEngine::SoEngine() = default;

// The outputs, members of the engine classes, let their fields go.
SoEngine::~SoEngine() = default;

SoType SoEngine::getClassTypeId() { return s_engineType; }

void SoEngine::initClass() {
  SoFieldContainer::initClass();
  if (s_engineType.isBad()) s_engineType = SoType::createType(SoFieldContainer::getClassTypeId(), "Engine");
}

const SoFieldData** SoEngine::getFieldDataPtr() { return &s_engineFieldData; }
const SoEngineOutputData** SoEngine::getOutputDataPtr() { return &s_engineOutputData; }
const SoEngineOutputData* SoEngine::getOutputData() const { return nullptr; }

int SoEngine::getOutputs(std::vector<SoEngineOutput*>& list) const {
  const SoEngineOutputData* data = getOutputData();
  if (!data) return 0;
  for (int i = 0; i < data->getNumOutputs(); ++i) list.push_back(data->getOutput(this, i));
  return data->getNumOutputs();
}

SoEngineOutput* SoEngine::getOutput(const SbName& outputName) const {
  const SoEngineOutputData* data = getOutputData();
  if (!data) return nullptr;
  for (int i = 0; i < data->getNumOutputs(); ++i)
    if (data->getOutputName(i) == outputName) return data->getOutput(this, i);
  return nullptr;
}

bool SoEngine::getOutputName(const SoEngineOutput* output, SbName& outputName) const {
  const SoEngineOutputData* data = getOutputData();
  const int index = data ? data->getIndex(this, output) : -1;
  if (index < 0) return false;
  outputName = data->getOutputName(index);
  return true;
}

SoEngine* SoEngine::getByName(const SbName& name) {
  return static_cast<SoEngine*>(SoBase::getNamedBase(name, getClassTypeId()));
}

int SoEngine::getByName(const SbName& name, SoEngineList& list) {
  SoBaseList found;
  const int n = SoBase::getNamedBases(name, found, getClassTypeId());
  for (int i = 0; i < n; ++i) list.append(static_cast<SoEngine*>(found[i]));
  return n;
}

SoEngine* SoEngine::copy(bool copyConnections) const {
  initCopyDict();
  auto* result = static_cast<SoEngine*>(findCopy(this, copyConnections));
  if (result) result->ref();
  copyDone();
  if (result) result->unrefNoDelete();
  return result;
}

void SoEngine::inputChanged(SoField*) {}
void SoEngine::evaluate() {}

void SoEngine::evaluateWrapper() {
  if (m_evaluating) return;
  m_evaluating = true;
  ref();  // evaluating may drop the last connection
  evaluate();
  m_evaluating = false;
  // Outputs the engine did not write keep their old values, now current.
  if (const SoEngineOutputData* data = getOutputData())
    for (int i = 0; i < data->getNumOutputs(); ++i) data->getOutput(this, i)->markEvaluated();
  unref();
}

void SoEngine::notify(SoNotList* list) {
  if (m_notifying || m_evaluating) return;
  m_notifying = true;
  // The input that changed, when it is one of this engine's.
  SoField* field = list->getLastField();
  if (field && field->getContainer() == this) inputChanged(field);
  if (const SoEngineOutputData* data = getOutputData())
    for (int i = 0; i < data->getNumOutputs(); ++i) {
      const SoEngineOutput* out = data->getOutput(this, i);
      if (out->isEnabled()) out->notifyConnections(list);
    }
  SoFieldContainer::notify(list);
  m_notifying = false;
}

// ---- outputs ----------------------------------------------------------------------------

SoEngineOutput::SoEngineOutput() = default;

SoEngineOutput::~SoEngineOutput() {
  for (SoField* f : m_connections) f->engineOutputDestroyed(this);
}

int SoEngineOutput::getForwardConnections(SoFieldList& list) const {
  for (SoField* f : m_connections) list.append(f);
  return getNumConnections();
}

void SoEngineOutput::addConnection(SoField* field) { m_connections.push_back(field); }

void SoEngineOutput::removeConnection(SoField* field) {
  for (auto it = m_connections.begin(); it != m_connections.end(); ++it)
    if (*it == field) {
      m_connections.erase(it);
      return;
    }
}

void SoEngineOutput::notifyConnections(SoNotList* list) const {
  // A copy: a notified field may disconnect itself.
  const std::vector<SoField*> fields = m_connections;
  for (SoField* f : fields) {
    SoNotList copy(*list);
    f->engineOutputChanged(&copy);
  }
}

void SoEngineOutput::markEvaluated() const {
  for (SoField* f : m_connections) f->m_needsEvaluation = false;
}

SoEngineOutputData::SoEngineOutputData(const SoEngineOutputData* parent) {
  if (parent) m_outputs = parent->m_outputs;
}

void SoEngineOutputData::addOutput(const SoEngine* base, const char* name, const SoEngineOutput* output, SoType type) {
  Entry e{SbName(name), type, base != nullptr, 0, output};
  if (base)
    e.offset = reinterpret_cast<const char*>(output) - reinterpret_cast<const char*>(static_cast<const SoBase*>(base));
  m_outputs.push_back(e);
}

SoEngineOutput* SoEngineOutputData::getOutput(const SoEngine* engine, int index) const {
  const Entry& e = m_outputs[static_cast<size_t>(index)];
  if (!e.byOffset) return const_cast<SoEngineOutput*>(e.output);
  return reinterpret_cast<SoEngineOutput*>(
      const_cast<char*>(reinterpret_cast<const char*>(static_cast<const SoBase*>(engine)) + e.offset));
}

int SoEngineOutputData::getIndex(const SoEngine* engine, const SoEngineOutput* output) const {
  for (int i = 0; i < getNumOutputs(); ++i)
    if (getOutput(engine, i) == output) return i;
  return -1;
}

void SoEngineList::append(SoEngine* engine) { SoBaseList::append(engine); }

namespace orvex {
void convertFieldValue(const SoField& from, SoField& to) {
  SbString text;
  // A single-value field takes the first of several values.
  if (from.isOfType(SoMField::getClassTypeId()) && to.isOfType(SoSField::getClassTypeId())) {
    const auto& multi = static_cast<const SoMField&>(from);
    if (multi.getNum() == 0) return;
    multi.get1(0, text);
  } else {
    from.get(text);
  }
  to.set(text.getString());
}
}  // namespace orvex
