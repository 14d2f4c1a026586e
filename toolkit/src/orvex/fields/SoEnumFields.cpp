// Enumerated and bit-mask fields, single and multiple.

#include <Orvex/errors/SoDebugError.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/fields/SoFieldData.h>
#include <Orvex/fields/SoMFBitMask.h>
#include <Orvex/fields/SoMFEnum.h>
#include <Orvex/fields/SoSFBitMask.h>
#include <Orvex/fields/SoSFEnum.h>

#include "FieldSource.h"

namespace {

using Table = std::shared_ptr<const SoEnumTable>;

Table makeTable(int num, const int* vals, const SbName* names) {
  auto table = std::make_shared<SoEnumTable>();
  for (int i = 0; i < num && vals && names; ++i) {
    table->values.push_back(vals[i]);
    table->names.push_back(names[i]);
  }
  return table;
}

bool findValue(const Table& t, const SbName& name, int& val) {
  if (!t) return false;
  for (size_t i = 0; i < t->names.size(); ++i) {
    if (t->names[i] == name) {
      val = t->values[i];
      return true;
    }
  }
  return false;
}

bool findName(const Table& t, int val, SbName& name) {
  if (!t) return false;
  for (size_t i = 0; i < t->values.size(); ++i) {
    if (t->values[i] == val) {
      name = t->names[i];
      return true;
    }
  }
  return false;
}

int getEnumAt(const Table& t, int index, SbName& name) {
  if (!t || index < 0 || static_cast<size_t>(index) >= t->values.size()) {
    name = SbName();
    return -1;
  }
  name = t->names[static_cast<size_t>(index)];
  return t->values[static_cast<size_t>(index)];
}

// One enumeration value: a name of the table, or (for fields that have no
// table, or in binary files) a number.
// A field without a table of its own (one of a node type the reader does not
// know) learns the names it reads, numbered in order, so that it can write
// them back.
bool readEnumText(SoInput* in, Table& t, int& val, bool asMask = false) {
  char c;
  if (!in->peek(c)) return false;
  if (SbName::isIdentStartChar(c)) {
    SbName name;
    if (!in->read(name, true)) return false;
    if (findValue(t, name, val)) return true;
    if (!t || t->learned) {
      auto learned = t ? std::make_shared<SoEnumTable>(*t) : std::make_shared<SoEnumTable>();
      learned->learned = true;
      const int n = static_cast<int>(learned->values.size());
      if (asMask && n >= 31) return false;
      val = asMask ? (1 << n) : n;
      learned->values.push_back(val);
      learned->names.push_back(name);
      t = learned;
      return true;
    }
    SoReadError::post(in, "Unknown enumeration value \"%s\"", name.getString());
    return false;
  }
  return in->read(val);
}

void writeEnumText(SoOutput* out, const Table& t, int val) {
  SbName name;
  if (findName(t, val, name))
    out->write(name.getString());
  else
    out->write(val);
}

// A bit mask: one name, a number, or "( A | B | ... )".
bool readMaskText(SoInput* in, Table& t, int& val) {
  char c;
  if (!in->peek(c)) return false;
  if (c != '(') return readEnumText(in, t, val, true);
  in->read(c);
  val = 0;
  bool expectValue = true;
  bool any = false;
  for (;;) {
    if (!in->read(c)) return false;
    // "()" is no flag; a dangling '|' is an error.
    if (c == ')') return !any || !expectValue;
    if (c == '|') {
      if (expectValue) return false;
      expectValue = true;
      continue;
    }
    if (!expectValue) return false;
    in->putBack(c);
    int bit = 0;
    if (!readEnumText(in, t, bit, true)) return false;
    val |= bit;
    expectValue = false;
    any = true;
  }
}

// Writes the names of the flags; bits without a name are written as a number.
void writeMaskText(SoOutput* out, const Table& t, int val) {
  if (!t) {
    out->write(val);
    return;
  }
  SbName exact;
  if (findName(t, val, exact)) {
    out->write(exact.getString());
    return;
  }
  std::vector<SbName> parts;
  int remaining = val;
  // Entries covering several bits (ALL) first would hide the single ones, so
  // single bits are taken in table order, then whatever is left.
  for (size_t i = 0; i < t->values.size(); ++i) {
    const int bits = t->values[i];
    if (bits != 0 && (remaining & bits) == bits && (bits & (bits - 1)) == 0) {
      parts.push_back(t->names[i]);
      remaining &= ~bits;
    }
  }
  for (size_t i = 0; i < t->values.size() && remaining; ++i) {
    const int bits = t->values[i];
    if (bits != 0 && (remaining & bits) == bits) {
      parts.push_back(t->names[i]);
      remaining &= ~bits;
    }
  }
  out->write("( ");
  bool first = true;
  for (const SbName& n : parts) {
    if (!first) out->write(" | ");
    out->write(n.getString());
    first = false;
  }
  if (remaining || parts.empty()) {
    if (!first) out->write(" | ");
    out->write(remaining);
  }
  out->write(" )");
}

// Binary files hold the same text as a string, so that the names (which a
// reader without the node type learns from them) survive.
template <class ReadText>
bool readValue(SoInput* in, ReadText readText) {
  if (!in->isBinary()) return readText(in);
  SbString text;
  if (!in->read(text)) return false;
  SoInput sub;
  sub.setBuffer(const_cast<char*>(text.getString()), text.getSize());
  return readText(&sub) && !sub.skipWhiteSpace();
}

template <class WriteText>
void writeValue(SoOutput* out, WriteText writeText) {
  if (!out->isBinary()) return writeText(out);
  SoOutput sub;
  sub.setBuffer(nullptr, 0, nullptr);
  writeText(&sub);
  void* buffer = nullptr;
  size_t size = 0;
  sub.getBuffer(buffer, size);
  out->write(SbString(std::string(static_cast<const char*>(buffer), size)));
}

bool readEnum(SoInput* in, Table& t, int& val) {
  return readValue(in, [&](SoInput* i) { return readEnumText(i, t, val); });
}
void writeEnum(SoOutput* out, const Table& t, int val) {
  writeValue(out, [&](SoOutput* o) { writeEnumText(o, t, val); });
}
bool readMask(SoInput* in, Table& t, int& val) {
  return readValue(in, [&](SoInput* i) { return readMaskText(i, t, val); });
}
void writeMask(SoOutput* out, const Table& t, int val) {
  writeValue(out, [&](SoOutput* o) { writeMaskText(o, t, val); });
}

}  // namespace

// ---- SoSFEnum ----------------------------------------------------------------------

SO_SFIELD_CORE_SOURCE(SoSFEnum, "SFEnum", int, int)

void SoSFEnum::setValue(const SbName& name) {
  int val = 0;
  if (findValue(m_enums, name, val)) {
    setValue(val);
    return;
  }
  SoDebugError::post("SoSFEnum::setValue", "Unknown enumeration value \"%s\"", name.getString());
}

void SoSFEnum::setEnums(int num, const int* vals, const SbName* names) { m_enums = makeTable(num, vals, names); }
void SoSFEnum::setEnumTable(std::shared_ptr<const SoEnumTable> table) { m_enums = std::move(table); }
int SoSFEnum::getNumEnums() const { return m_enums ? static_cast<int>(m_enums->values.size()) : 0; }
int SoSFEnum::getEnum(int index, SbName& name) const { return getEnumAt(m_enums, index, name); }
bool SoSFEnum::findEnumValue(const SbName& name, int& val) const { return findValue(m_enums, name, val); }
bool SoSFEnum::findEnumName(int val, SbName& name) const { return findName(m_enums, val, name); }

bool SoSFEnum::readValue(SoInput* in) { return readEnum(in, m_enums, value); }
void SoSFEnum::writeValue(SoOutput* out) const { writeEnum(out, m_enums, value); }

// ---- SoSFBitMask -------------------------------------------------------------------

SO_FIELD_SOURCE(SoSFBitMask, SoSFEnum, "SFBitMask")
SoSFBitMask::SoSFBitMask() = default;
SoSFBitMask::~SoSFBitMask() = default;
SoSFBitMask& SoSFBitMask::operator=(const SoSFBitMask& f) {
  if (this != &f) setValue(f.getValue());
  return *this;
}
bool SoSFBitMask::readValue(SoInput* in) { return readMask(in, m_enums, value); }
void SoSFBitMask::writeValue(SoOutput* out) const { writeMask(out, m_enums, value); }

// ---- SoMFEnum ----------------------------------------------------------------------

SO_MFIELD_CORE_SOURCE(SoMFEnum, "MFEnum", int, int)

void SoMFEnum::setValue(const SbName& name) {
  int val = 0;
  if (findValue(m_enums, name, val))
    setValue(val);
  else
    SoDebugError::post("SoMFEnum::setValue", "Unknown enumeration value \"%s\"", name.getString());
}

void SoMFEnum::set1Value(int index, const SbName& name) {
  int val = 0;
  if (findValue(m_enums, name, val))
    set1Value(index, val);
  else
    SoDebugError::post("SoMFEnum::set1Value", "Unknown enumeration value \"%s\"", name.getString());
}

void SoMFEnum::setEnums(int num, const int* vals, const SbName* names) { m_enums = makeTable(num, vals, names); }
void SoMFEnum::setEnumTable(std::shared_ptr<const SoEnumTable> table) { m_enums = std::move(table); }
int SoMFEnum::getNumEnums() const { return m_enums ? static_cast<int>(m_enums->values.size()) : 0; }
int SoMFEnum::getEnum(int index, SbName& name) const { return getEnumAt(m_enums, index, name); }
bool SoMFEnum::findEnumValue(const SbName& name, int& val) const { return findValue(m_enums, name, val); }
bool SoMFEnum::findEnumName(int val, SbName& name) const { return findName(m_enums, val, name); }

bool SoMFEnum::read1Value(SoInput* in, int index) { return readEnum(in, m_enums, values[index]); }
// Names, not numbers: value by value.
bool SoMFEnum::readValue(SoInput* in) { return SoMField::readValue(in); }
void SoMFEnum::writeValue(SoOutput* out) const { SoMField::writeValue(out); }
// Binary values are strings too: one by one.
bool SoMFEnum::readBinaryValues(SoInput* in, int numToRead) { return SoMField::readBinaryValues(in, numToRead); }
void SoMFEnum::writeBinaryValues(SoOutput* out) const { SoMField::writeBinaryValues(out); }
void SoMFEnum::write1Value(SoOutput* out, int index) const { writeEnum(out, m_enums, values[index]); }

// ---- SoMFBitMask -------------------------------------------------------------------

SO_FIELD_SOURCE(SoMFBitMask, SoMFEnum, "MFBitMask")
SoMFBitMask::SoMFBitMask() = default;
SoMFBitMask::~SoMFBitMask() = default;
SoMFBitMask& SoMFBitMask::operator=(const SoMFBitMask& f) {
  SoMFEnum::operator=(f);
  return *this;
}
bool SoMFBitMask::read1Value(SoInput* in, int index) { return readMask(in, m_enums, values[index]); }
void SoMFBitMask::write1Value(SoOutput* out, int index) const { writeMask(out, m_enums, values[index]); }
