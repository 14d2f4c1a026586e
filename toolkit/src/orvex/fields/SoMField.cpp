#include <Orvex/fields/SoMField.h>
#include <Orvex/fields/SoMFieldLending.h>

#include <Orvex/errors/SoMemoryError.h>

#include <new>

#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <mutex>
#include <string>
#include <unordered_map>

namespace {
SoType s_mfieldType;

struct Lender {
  SoMFieldLending::ReleasedCB* released;
  void* closure;
};
// Fields may be changed and destroyed on any thread.
std::mutex s_lendersMutex;
std::unordered_map<const SoMField*, Lender>& lenders() {
  static auto* table = new std::unordered_map<const SoMField*, Lender>;  // outlives static fields
  return *table;
}
}  // namespace

void SoMFieldLending::add(const SoMField* field, ReleasedCB* released, void* closure) {
  Lender earlier{nullptr, nullptr};
  {
    std::lock_guard<std::mutex> lock(s_lendersMutex);
    Lender& slot = lenders()[field];
    earlier = slot;
    slot = Lender{released, closure};
  }
  // Only a lender that lent the same block twice gets here.
  if (earlier.released) earlier.released(earlier.closure);
}

void* SoMFieldLending::lenderOf(const SoMField* field, ReleasedCB* released) {
  std::lock_guard<std::mutex> lock(s_lendersMutex);
  auto it = lenders().find(field);
  return it != lenders().end() && it->second.released == released ? it->second.closure : nullptr;
}

void SoMFieldLending::fieldReleased(const SoMField* field) {
  Lender lender{nullptr, nullptr};
  {
    std::lock_guard<std::mutex> lock(s_lendersMutex);
    auto it = lenders().find(field);
    if (it == lenders().end()) return;
    lender = it->second;
    lenders().erase(it);
  }
  // Outside the lock: the lender may take locks of its own.
  lender.released(lender.closure);
}

SoMField::SoMField() = default;
SoMField::~SoMField() = default;

SoType SoMField::getClassTypeId() { return s_mfieldType; }

void SoMField::initClass() {
  SoField::initClass();
  if (s_mfieldType.isBad()) s_mfieldType = SoType::createType(SoField::getClassTypeId(), "MField");
}

void SoMField::setNum(int newNum) {
  if (newNum < 0 || newNum == num) return;
  try {
    allocValues(newNum);
  } catch (const std::bad_alloc&) {
    // A size no memory can hold: the field keeps its values.
    SoMemoryError::post("field values");
    return;
  }
  valueChanged();
}

void SoMField::deleteValues(int start, int count) {
  if (start < 0 || start >= num) return;
  if (count < 0 || count > num - start) count = num - start;
  if (count == 0) return;
  // Values move down in place: a read-only block is copied first.
  if (m_userDataIsReadOnly) allocValues(num);
  for (int i = start; i + count < num; ++i) copyValue(i, i + count);
  allocValues(num - count);
  valueChanged();
}

void SoMField::insertSpace(int start, int count) {
  if (start < 0 || count <= 0) return;
  if (start > num) start = num;
  const int oldNum = num;
  // More values than an int counts, or than memory holds: nothing changes.
  if (count > INT_MAX - num) {
    SoMemoryError::post("field values");
    return;
  }
  try {
    allocValues(num + count);
  } catch (const std::bad_alloc&) {
    SoMemoryError::post("field values");
    return;
  }
  for (int i = oldNum - 1; i >= start; --i) copyValue(i + count, i);
  for (int i = start; i < start + count; ++i) resetValue(i);
  valueChanged();
}

bool SoMField::set1(int index, const char* valueString) {
  if (index < 0 || !valueString) return false;
  SoInput in;
  in.setBuffer(const_cast<char*>(valueString), std::strlen(valueString));
  const int oldNum = num;
  // The value is read in place: a read-only block is copied first.
  if (index == INT_MAX) return false;
  if (index >= num || m_userDataIsReadOnly) {
    try {
      allocValues(std::max(num, index + 1));
    } catch (const std::bad_alloc&) {
      SoMemoryError::post("field values");
      return false;
    }
  }
  if (!read1Value(&in, index)) {
    if (num != oldNum) allocValues(oldNum);
    return false;
  }
  valueChanged(index, 1);
  return true;
}

void SoMField::get1(int index, SbString& valueString) const {
  if (index < 0 || index >= num) {
    valueString.makeEmpty();
    return;
  }
  SoOutput out;
  out.setBuffer(nullptr, 0, nullptr);
  write1Value(&out, index);
  void* buffer = nullptr;
  size_t size = 0;
  out.getBuffer(buffer, size);
  valueString = SbString(std::string(static_cast<const char*>(buffer), size));
}

void SoMField::disableDeleteValues() { m_deleteValuesEnabled = false; }

bool SoMField::readValue(SoInput* in) {
  if (in->isBinary()) {
    int count = 0;
    if (!in->read(count) || count < 0) return false;
    // Every value takes at least one 4-byte word, so a count beyond what is
    // left is a damaged file, not a reason to allocate. (The field types
    // check their exact value size before allocating.)
    if (static_cast<uint64_t>(count) * 4 > in->getNumBytesLeft()) return false;
    return readBinaryValues(in, count);
  }
  char c;
  if (!in->read(c)) return false;
  if (c != '[') {
    in->putBack(c);
    allocValues(1);
    return read1Value(in, 0);
  }
  int count = 0;
  allocValues(0);
  for (;;) {
    if (!in->read(c)) return false;
    if (c == ']') break;
    in->putBack(c);
    allocValues(count + 1);
    if (!read1Value(in, count)) {
      allocValues(count);
      return false;
    }
    ++count;
    if (!in->read(c)) return false;
    if (c == ']') break;
    if (c != ',') in->putBack(c);  // commas between values are optional
  }
  allocValues(count);
  return true;
}

void SoMField::writeValue(SoOutput* out) const {
  if (out->isBinary()) {
    out->write(num);
    writeBinaryValues(out);
    return;
  }
  if (num == 1) {
    write1Value(out, 0);
    return;
  }
  if (num == 0) {
    out->write("[ ]");
    return;
  }
  const int perLine = getNumValuesPerLine();
  out->write("[ ");
  out->incrementIndent();
  for (int i = 0; i < num; ++i) {
    write1Value(out, i);
    if (i + 1 == num) break;
    // Values that end their own lines (nodes) need no comma.
    if (out->isAtLineStart()) {
      out->indent();
      continue;
    }
    out->write(',');
    if ((i + 1) % perLine == 0) {
      out->write('\n');
      out->indent();
    } else {
      out->write(' ');
    }
  }
  out->decrementIndent();
  if (out->isAtLineStart()) {
    out->indent();
    out->write("]");
  } else {
    out->write(" ]");
  }
}

bool SoMField::readBinaryValues(SoInput* in, int numToRead) {
  allocValues(numToRead);
  for (int i = 0; i < numToRead; ++i)
    if (!read1Value(in, i)) return false;
  return true;
}

void SoMField::writeBinaryValues(SoOutput* out) const {
  for (int i = 0; i < num; ++i) write1Value(out, i);
}
