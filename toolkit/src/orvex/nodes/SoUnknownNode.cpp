#include <Orvex/nodes/SoUnknownNode.h>

#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/fields/SoField.h>

// The class's members are written out: its field data is per instance.
SoType SoUnknownNode::s_classTypeId;
int SoUnknownNode::s_actionMethodIndex = 0;
const SoFieldData* SoUnknownNode::s_fieldData = nullptr;
const SoFieldData** SoUnknownNode::s_parentFieldData = nullptr;
SoType SoUnknownNode::getClassTypeId() { return s_classTypeId; }
SoType SoUnknownNode::getTypeId() const { return s_classTypeId; }
int SoUnknownNode::getTypeActionMethodIndex() const { return s_actionMethodIndex; }
void* SoUnknownNode::createInstance() { return static_cast<SoBase*>(new SoUnknownNode); }

SoUnknownNode::SoUnknownNode() = default;
SoUnknownNode::~SoUnknownNode() = default;

void SoUnknownNode::initClass() { SO_NODE_INIT_CLASS(SoUnknownNode, SoGroup, "Group"); }

void SoUnknownNode::setClassName(const char* name) { m_className = SbName(name); }

const char* SoUnknownNode::getFileFormatName() const {
  return !m_className ? getTypeId().getName().getString() : m_className.getString();
}

const SoFieldData* SoUnknownNode::getFieldData() const { return &m_fieldData; }

bool SoUnknownNode::addField(SoType fieldType, const SbName& fieldName) {
  if (!fieldName || !fieldType.isDerivedFrom(SoField::getClassTypeId()) || !fieldType.canCreateInstance())
    return false;
  if (m_fieldData.getFieldIndex(fieldName) >= 0) return false;
  std::unique_ptr<SoField> field(static_cast<SoField*>(fieldType.createInstance()));
  field->setContainer(this);
  // Fields of an unknown node live apart from it: recorded by address.
  m_fieldData.addField(nullptr, fieldName.getString(), field.get());
  m_fields.push_back(std::move(field));
  return true;
}

namespace {
bool readDescription(SoInput* in, SoUnknownNode* node) {
  SbName typeName, fieldName;
  if (!in->read(typeName, true) || !in->read(fieldName, true)) {
    SoReadError::post(in, "Bad field description");
    return false;
  }
  const SoType type = SoType::fromName(typeName);
  if (type.isBad() || !type.isDerivedFrom(SoField::getClassTypeId())) {
    SoReadError::post(in, "Unknown field type \"%s\"", typeName.getString());
    return false;
  }
  if (!node->addField(type, fieldName)) {
    SoReadError::post(in, "Bad field \"%s\" of type \"%s\"", fieldName.getString(), typeName.getString());
    return false;
  }
  return true;
}
}  // namespace

bool SoUnknownNode::readInstance(SoInput* in, unsigned short flags) {
  if (in->isBinary()) {
    int count = 0;
    if (!in->read(count) || count < 0) {
      SoReadError::post(in, "Bad number of field descriptions");
      return false;
    }
    for (int i = 0; i < count; ++i)
      if (!readDescription(in, this)) return false;
  } else {
    // "fields [ Type name, Type name ]"
    SbName keyword;
    char c;
    if (!in->read(keyword, true) || keyword != "fields" || !in->read(c) || c != '[') {
      SoReadError::post(in, "Expected the field descriptions of \"%s\"", getFileFormatName());
      return false;
    }
    for (;;) {
      if (!in->peek(c)) {
        SoReadError::post(in, "Premature end of file in field descriptions");
        return false;
      }
      if (c == ']') {
        in->read(c);
        break;
      }
      if (!readDescription(in, this)) return false;
      if (in->peek(c) && c == ',') in->read(c);
    }
  }
  (void)flags;
  // Values must match the descriptions: an unknown field is an error.
  const bool notify = enableNotify(false);
  bool ok = m_fieldData.read(in, this, false);
  if (ok) ok = readChildren(in);
  enableNotify(notify);
  return ok;
}

bool SoUnknownNode::readChildren(SoInput* in) { return SoGroup::readChildren(in); }

void SoUnknownNode::write(SoWriteAction* action) {
  SoOutput* out = action->getOutput();
  if (out->getStage() == SoOutput::COUNTREFS) {
    if (addWriteReference(out)) {
      m_fieldData.countWriteRefs(out, this);
      doAction(action);
    }
    return;
  }
  if (writeHeader(out, true, false)) return;
  m_fieldData.writeFieldDescriptions(out, this);
  m_fieldData.write(out, this);
  if (out->isBinary()) out->write(getNumChildrenToWrite(action));
  doAction(action);
  writeFooter(out);
}

void SoUnknownNode::copyContents(const SoFieldContainer* from, bool copyConnections) {
  const auto* source = static_cast<const SoUnknownNode*>(from);
  m_className = source->m_className;
  for (int i = 0; i < source->m_fieldData.getNumFields(); ++i) {
    const SoField* f = source->m_fieldData.getField(source, i);
    addField(f->getTypeId(), source->m_fieldData.getFieldName(i));
  }
  SoGroup::copyContents(from, copyConnections);
}
