#include <Orvex/fields/SoFieldData.h>

#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/fields/SoField.h>
#include <Orvex/fields/SoFieldContainer.h>

SoFieldData::SoFieldData() = default;
SoFieldData::SoFieldData(const SoFieldData& other) = default;
SoFieldData::SoFieldData(const SoFieldData* other) {
  if (other) *this = *other;
}
SoFieldData& SoFieldData::operator=(const SoFieldData& other) = default;
SoFieldData::~SoFieldData() = default;

namespace {
// Offsets are taken from the container's SoFieldContainer part, so that they
// hold for every class of a hierarchy.
const char* baseAddress(const SoFieldContainer* c) { return reinterpret_cast<const char*>(c); }
}  // namespace

void SoFieldData::addField(SoFieldContainer* base, const char* fieldName, const SoField* field) {
  if (!fieldName || !field) return;
  const SbName name(fieldName);
  Entry entry{name, base != nullptr, 0, nullptr};
  if (base)
    entry.offset = reinterpret_cast<const char*>(field) - baseAddress(base);
  else
    entry.field = field;
  // A name added again (a class redefining a field) replaces the old entry.
  for (Entry& e : m_fields) {
    if (e.name == name) {
      e = entry;
      return;
    }
  }
  m_fields.push_back(entry);
}

SoField* SoFieldData::getField(const SoFieldContainer* object, int index) const {
  if (index < 0 || index >= getNumFields()) return nullptr;
  const Entry& e = m_fields[static_cast<size_t>(index)];
  if (!e.byOffset) return const_cast<SoField*>(e.field);
  if (!object) return nullptr;
  return reinterpret_cast<SoField*>(const_cast<char*>(baseAddress(object) + e.offset));
}

int SoFieldData::getIndex(const SoFieldContainer* object, const SoField* field) const {
  for (int i = 0; i < getNumFields(); ++i)
    if (getField(object, i) == field) return i;
  return -1;
}

int SoFieldData::getFieldIndex(const SbName& name) const {
  for (size_t i = 0; i < m_fields.size(); ++i)
    if (m_fields[i].name == name) return static_cast<int>(i);
  return -1;
}

void SoFieldData::addEnumValue(const SbName& typeName, const SbName& valueName, int value) {
  EnumType* type = nullptr;
  for (EnumType& t : m_enums)
    if (t.name == typeName) type = &t;
  if (!type) {
    m_enums.push_back(EnumType{typeName, std::make_shared<SoEnumTable>()});
    type = &m_enums.back();
  } else if (type->table.use_count() > 1) {
    // Tables are shared with copies of this field data (derived classes)
    // and with fields; a change makes a table of our own.
    type->table = std::make_shared<SoEnumTable>(*type->table);
  }
  SoEnumTable& table = *type->table;
  for (size_t i = 0; i < table.names.size(); ++i) {
    if (table.names[i] == valueName) {
      table.values[i] = value;
      return;
    }
  }
  table.names.push_back(valueName);
  table.values.push_back(value);
}

void SoFieldData::getEnumData(const SbName& typeName, int& num, const int*& values,
                              const SbName*& names) const {
  for (const EnumType& t : m_enums) {
    if (t.name == typeName) {
      num = static_cast<int>(t.table->values.size());
      values = t.table->values.data();
      names = t.table->names.data();
      return;
    }
  }
  num = 0;
  values = nullptr;
  names = nullptr;
}

std::shared_ptr<const SoEnumTable> SoFieldData::getEnumTable(const SbName& typeName) const {
  for (const EnumType& t : m_enums)
    if (t.name == typeName) return t.table;
  return nullptr;
}

namespace {
// The field of `other` that corresponds to field `index` of this data: at the
// same place when both share the data, else by name.
const SoField* counterpart(const SoFieldData* data, const SoFieldContainer* other, int index) {
  if (other->getFieldData() == data) return data->getField(other, index);
  return other->getField(data->getFieldName(index));
}
}  // namespace

void SoFieldData::overlay(SoFieldContainer* to, const SoFieldContainer* from, bool copyConnections) const {
  if (!to || !from || to == from) return;
  for (int i = 0; i < getNumFields(); ++i) {
    SoField* dst = getField(to, i);
    const SoField* src = counterpart(this, from, i);
    if (!dst || !src) continue;
    // Values change silently; the container is notified once at the end.
    const bool notify = dst->enableNotify(false);
    dst->copyFrom(*src);
    dst->setDefault(src->isDefault());
    dst->setIgnored(src->isIgnored());
    dst->setFieldType(src->getFieldType());
    dst->enableNotify(notify);
    if (copyConnections && src->isConnected()) dst->copyConnection(src);
  }
}

bool SoFieldData::isSame(const SoFieldContainer* c1, const SoFieldContainer* c2) const {
  if (c1 == c2) return true;
  if (!c1 || !c2) return false;
  for (int i = 0; i < getNumFields(); ++i) {
    const SoField* a = getField(c1, i);
    const SoField* b = counterpart(this, c2, i);
    if (!a || !b || !a->isSame(*b)) return false;
  }
  return true;
}

bool SoFieldData::read(SoInput* in, SoFieldContainer* object, const SbName& fieldName, bool& foundName) const {
  const int index = getFieldIndex(fieldName);
  foundName = index >= 0;
  if (!foundName) return true;
  SoField* field = getField(object, index);
  return field && field->read(in, fieldName);
}

bool SoFieldData::read(SoInput* in, SoFieldContainer* object, bool errorOnUnknownField) const {
  if (in->isBinary()) {
    int count = 0;
    if (!in->read(count) || count < 0) {
      SoReadError::post(in, "Bad field count");
      return false;
    }
    for (int i = 0; i < count; ++i) {
      SbName name;
      if (!in->read(name, true)) {
        SoReadError::post(in, "Couldn't read field name");
        return false;
      }
      bool found = false;
      if (!read(in, object, name, found)) return false;
      if (!found) {
        SoReadError::post(in, "Unknown field \"%s\"", name.getString());
        return false;
      }
    }
    return true;
  }
  for (;;) {
    char c;
    if (!in->peek(c)) return true;  // the caller reports the missing brace
    if (!SbName::isIdentStartChar(c)) return true;
    SbName name;
    if (!in->read(name, true)) return true;
    bool found = false;
    if (!read(in, object, name, found)) return false;
    if (!found) {
      if (errorOnUnknownField) {
        SoReadError::post(in, "Unknown field \"%s\"", name.getString());
        return false;
      }
      in->putBack(name.getString());
      return true;
    }
  }
}

namespace {
bool shouldWrite(const SoField* field) {
  if (!field || field->isDefault()) return false;
  const int type = field->getFieldType();
  return type == SoField::NORMAL_FIELD || type == SoField::EXPOSED_FIELD;
}
}  // namespace

int SoFieldData::getNumFieldsToWrite(const SoFieldContainer* object) const {
  int n = 0;
  for (int i = 0; i < getNumFields(); ++i)
    if (shouldWrite(getField(object, i))) ++n;
  return n;
}

void SoFieldData::write(SoOutput* out, const SoFieldContainer* object) const {
  if (out->getStage() == SoOutput::COUNTREFS) {
    countWriteRefs(out, object);
    return;
  }
  if (out->isBinary()) out->write(getNumFieldsToWrite(object));
  for (int i = 0; i < getNumFields(); ++i) {
    const SoField* field = getField(object, i);
    if (shouldWrite(field)) field->write(out, getFieldName(i));
  }
}

void SoFieldData::countWriteRefs(SoOutput* out, const SoFieldContainer* object) const {
  for (int i = 0; i < getNumFields(); ++i) {
    const SoField* field = getField(object, i);
    if (shouldWrite(field)) field->countWriteRefs(out);
  }
}

void SoFieldData::writeFieldDescriptions(SoOutput* out, const SoFieldContainer* object) const {
  if (out->getStage() == SoOutput::COUNTREFS) return;
  if (out->isBinary()) {
    out->write(getNumFields());
    for (int i = 0; i < getNumFields(); ++i) {
      const SoField* field = getField(object, i);
      out->write(field->getTypeId().getName());
      out->write(getFieldName(i));
    }
    return;
  }
  out->indent();
  out->write("fields [ ");
  for (int i = 0; i < getNumFields(); ++i) {
    const SoField* field = getField(object, i);
    if (i) out->write(", ");
    out->write(field->getTypeId().getName().getString());
    out->write(' ');
    out->write(getFieldName(i).getString());
  }
  out->write(" ]\n");
}
