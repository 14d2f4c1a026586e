#include <Orvex/SoOutput.h>

#include <Orvex/SbFileHelper.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/misc/SoBase.h>

#include <zlib.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {
const char kAsciiHeader[] = "#Orvex V1.0 ascii";
const char kBinaryHeader[] = "#Orvex V1.0 binary";
constexpr size_t kChunk = 1 << 16;  // bytes gathered before a file write
}  // namespace

// Where the bytes go. Files receive them in chunks; memory targets grow.
// A write that fails (a full disk, a closed pipe, a failing flush or close)
// marks the target failed: the failure is posted once, later bytes are
// dropped, and SoOutput::hasWriteError() tells the caller.
struct SoOutput::Target {
  enum Kind { FILE_POINTER, OWNED_FILE, GZ_FILE, USER_MEMORY, OWN_MEMORY };
  Kind kind = FILE_POINTER;
  FILE* fp = stdout;
  gzFile gz = nullptr;
  std::string chunk;
  // USER_MEMORY: the caller's block, grown with its function.
  char* buf = nullptr;
  size_t capacity = 0;
  SoOutputReallocCB* reallocFunc = nullptr;
  size_t used = 0;
  size_t offset = 0;
  bool overflowReported = false;
  // OWN_MEMORY
  std::vector<char> own;
  bool failed = false;
  bool closing = false;  // in the destructor, where nothing is posted

  ~Target() {
    closing = true;
    close();
  }

  void fail(const char* method) {
    if (failed) return;
    failed = true;
    const int error = errno;
    if (!closing)
      SoDebugError::post(method, "Writing failed: %s", error ? std::strerror(error) : "unknown error");
  }

  void flushChunk() {
    if (chunk.empty()) return;
    if (failed) {
      chunk.clear();
      return;
    }
    errno = 0;
    if (kind == GZ_FILE && gz) {
      if (gzwrite(gz, chunk.data(), static_cast<unsigned>(chunk.size())) != static_cast<int>(chunk.size()))
        fail("SoOutput::write");
    } else if (fp) {
      if (std::fwrite(chunk.data(), 1, chunk.size(), fp) != chunk.size()) fail("SoOutput::write");
    }
    chunk.clear();
  }

  // Flushes what the file and the library buffer hold.
  void flush() {
    flushChunk();
    errno = 0;
    if (kind == GZ_FILE && gz && !failed && gzflush(gz, Z_SYNC_FLUSH) != Z_OK) fail("SoOutput::flushFile");
    if (fp && std::fflush(fp) != 0) fail("SoOutput::flushFile");
  }

  void close() {
    flushChunk();
    errno = 0;
    // Closing writes what the buffers still hold: its failure is a write
    // failure too.
    if (kind == GZ_FILE && gz && gzclose(gz) != Z_OK) fail("SoOutput::closeFile");
    if (kind == OWNED_FILE && fp && SbFileHelper::close(fp) != 0) fail("SoOutput::closeFile");
    if (kind == FILE_POINTER && fp && std::fflush(fp) != 0) fail("SoOutput::write");
    gz = nullptr;
    fp = nullptr;
  }

  void put(const char* data, size_t size) {
    switch (kind) {
      case FILE_POINTER:
      case OWNED_FILE:
      case GZ_FILE:
        chunk.append(data, size);
        if (chunk.size() >= kChunk) flushChunk();
        break;
      case OWN_MEMORY:
        own.insert(own.end(), data, data + size);
        break;
      case USER_MEMORY: {
        if (used + size > capacity) {
          size_t want = capacity ? capacity : 1024;
          while (want < used + size) want *= 2;
          void* grown = reallocFunc ? reallocFunc(buf, want) : nullptr;
          if (!grown) {
            if (!overflowReported)
              SoDebugError::post("SoOutput::write", "The output buffer is full and cannot grow");
            overflowReported = true;
            failed = true;
            size = capacity > used ? capacity - used : 0;
          } else {
            buf = static_cast<char*>(grown);
            capacity = want;
          }
        }
        if (size) std::memcpy(buf + used, data, size);
        used += size;
        break;
      }
    }
  }
};

SoOutput::SoOutput() : m_target(std::make_unique<Target>()) {}

SoOutput::~SoOutput() = default;

// ---- targets -------------------------------------------------------------------------

void SoOutput::setFilePointer(FILE* fp) {
  m_target = std::make_unique<Target>();
  m_target->kind = Target::FILE_POINTER;
  m_target->fp = fp;
  m_closedTargetFailed = false;
  reset();
}

FILE* SoOutput::getFilePointer() const {
  const Target& t = *m_target;
  return t.kind == Target::FILE_POINTER || t.kind == Target::OWNED_FILE ? t.fp : nullptr;
}

bool SoOutput::openFile(const char* fileName) { return openFile(SbString(fileName)); }

bool SoOutput::openFile(const SbString& fileName) {
  auto target = std::make_unique<Target>();
  if (m_property == CompressedZlib) {
    target->kind = Target::GZ_FILE;
    target->fp = nullptr;
    target->gz = gzopen(fileName.getString(), "wb");
    if (!target->gz) {
      SoDebugError::post("SoOutput::openFile", "Can't open file \"%s\" for writing", fileName.getString());
      return false;
    }
  } else {
    target->kind = Target::OWNED_FILE;
    target->fp = SbFileHelper::open(fileName, "wb");
    if (!target->fp) {
      SoDebugError::post("SoOutput::openFile", "Can't open file \"%s\" for writing", fileName.getString());
      return false;
    }
  }
  m_target = std::move(target);
  m_closedTargetFailed = false;
  reset();
  return true;
}

void SoOutput::closeFile() {
  if (m_target->kind == Target::OWNED_FILE || m_target->kind == Target::GZ_FILE) {
    m_target->close();
    const bool failed = m_target->failed;
    m_target = std::make_unique<Target>();
    m_closedTargetFailed = failed;
  }
}

bool SoOutput::hasWriteError() const { return m_closedTargetFailed || m_target->failed; }

void SoOutput::setBuffer(void* bufPointer, size_t initSize, SoOutputReallocCB* reallocFunc, int32_t offset) {
  auto target = std::make_unique<Target>();
  target->fp = nullptr;
  if (!bufPointer && !reallocFunc) {
    target->kind = Target::OWN_MEMORY;
  } else {
    target->kind = Target::USER_MEMORY;
    target->buf = static_cast<char*>(bufPointer);
    target->capacity = bufPointer ? initSize : 0;
    target->reallocFunc = reallocFunc;
    target->offset = offset > 0 ? static_cast<size_t>(offset) : 0;
    target->used = std::min(target->offset, target->capacity);
  }
  m_target = std::move(target);
  m_closedTargetFailed = false;
  reset();
}

bool SoOutput::getBuffer(void*& bufPointer, size_t& nBytes) const {
  const Target& t = *m_target;
  if (t.kind == Target::OWN_MEMORY) {
    bufPointer = const_cast<char*>(t.own.data());
    nBytes = t.own.size();
    return true;
  }
  if (t.kind == Target::USER_MEMORY) {
    bufPointer = t.buf;
    nBytes = t.used;
    return true;
  }
  bufPointer = nullptr;
  nBytes = 0;
  return false;
}

size_t SoOutput::getBufferSize() const {
  const Target& t = *m_target;
  if (t.kind == Target::OWN_MEMORY) return t.own.size();
  if (t.kind == Target::USER_MEMORY) return t.used;
  return 0;
}

void SoOutput::resetBuffer() {
  Target& t = *m_target;
  if (t.kind == Target::OWN_MEMORY) t.own.clear();
  if (t.kind == Target::USER_MEMORY) t.used = std::min(t.offset, t.capacity);
  reset();
}

void SoOutput::flushFile() { m_target->flush(); }

// ---- settings ----------------------------------------------------------------------

void SoOutput::setBinary(bool flag) { m_binary = flag; }
bool SoOutput::isBinary() const { return m_binary; }

void SoOutput::setHeaderString(const SbString& header) {
  m_header = header;
  m_customHeader = true;
}

void SoOutput::resetHeaderString() {
  m_header.makeEmpty();
  m_customHeader = false;
}

SbString SoOutput::getDefaultASCIIHeader() { return SbString(kAsciiHeader); }
SbString SoOutput::getDefaultBinaryHeader() { return SbString(kBinaryHeader); }

void SoOutput::setFloatPrecision(int precision) { m_floatPrecision = precision < 0 ? 0 : std::min(precision, 9); }
void SoOutput::setDoublePrecision(int precision) { m_doublePrecision = precision < 0 ? 0 : std::min(precision, 17); }
void SoOutput::setFileProperty(FileProperties property) { m_property = property; }
SoOutput::FileProperties SoOutput::getFileProperty() const { return m_property; }
void SoOutput::setStage(Stages stage) { m_stage = stage; }
SoOutput::Stages SoOutput::getStage() const { return m_stage; }

void SoOutput::writeHeader() {
  if (m_headerWritten) return;
  m_headerWritten = true;
  const SbString header = m_customHeader ? m_header : SbString(m_binary ? kBinaryHeader : kAsciiHeader);
  put(header.getString(), header.getSize());
  put(m_binary ? "\n" : "\n\n", m_binary ? 1 : 2);
}

bool SoOutput::isHeaderWritten() const { return m_headerWritten; }

void SoOutput::reset() {
  m_headerWritten = false;
  m_indent = 0;
  m_refs.clear();
  m_usedNames.clear();
  m_nextNameNumber = 1;
  m_stage = WRITE;
  m_lastChar = '\n';
}

// ---- raw bytes -----------------------------------------------------------------------

void SoOutput::put(const char* data, size_t size) {
  if (size == 0) return;
  m_target->put(data, size);
  m_lastChar = data[size - 1];
}

void SoOutput::putc(char c) { put(&c, 1); }

void SoOutput::putWord(uint32_t w) {
  const char bytes[4] = {char(w & 0xFF), char((w >> 8) & 0xFF), char((w >> 16) & 0xFF), char((w >> 24) & 0xFF)};
  put(bytes, 4);
}

void SoOutput::putDword(uint64_t w) {
  putWord(static_cast<uint32_t>(w));
  putWord(static_cast<uint32_t>(w >> 32));
}

void SoOutput::writeBinaryString(const char* s, size_t len) {
  putWord(static_cast<uint32_t>(len));
  put(s, len);
  static const char zeros[4] = {0, 0, 0, 0};
  put(zeros, (4 - len % 4) % 4);
}

void SoOutput::flushChunk() { m_target->flushChunk(); }

void SoOutput::filePuts(const char* s) {
  if (s) put(s, std::strlen(s));
}

void SoOutput::filePutc(char c) { putc(c); }

// ---- tokens --------------------------------------------------------------------------

void SoOutput::write(char c) { putc(c); }

void SoOutput::write(const char* s) {
  if (!s) s = "";
  if (m_binary)
    writeBinaryString(s, std::strlen(s));
  else
    put(s, std::strlen(s));
}

void SoOutput::write(const SbString& s) {
  if (m_binary) {
    writeBinaryString(s.getString(), s.getSize());
    return;
  }
  std::string text;
  text.reserve(s.getSize() + 2);
  text += '"';
  for (const char c : s.toStdString()) {
    if (c == '"' || c == '\\') text += '\\';
    text += c;
  }
  text += '"';
  put(text.data(), text.size());
}

void SoOutput::write(const SbName& n) {
  if (m_binary)
    writeBinaryString(n.getString(), static_cast<size_t>(n.getLength()));
  else
    put(n.getString(), static_cast<size_t>(n.getLength()));
}

namespace {
template <class T>
size_t formatInteger(char* buf, T value) {
  auto [end, ec] = std::to_chars(buf, buf + 24, value);
  return ec == std::errc() ? static_cast<size_t>(end - buf) : 0;
}
}  // namespace

void SoOutput::write(int i) {
  if (m_binary) return putWord(static_cast<uint32_t>(i));
  char buf[24];
  put(buf, formatInteger(buf, i));
}

void SoOutput::write(unsigned int i) {
  if (m_binary) return putWord(i);
  char buf[24];
  put(buf, formatInteger(buf, i));
}

void SoOutput::write(short s) { write(static_cast<int>(s)); }
void SoOutput::write(unsigned short s) { write(static_cast<unsigned int>(s)); }

void SoOutput::write(int64_t i) {
  if (m_binary) return putDword(static_cast<uint64_t>(i));
  char buf[24];
  put(buf, formatInteger(buf, i));
}

void SoOutput::write(uint64_t i) {
  if (m_binary) return putDword(i);
  char buf[24];
  put(buf, formatInteger(buf, i));
}

void SoOutput::write(float f) {
  if (m_binary) {
    uint32_t w;
    std::memcpy(&w, &f, 4);
    return putWord(w);
  }
  char buf[48];
  auto res = m_floatPrecision > 0 ? std::to_chars(buf, buf + sizeof buf, f, std::chars_format::general, m_floatPrecision)
                                  : std::to_chars(buf, buf + sizeof buf, f);
  put(buf, static_cast<size_t>(res.ptr - buf));
}

void SoOutput::write(double d) {
  if (m_binary) {
    uint64_t w;
    std::memcpy(&w, &d, 8);
    return putDword(w);
  }
  char buf[64];
  auto res = m_doublePrecision > 0
                 ? std::to_chars(buf, buf + sizeof buf, d, std::chars_format::general, m_doublePrecision)
                 : std::to_chars(buf, buf + sizeof buf, d);
  put(buf, static_cast<size_t>(res.ptr - buf));
}

void SoOutput::write(bool b) {
  if (m_binary) return putWord(b ? 1u : 0u);
  if (b)
    put("TRUE", 4);
  else
    put("FALSE", 5);
}

void SoOutput::writeBinaryArray(const unsigned char* data, int length) {
  if (length <= 0) return;
  put(reinterpret_cast<const char*>(data), static_cast<size_t>(length));
  static const char zeros[4] = {0, 0, 0, 0};
  put(zeros, (4 - static_cast<size_t>(length) % 4) % 4);
}

void SoOutput::writeBinaryArray(const int32_t* data, int length) {
  for (int i = 0; i < length; ++i) putWord(static_cast<uint32_t>(data[i]));
}

void SoOutput::writeBinaryArray(const float* data, int length) {
  if (length <= 0) return;
  // Little-endian hosts write the array as it is in memory.
  if constexpr (sizeof(float) == 4) {
    uint32_t probe = 1;
    if (*reinterpret_cast<unsigned char*>(&probe) == 1) {
      put(reinterpret_cast<const char*>(data), static_cast<size_t>(length) * 4);
      return;
    }
  }
  for (int i = 0; i < length; ++i) write(data[i]);
}

void SoOutput::writeBinaryArray(const double* data, int length) {
  for (int i = 0; i < length; ++i) write(data[i]);
}

// ---- indentation ---------------------------------------------------------------------

void SoOutput::indent() {
  if (m_binary || m_lastChar != '\n') return;
  static const char spaces[] = "                                                                ";
  size_t n = static_cast<size_t>(m_indent) * 4;
  while (n > 0) {
    const size_t k = std::min(n, sizeof spaces - 1);
    put(spaces, k);
    n -= k;
  }
}

void SoOutput::incrementIndent(int amount) { m_indent += amount; }

void SoOutput::decrementIndent(int amount) {
  m_indent -= amount;
  if (m_indent < 0) m_indent = 0;
}

int SoOutput::getIndentLevel() const { return m_indent; }

void SoOutput::endLine() {
  if (!m_binary && m_lastChar != '\n') putc('\n');
}

// ---- references ----------------------------------------------------------------------

int SoOutput::addReference(const SoBase* base) {
  RefInfo& info = m_refs[base];
  if (info.count == 0) {
    // Names that objects carry are reserved, so that the names made up for
    // shared unnamed objects never collide with them.
    const SbName name = base->getName();
    if (!!name) m_usedNames.emplace(name, 0);
  }
  return ++info.count;
}

int SoOutput::getReferenceCount(const SoBase* base) const {
  auto it = m_refs.find(base);
  return it == m_refs.end() ? 0 : it->second.count;
}

bool SoOutput::isWritten(const SoBase* base) const {
  auto it = m_refs.find(base);
  return it != m_refs.end() && it->second.written;
}

void SoOutput::setWritten(const SoBase* base, const SbName& name) {
  RefInfo& info = m_refs[base];
  info.written = true;
  info.name = name;
}

SbName SoOutput::getWriteName(const SoBase* base) const {
  auto it = m_refs.find(base);
  return it == m_refs.end() ? SbName() : it->second.name;
}

SbName SoOutput::makeUniqueName(const SbName& wanted) {
  const std::string stem = !wanted ? std::string("_") : std::string(wanted.getString());
  if (!!wanted) {
    auto it = m_usedNames.find(wanted);
    // A name reserved by an object (0) is free for its first definition.
    if (it == m_usedNames.end() || it->second == 0) {
      m_usedNames[wanted] = 1;
      return wanted;
    }
  }
  for (int n = m_nextNameNumber;; ++n) {
    SbName candidate(stem + (stem == "_" ? "" : "_") + std::to_string(n));
    if (m_usedNames.find(candidate) == m_usedNames.end()) {
      m_usedNames[candidate] = 1;
      m_nextNameNumber = n + 1;
      return candidate;
    }
  }
}
