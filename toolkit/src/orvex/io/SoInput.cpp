#include <Orvex/SoInput.h>

#include <Orvex/SbFileHelper.h>
#include <Orvex/SoDB.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/misc/SoBase.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <mutex>

#include "Compression.h"
#include "Endian.h"

// One file or buffer being read. The whole content is in memory: files are
// read (and decompressed) when opened, so every token is parsed straight from
// the bytes.
struct SoInput::Source {
  SbString name;           // as the caller gave it
  SbString fullName;       // as found through the directory list
  std::vector<char> owned;  // content read from a file
  const char* data = nullptr;
  size_t size = 0;
  size_t pos = 0;
  size_t headerEnd = 0;    // bytes of the header line
  int line = 1;
  bool binary = false;
  bool requireHeader = false;  // files must have one; buffers need not
  bool valid = true;
  bool headerRead = false;
  bool pushed = false;     // read before the rest of the file below it
  SbString header;
  float version = 0;
  std::string pushback;    // given back, read again before data (last first)
  SoDBHeaderCB* postCB = nullptr;  // of a registered header, called on closing
  void* headerData = nullptr;
};

namespace {

// The directory search list, shared by every input.
struct Directories {
  std::mutex mutex;
  std::vector<SbString> list{SbString(".")};
};
Directories& dirs() {
  static Directories* instance = new Directories;
  return *instance;
}

void addDirectory(const SbString& dir, bool first) {
  if (dir.isEmpty()) return;
  Directories& d = dirs();
  std::lock_guard<std::mutex> lock(d.mutex);
  d.list.erase(std::remove(d.list.begin(), d.list.end(), dir), d.list.end());
  if (first)
    d.list.insert(d.list.begin(), dir);
  else
    d.list.push_back(dir);
}

void addEnvDirectories(const char* envVar, bool first) {
  if (!envVar) return;
  const char* value = std::getenv(envVar);
  if (!value) return;
  std::vector<SbString> parts;
  std::string current;
  for (const char* p = value;; ++p) {
    if (*p == ':' || *p == ';' || *p == '\0') {
      if (!current.empty()) parts.emplace_back(current);
      current.clear();
      if (*p == '\0') break;
    } else {
      current += *p;
    }
  }
  // Added first in reverse, so that the variable's order is kept.
  if (first)
    for (auto it = parts.rbegin(); it != parts.rend(); ++it) addDirectory(*it, true);
  else
    for (const SbString& p : parts) addDirectory(p, false);
}

bool readWholeFile(FILE* fp, std::vector<char>& out) {
  char chunk[65536];
  for (;;) {
    const size_t n = std::fread(chunk, 1, sizeof chunk, fp);
    out.insert(out.end(), chunk, chunk + n);
    if (n < sizeof chunk) return !std::ferror(fp);
  }
}

inline bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v'; }

// Characters that end an unquoted word.
inline bool endsWord(char c) { return isSpace(c) || c == '{' || c == '}' || c == '[' || c == ']' || c == ',' || c == '\0'; }

const char kBufferName[] = "";

}  // namespace

// ---- construction and the directory list ---------------------------------------

SoInput::SoInput() = default;

SoInput::~SoInput() { closeFile(); }

void SoInput::addDirectoryFirst(const char* dirName) { addDirectory(SbString(dirName), true); }
void SoInput::addDirectoryFirst(const SbString& dirName) { addDirectory(dirName, true); }
void SoInput::addDirectoryLast(const char* dirName) { addDirectory(SbString(dirName), false); }
void SoInput::addDirectoryLast(const SbString& dirName) { addDirectory(dirName, false); }
void SoInput::addEnvDirectoriesFirst(const char* envVarName) { addEnvDirectories(envVarName, true); }
void SoInput::addEnvDirectoriesFirst(const SbString& envVarName) { addEnvDirectories(envVarName.getString(), true); }
void SoInput::addEnvDirectoriesLast(const char* envVarName) { addEnvDirectories(envVarName, false); }
void SoInput::addEnvDirectoriesLast(const SbString& envVarName) { addEnvDirectories(envVarName.getString(), false); }
void SoInput::removeDirectory(const char* dirName) { removeDirectory(SbString(dirName)); }

void SoInput::removeDirectory(const SbString& dirName) {
  Directories& d = dirs();
  std::lock_guard<std::mutex> lock(d.mutex);
  d.list.erase(std::remove(d.list.begin(), d.list.end(), dirName), d.list.end());
}

void SoInput::clearDirectories() {
  Directories& d = dirs();
  std::lock_guard<std::mutex> lock(d.mutex);
  d.list.clear();
}

int SoInput::getNumDirectories() {
  Directories& d = dirs();
  std::lock_guard<std::mutex> lock(d.mutex);
  return static_cast<int>(d.list.size());
}

SbString SoInput::getDirectory(int index) {
  Directories& d = dirs();
  std::lock_guard<std::mutex> lock(d.mutex);
  return index >= 0 && static_cast<size_t>(index) < d.list.size() ? d.list[static_cast<size_t>(index)] : SbString();
}

bool SoInput::findAbsolutePath(const SbString& fileName, SbString& absolutePath) {
  if (fileName.isEmpty()) return false;
  if (SbFileHelper::isAbsolute(fileName)) {
    if (!SbFileHelper::exists(fileName)) return false;
    absolutePath = fileName;
    return true;
  }
  std::vector<SbString> list;
  {
    Directories& d = dirs();
    std::lock_guard<std::mutex> lock(d.mutex);
    list = d.list;
  }
  for (const SbString& dir : list) {
    SbString candidate;
    if (dir != ".") {
      candidate = dir;
      if (!candidate.isEmpty() && candidate.getString()[candidate.getSize() - 1] != '/') candidate += "/";
    }
    candidate += fileName;
    if (SbFileHelper::exists(candidate)) {
      if (!SbFileHelper::isAbsolute(candidate)) {
        SbString cwd = SbFileHelper::getCurrentDirectory();
        if (!cwd.isEmpty() && cwd.getString()[cwd.getSize() - 1] != '/') cwd += "/";
        candidate = cwd + candidate;
      }
      absolutePath = candidate;
      return true;
    }
  }
  return false;
}

// ---- opening ---------------------------------------------------------------------

SoInput::Source* SoInput::cur() const { return m_stack.empty() ? nullptr : m_stack.back().get(); }

bool SoInput::openSource(std::unique_ptr<Source> src, bool push) {
  if (orvex::isGzip(src->data, src->size)) {
    std::vector<char> inflated;
    if (!orvex::gunzip(src->data, src->size, inflated)) {
      SoReadError::postAt(src->fullName.getString(), 0, "Could not decompress the file");
      src->valid = false;
    } else {
      src->owned.swap(inflated);
      src->data = src->owned.data();
      src->size = src->owned.size();
    }
  }
  if (!push) closeFile();
  src->pushed = push && !m_stack.empty();
  m_stack.push_back(std::move(src));
  if (m_stack.back()->valid) readHeader(*m_stack.back());
  return m_stack.back()->valid;
}

bool SoInput::openFile(const char* fileName, bool okIfNotFound) { return openFile(SbString(fileName), okIfNotFound); }

bool SoInput::openFile(const SbString& fileName, bool okIfNotFound) {
  SbString full;
  if (!findAbsolutePath(fileName, full)) {
    if (!okIfNotFound) SoReadError::postAt(fileName.getString(), 0, "Can't find file \"%s\"", fileName.getString());
    closeFile();
    return false;
  }
  FILE* fp = SbFileHelper::open(full, "rb");
  if (!fp) {
    if (!okIfNotFound) SoReadError::postAt(fileName.getString(), 0, "Can't open file \"%s\"", full.getString());
    closeFile();
    return false;
  }
  auto src = std::make_unique<Source>();
  src->name = fileName;
  src->fullName = full;
  src->requireHeader = true;
  const bool ok = readWholeFile(fp, src->owned);
  SbFileHelper::close(fp);
  if (!ok) {
    SoReadError::postAt(full.getString(), 0, "Error reading file");
    closeFile();
    return false;
  }
  src->data = src->owned.data();
  src->size = src->owned.size();
  return openSource(std::move(src), false);
}

bool SoInput::pushFile(const char* fileName) { return pushFile(SbString(fileName)); }

bool SoInput::pushFile(const SbString& fileName) {
  SbString full;
  FILE* fp = nullptr;
  if (findAbsolutePath(fileName, full)) fp = SbFileHelper::open(full, "rb");
  if (!fp) {
    SoReadError::post(this, "Can't open file \"%s\"", fileName.getString());
    return false;
  }
  auto src = std::make_unique<Source>();
  src->name = fileName;
  src->fullName = full;
  src->requireHeader = true;
  const bool ok = readWholeFile(fp, src->owned);
  SbFileHelper::close(fp);
  if (!ok) return false;
  src->data = src->owned.data();
  src->size = src->owned.size();
  return openSource(std::move(src), true);
}

void SoInput::closeFile() {
  while (!m_stack.empty()) popSource();
  rollBackReferences(0);
  m_refs.clear();
  m_reading.clear();
}

void SoInput::setFilePointer(FILE* fp) {
  auto src = std::make_unique<Source>();
  src->requireHeader = true;
  if (fp) readWholeFile(fp, src->owned);
  src->data = src->owned.data();
  src->size = src->owned.size();
  if (fp == stdin) src->name = src->fullName = "<stdin>";
  openSource(std::move(src), false);
}

void SoInput::setBuffer(void* buffer, size_t bufSize) {
  auto src = std::make_unique<Source>();
  src->data = static_cast<const char*>(buffer);
  src->size = buffer ? bufSize : 0;
  openSource(std::move(src), false);
}

bool SoInput::readHeader(Source& src) {
  src.headerRead = true;
  const char* d = src.data;
  const size_t n = src.size;
  if (n > 0 && d[0] == '#') {
    size_t end = 0;
    while (end < n && d[end] != '\n' && d[end] != '\r') ++end;
    std::string line(d, end);
    while (!line.empty() && isSpace(line.back())) line.pop_back();
    bool isBinary = false;
    float version = 0;
    SoDBHeaderCB* preCB = nullptr;
    SoDBHeaderCB* postCB = nullptr;
    void* userData = nullptr;
    if (SoDB::getHeaderData(SbString(line), isBinary, version, preCB, postCB, userData)) {
      src.header = SbString(line);
      src.binary = isBinary;
      src.version = version;
      src.postCB = postCB;
      src.headerData = userData;
      if (preCB) preCB(userData, this);
      // The header line and its end of line.
      size_t next = end;
      if (next < n && d[next] == '\r') ++next;
      if (next < n && d[next] == '\n') ++next;
      src.pos = src.headerEnd = next;
      src.line = 2;
      return true;
    }
    if (src.requireHeader || line.compare(0, 6, "#Orvex") == 0) {
      SoReadError::postAt(src.fullName.getString(), 1, "Not a valid Orvex file: unknown header \"%s\"",
                          line.c_str());
      src.valid = false;
      return false;
    }
    // A buffer that starts with a comment: ASCII without a header.
    return true;
  }
  if (src.requireHeader) {
    SoReadError::postAt(src.fullName.getString(), 1, "Not a valid Orvex file: no header");
    src.valid = false;
    return false;
  }
  return true;
}

bool SoInput::isValidFile() {
  const Source* s = cur();
  return s && s->valid && !s->header.isEmpty();
}

bool SoInput::isValidBuffer() {
  const Source* s = cur();
  return s && s->valid;
}

const char* SoInput::getCurFileName() const {
  const Source* s = cur();
  return s ? s->fullName.getString() : kBufferName;
}

SbString SoInput::getCurStringFileName() const { return SbString(getCurFileName()); }

FILE* SoInput::getCurFile() const { return nullptr; }

SoInput::FileTypes SoInput::getCurFileType() const { return m_fileType; }
void SoInput::setCurFileType(FileTypes type) { m_fileType = type; }

SbString SoInput::getHeader() {
  const Source* s = cur();
  return s ? s->header : SbString();
}

float SoInput::getIVVersion() {
  const Source* s = cur();
  return s && !s->header.isEmpty() ? s->version : 1.0f;
}

bool SoInput::isBinary() {
  const Source* s = cur();
  return s && s->binary;
}

size_t SoInput::getNumBytesRead() const {
  const Source* s = cur();
  return s ? s->pos : 0;
}

size_t SoInput::getNumBytesLeft() const {
  const Source* s = cur();
  return s ? s->size - s->pos + s->pushback.size() : 0;
}

int SoInput::getLineNumber() const {
  const Source* s = cur();
  return s ? s->line : 0;
}

bool SoInput::eof() const {
  for (const auto& s : m_stack)
    if (s->valid && (s->pos < s->size || !s->pushback.empty())) return false;
  return true;
}

// ---- characters -----------------------------------------------------------------

// Makes the current source one with something left to read: a finished
// pushed file gives way to the file below it.
bool SoInput::fill() {
  for (;;) {
    Source* s = cur();
    if (!s || !s->valid) return false;
    if (!s->pushback.empty() || s->pos < s->size) return true;
    if (!s->pushed) return false;
    popSource();
  }
}

void SoInput::popSource() {
  std::unique_ptr<Source> src = std::move(m_stack.back());
  m_stack.pop_back();
  if (src->postCB) src->postCB(src->headerData, this);
}

bool SoInput::get(char& c) {
  if (!fill()) return false;
  Source* s = cur();
  if (!s->pushback.empty()) {
    c = s->pushback.back();
    s->pushback.pop_back();
    return true;
  }
  c = s->data[s->pos++];
  if (c == '\n') ++s->line;
  return true;
}

bool SoInput::getRawBuffer(const char*& position, const char*& end) {
  if (isBinary() || !fill()) return false;
  Source* s = cur();
  if (!s->pushback.empty()) return false;
  position = s->data + s->pos;
  end = s->data + s->size;
  return true;
}

void SoInput::setRawPosition(const char* position, int newlines) {
  Source* s = cur();
  if (!s || position < s->data || position > s->data + s->size) return;
  s->pos = static_cast<size_t>(position - s->data);
  s->line += newlines;
}

void SoInput::putBack(char c) {
  Source* s = cur();
  if (!s) return;
  // Usually the character just read: step back over it.
  if (s->pushback.empty() && s->pos > s->headerEnd && s->data[s->pos - 1] == c) {
    --s->pos;
    if (c == '\n') --s->line;
    return;
  }
  s->pushback.push_back(c);
}

void SoInput::putBack(const char* text) {
  if (!text) return;
  for (size_t i = std::strlen(text); i > 0; --i) putBack(text[i - 1]);
}

bool SoInput::skipWhiteSpace() {
  if (isBinary()) return fill();
  for (;;) {
    if (!fill()) return false;
    Source* s = cur();
    if (!s->pushback.empty()) {
      const char c = s->pushback.back();
      if (isSpace(c)) {
        s->pushback.pop_back();
        continue;
      }
      if (c != '#') return true;
      s->pushback.pop_back();
      // A comment: skip the rest of the line.
      char skip;
      while (get(skip) && skip != '\n') {
      }
      continue;
    }
    const char* d = s->data;
    size_t p = s->pos;
    const size_t n = s->size;
    while (p < n) {
      const char c = d[p];
      if (c == '\n') {
        ++s->line;
        ++p;
      } else if (isSpace(c)) {
        ++p;
      } else if (c == '#') {
        while (p < n && d[p] != '\n') ++p;
      } else {
        break;
      }
    }
    s->pos = p;
    if (p < n) return true;
  }
}

bool SoInput::peek(char& c) {
  if (isBinary()) return false;
  if (!skipWhiteSpace()) return false;
  const Source* s = cur();
  c = s->pushback.empty() ? s->data[s->pos] : s->pushback.back();
  return true;
}

bool SoInput::read(char& c) {
  if (isBinary()) return get(c);
  if (!skipWhiteSpace()) return false;
  return get(c);
}

// ---- words, strings and names ------------------------------------------------------

bool SoInput::read(SbString& s) {
  if (isBinary()) {
    int len;
    if (!read(len) || len < 0 || static_cast<size_t>(len) > getNumBytesLeft()) return false;
    std::string text(static_cast<size_t>(len), '\0');
    if (!readBinaryArray(reinterpret_cast<unsigned char*>(text.data()), len)) return false;
    s = SbString(text);
    return true;
  }
  if (!skipWhiteSpace()) return false;
  char c;
  get(c);
  std::string text;
  if (c == '"') {
    for (;;) {
      if (!get(c)) return false;  // unterminated string
      if (c == '"') break;
      if (c == '\\') {
        if (!get(c)) return false;
        switch (c) {
          case 'n': c = '\n'; break;
          case 't': c = '\t'; break;
          case 'r': c = '\r'; break;
          default: break;  // \" \\ and any other character stand for themselves
        }
      }
      text += c;
    }
  } else {
    text += c;
    while (get(c)) {
      if (endsWord(c)) {
        putBack(c);
        break;
      }
      text += c;
    }
  }
  s = SbString(text);
  return true;
}

bool SoInput::read(SbName& n, bool validIdent) {
  if (isBinary()) {
    // A name in a binary file must be one that the ASCII form can hold.
    SbString s;
    if (!read(s) || s.isEmpty()) return false;
    const std::string& text = s.toStdString();
    if (validIdent ? !SbName::isIdentStartChar(text[0]) : !SbName::isBaseNameStartChar(text[0])) return false;
    for (const char c : text)
      if (validIdent ? !SbName::isIdentChar(c) : !SbName::isBaseNameChar(c)) return false;
    n = SbName(s);
    return true;
  }
  if (!skipWhiteSpace()) return false;
  Source* s = cur();
  // Fast path: the whole name in the current data.
  if (s->pushback.empty()) {
    const char* d = s->data;
    size_t p = s->pos;
    const size_t end = s->size;
    const char first = d[p];
    if (validIdent ? !SbName::isIdentStartChar(first) : !SbName::isBaseNameStartChar(first)) return false;
    ++p;
    while (p < end && (validIdent ? SbName::isIdentChar(d[p]) : SbName::isBaseNameChar(d[p]))) ++p;
    n = SbName(std::string(d + s->pos, p - s->pos));
    s->pos = p;
    return true;
  }
  char c;
  get(c);
  if (validIdent ? !SbName::isIdentStartChar(c) : !SbName::isBaseNameStartChar(c)) {
    putBack(c);
    return false;
  }
  std::string text(1, c);
  while (get(c)) {
    if (validIdent ? !SbName::isIdentChar(c) : !SbName::isBaseNameChar(c)) {
      putBack(c);
      break;
    }
    text += c;
  }
  n = SbName(text);
  return true;
}

// ---- numbers -------------------------------------------------------------------------

bool SoInput::read(bool& b) {
  if (isBinary()) {
    int v;
    if (!read(v)) return false;
    b = v != 0;
    return true;
  }
  if (!skipWhiteSpace()) return false;
  char c;
  peek(c);
  if (c == '0' || c == '1') {
    int v;
    if (!read(v) || (v != 0 && v != 1)) return false;
    b = v == 1;
    return true;
  }
  SbName word;
  if (!read(word, true)) return false;
  if (word == "TRUE" || word == "true") {
    b = true;
    return true;
  }
  if (word == "FALSE" || word == "false") {
    b = false;
    return true;
  }
  return false;
}

// A decimal or hexadecimal (0x...) integer with an optional sign. Unsigned
// targets also take negative values, which wrap as in C.
bool SoInput::readInteger(int64_t& value, bool isUnsigned) {
  if (!skipWhiteSpace()) return false;
  Source* s = cur();
  if (!s->pushback.empty()) {
    // Rare: text given back. Gather the token into a small buffer.
    std::string token;
    char c;
    while (get(c)) {
      if (endsWord(c) || c == ')' || c == '|') {
        putBack(c);
        break;
      }
      token += c;
    }
    SoInput sub;
    sub.setBuffer(token.data(), token.size());
    return sub.readInteger(value, isUnsigned) && sub.getNumBytesLeft() == 0;
  }
  const char* p = s->data + s->pos;
  const char* end = s->data + s->size;
  bool negative = false;
  if (p < end && (*p == '-' || *p == '+')) {
    negative = *p == '-';
    ++p;
  }
  int base = 10;
  if (end - p > 2 && p[0] == '0' && (p[1] == 'x' || p[1] == 'X')) {
    base = 16;
    p += 2;
  }
  uint64_t magnitude = 0;
  auto [next, ec] = std::from_chars(p, end, magnitude, base);
  if (ec != std::errc() || next == p) return false;
  if (negative) {
    if (magnitude > uint64_t(std::numeric_limits<int64_t>::max()) + 1) return false;
    value = static_cast<int64_t>(0 - magnitude);
  } else {
    if (!isUnsigned && magnitude > uint64_t(std::numeric_limits<int64_t>::max())) return false;
    value = static_cast<int64_t>(magnitude);
  }
  s->pos = static_cast<size_t>(next - s->data);
  return true;
}

bool SoInput::readBinaryWord(uint32_t& w) {
  unsigned char bytes[4];
  for (unsigned char& b : bytes) {
    char c;
    if (!get(c)) return false;
    b = static_cast<unsigned char>(c);
  }
  w = uint32_t(bytes[0]) | uint32_t(bytes[1]) << 8 | uint32_t(bytes[2]) << 16 | uint32_t(bytes[3]) << 24;
  return true;
}

bool SoInput::readBinaryDword(uint64_t& w) {
  uint32_t lo, hi;
  if (!readBinaryWord(lo) || !readBinaryWord(hi)) return false;
  w = uint64_t(lo) | uint64_t(hi) << 32;
  return true;
}

namespace {
template <class T>
bool narrow(int64_t v, T& out) {
  if (v < int64_t(std::numeric_limits<T>::min()) || v > int64_t(std::numeric_limits<T>::max())) return false;
  out = static_cast<T>(v);
  return true;
}
// Unsigned values accept the signed range of the same width too (wrapping).
template <class T>
bool narrowUnsigned(int64_t v, T& out) {
  using S = std::make_signed_t<T>;
  if (v < int64_t(std::numeric_limits<S>::min()) || v > int64_t(std::numeric_limits<T>::max())) return false;
  out = static_cast<T>(v);
  return true;
}
}  // namespace

bool SoInput::read(int& i) {
  if (isBinary()) {
    uint32_t w;
    if (!readBinaryWord(w)) return false;
    i = static_cast<int>(w);
    return true;
  }
  int64_t v;
  return readInteger(v, false) && narrow(v, i);
}

bool SoInput::read(unsigned int& i) {
  if (isBinary()) {
    uint32_t w;
    if (!readBinaryWord(w)) return false;
    i = w;
    return true;
  }
  int64_t v;
  return readInteger(v, true) && narrowUnsigned(v, i);
}

bool SoInput::read(short& s) {
  if (isBinary()) {
    int v;
    return read(v) && narrow(int64_t(v), s);
  }
  int64_t v;
  return readInteger(v, false) && narrow(v, s);
}

bool SoInput::read(unsigned short& s) {
  if (isBinary()) {
    unsigned int v;
    return read(v) && narrowUnsigned(int64_t(v), s);
  }
  int64_t v;
  return readInteger(v, true) && narrowUnsigned(v, s);
}

bool SoInput::read(signed char& c) {
  int v;
  return read(v) && narrow(int64_t(v), c);
}

bool SoInput::read(unsigned char& c) {
  if (isBinary()) {
    unsigned int v;
    return read(v) && narrowUnsigned(int64_t(v), c);
  }
  int64_t v;
  return readInteger(v, true) && narrowUnsigned(v, c);
}

bool SoInput::read(int64_t& i) {
  if (isBinary()) {
    uint64_t w;
    if (!readBinaryDword(w)) return false;
    i = static_cast<int64_t>(w);
    return true;
  }
  return readInteger(i, false);
}

bool SoInput::read(uint64_t& i) {
  if (isBinary()) return readBinaryDword(i);
  int64_t v;
  if (!readInteger(v, true)) return false;
  i = static_cast<uint64_t>(v);
  return true;
}

namespace {
// Parses a float or double at p; VRML also allows a leading '+'.
template <class T>
const char* parseReal(const char* p, const char* end, T& value) {
  const char* start = p;
  if (p < end && *p == '+') ++p;
  auto [next, ec] = std::from_chars(p, end, value);
  if (ec == std::errc::result_out_of_range) {
    // Too large or too small for the type: saturate like strtod.
    double d = 0;
    auto [n2, ec2] = std::from_chars(p, end, d);
    if (ec2 != std::errc() && ec2 != std::errc::result_out_of_range) return nullptr;
    value = static_cast<T>(d);
    return n2;
  }
  if (ec != std::errc() || next == start) return nullptr;
  return next;
}
}  // namespace

bool SoInput::read(float& f) {
  if (isBinary()) {
    uint32_t w;
    if (!readBinaryWord(w)) return false;
    std::memcpy(&f, &w, 4);
    return true;
  }
  if (!skipWhiteSpace()) return false;
  Source* s = cur();
  if (!s->pushback.empty()) {
    double d;
    if (!read(d)) return false;
    f = static_cast<float>(d);
    return true;
  }
  const char* next = parseReal(s->data + s->pos, s->data + s->size, f);
  if (!next) return false;
  s->pos = static_cast<size_t>(next - s->data);
  return true;
}

bool SoInput::read(double& d) {
  if (isBinary()) {
    uint64_t w;
    if (!readBinaryDword(w)) return false;
    std::memcpy(&d, &w, 8);
    return true;
  }
  if (!skipWhiteSpace()) return false;
  Source* s = cur();
  if (!s->pushback.empty()) {
    std::string token;
    char c;
    while (get(c)) {
      if (endsWord(c)) {
        putBack(c);
        break;
      }
      token += c;
    }
    const char* next = parseReal(token.data(), token.data() + token.size(), d);
    return next == token.data() + token.size();
  }
  const char* next = parseReal(s->data + s->pos, s->data + s->size, d);
  if (!next) return false;
  s->pos = static_cast<size_t>(next - s->data);
  return true;
}

// ---- binary arrays ------------------------------------------------------------------

bool SoInput::readBinaryArray(unsigned char* data, int length) {
  if (length < 0) return false;
  Source* s = cur();
  if (!s || !s->valid) return false;
  const size_t padded = (static_cast<size_t>(length) + 3) & ~size_t(3);
  if (s->pushback.empty() && s->size - s->pos >= padded) {
    if (length) std::memcpy(data, s->data + s->pos, static_cast<size_t>(length));
    s->pos += padded;
    return true;
  }
  for (size_t i = 0; i < padded; ++i) {
    char c;
    if (!get(c)) return false;
    if (i < static_cast<size_t>(length)) data[i] = static_cast<unsigned char>(c);
  }
  return true;
}

namespace {
template <class T>
bool readWords(SoInput* in, T* data, int count, size_t wordSize) {
  if (count < 0) return false;
  const size_t bytes = static_cast<size_t>(count) * wordSize;
  if (bytes > in->getNumBytesLeft()) return false;
  if (!in->readBinaryArray(reinterpret_cast<unsigned char*>(data), static_cast<int>(bytes))) return false;
  orvex::fromLittleEndian(data, static_cast<size_t>(count));
  return true;
}
}  // namespace

bool SoInput::readBinaryArray(int32_t* data, int length) { return readWords(this, data, length, 4); }
bool SoInput::readBinaryArray(float* data, int length) { return readWords(this, data, length, 4); }
bool SoInput::readBinaryArray(double* data, int length) { return readWords(this, data, length, 8); }

// ---- names defined in the file ------------------------------------------------------

void SoInput::addReference(const SbName& name, SoBase* base) {
  if (!base || !name) return;
  base->ref();
  auto it = m_refs.find(name);
  SoBase* previous = it == m_refs.end() ? nullptr : it->second;
  m_refs[name] = base;
  m_refLog.push_back(RefEntry{name, base, previous});
}

void SoInput::removeReference(const SbName& name) {
  auto it = m_refs.find(name);
  if (it != m_refs.end()) m_refs.erase(it);
}

SoBase* SoInput::findReference(const SbName& name) const {
  auto it = m_refs.find(name);
  return it == m_refs.end() ? nullptr : it->second;
}

size_t SoInput::markReferences() const { return m_refLog.size(); }

void SoInput::rollBackReferences(size_t mark) {
  while (m_refLog.size() > mark) {
    RefEntry e = m_refLog.back();
    m_refLog.pop_back();
    auto it = m_refs.find(e.name);
    if (it != m_refs.end() && it->second == e.added) {
      if (e.previous)
        it->second = e.previous;
      else
        m_refs.erase(it);
    }
    e.added->unref();
  }
}

int SoInput::enterObject(SoBase* base) {
  m_reading.push_back(base);
  return static_cast<int>(m_reading.size());
}

void SoInput::leaveObject() {
  if (!m_reading.empty()) m_reading.pop_back();
}

bool SoInput::isBeingRead(const SoBase* base) const {
  return std::find(m_reading.begin(), m_reading.end(), base) != m_reading.end();
}

// ---- read errors at the input's position ------------------------------------------

void SoReadError::post(const SoInput* in, const char* format, ...) {
  va_list args;
  va_start(args, format);
  const SbString message = SbString::vsprintf(format, args);
  va_end(args);
  const char* file = in ? in->getCurFileName() : "";
  postAt(file && *file ? file : nullptr, in ? in->getLineNumber() : 0, "%s", message.getString());
}
