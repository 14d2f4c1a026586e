#include <Orvex/SoInput.h>

#include <Orvex/SbFileHelper.h>
#include <Orvex/SoDB.h>
#include <Orvex/SoInputParameters.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/misc/SoBase.h>

#include <sys/stat.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <mutex>
#include <new>
#include <stdexcept>

#include "Compression.h"
#include "Endian.h"
#include "MessageText.h"
#include "ReadLimits.h"

// One file or buffer being read. The whole content is in memory: files are
// read (and decompressed) when opened, up to the input's limits, so every
// token is parsed straight from the bytes.
struct SoInput::Source {
  SbString name;           // as the caller gave it
  SbString fullName;       // as found through the directory list
  orvex::ByteBuffer owned;  // content read from a file, or inflated
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

void addEnvDirectories(const char* envVar, const char* separator, bool first) {
  if (!envVar) return;
  const char* value = std::getenv(envVar);
  if (!value) return;
  if (!separator) separator = "";
  std::vector<SbString> parts;
  std::string current;
  for (const char* p = value;; ++p) {
    if (*p == '\0' || std::strchr(separator, *p)) {
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

constexpr size_t kReadChunk = size_t(1) << 16;

// Whether content can be a scene file at all: one starts with its header
// line, a compressed one with the gzip signature (whose first byte is 0x1f).
bool mayBeSceneFile(const char* data, size_t size) { return size == 0 || data[0] == '#' || data[0] == '\x1f'; }
bool mayBeInflatedScene(const orvex::ByteBuffer& data) { return data.empty() || data.data()[0] == '#'; }

enum class StreamResult { OK, READ_ERROR, TOO_LARGE };

// Reads the rest of a stream into `out`, but never more than maxBytes. A
// regular file states its size: one over the limit is refused before
// anything is read, and the memory is reserved once. Pipes, terminals and
// devices are read chunk by chunk up to the limit, so an endless stream
// ends there. With `sniff` the reading stops after the first chunk when it
// shows that the content cannot be a scene file (the header check then
// refuses it), so that reading /dev/zero or a large binary fails at once.
StreamResult readStream(FILE* fp, size_t maxBytes, bool sniff, orvex::ByteBuffer& out) {
  out.reset();
  struct stat st;
  if (fstat(fileno(fp), &st) == 0 && S_ISREG(st.st_mode)) {
    const off_t at = ftello(fp);
    const uint64_t left = at >= 0 && st.st_size > at ? uint64_t(st.st_size - at) : 0;
    if (left > maxBytes) return StreamResult::TOO_LARGE;
    out.reserve(static_cast<size_t>(left));
  }
  std::unique_ptr<char[]> chunk(new char[kReadChunk]);
  for (bool first = true;; first = false) {
    const size_t n = std::fread(chunk.get(), 1, kReadChunk, fp);
    if (n > maxBytes - out.size()) return StreamResult::TOO_LARGE;
    out.append(chunk.get(), n);
    if (sniff && first && !mayBeSceneFile(out.data(), out.size())) return StreamResult::OK;
    if (n < kReadChunk) return std::ferror(fp) ? StreamResult::READ_ERROR : StreamResult::OK;
  }
}

inline bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v'; }

// Whether the character at p ends a line: LF, the LF of CR LF, or a lone CR.
inline bool endsLine(const char* d, size_t p, size_t n) {
  return d[p] == '\n' || (d[p] == '\r' && (p + 1 >= n || d[p + 1] != '\n'));
}

// Characters that end an unquoted word.
inline bool endsWord(char c) { return isSpace(c) || c == '{' || c == '}' || c == '[' || c == ']' || c == ',' || c == '\0'; }

const char kBufferName[] = "";

// Longest line taken for a header: registered headers have at most 80
// characters.
constexpr size_t kMaxHeaderLength = 256;

}  // namespace

// ---- construction and the directory list ---------------------------------------

SoInput::SoInput()
    : m_maxInputBytes(orvex::kDefaultMaxInputBytes), m_maxInflatedBytes(orvex::kDefaultMaxInflatedBytes) {}

SoInput::~SoInput() { closeFile(); }

void SoInput::addDirectoryFirst(const char* dirName) { addDirectory(SbString(dirName), true); }
void SoInput::addDirectoryFirst(const SbString& dirName) { addDirectory(dirName, true); }
void SoInput::addDirectoryLast(const char* dirName) { addDirectory(SbString(dirName), false); }
void SoInput::addDirectoryLast(const SbString& dirName) { addDirectory(dirName, false); }
void SoInput::addEnvDirectoriesFirst(const char* envVarName, const char* separator) {
  addEnvDirectories(envVarName, separator, true);
}
void SoInput::addEnvDirectoriesFirst(const SbString& envVarName, const SbString& separator) {
  addEnvDirectories(envVarName.getString(), separator.getString(), true);
}
void SoInput::addEnvDirectoriesLast(const char* envVarName, const char* separator) {
  addEnvDirectories(envVarName, separator, false);
}
void SoInput::addEnvDirectoriesLast(const SbString& envVarName, const SbString& separator) {
  addEnvDirectories(envVarName.getString(), separator.getString(), false);
}
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

SbString SoInput::findAbsolutePath(const SbString& fileName) {
  SbString found;
  return findAbsolutePath(fileName, found) ? found : SbString();
}

// ---- opening ---------------------------------------------------------------------

SoInput::Source* SoInput::cur() const { return m_stack.empty() ? nullptr : m_stack.back().get(); }

void SoInput::setMaxInputBytes(size_t maxBytes) { m_maxInputBytes = maxBytes; }
size_t SoInput::getMaxInputBytes() const {
  return m_parameters ? m_parameters->getMaxInputBytes() : m_maxInputBytes;
}
void SoInput::setMaxInflatedBytes(size_t maxBytes) { m_maxInflatedBytes = maxBytes; }
size_t SoInput::getMaxInflatedBytes() const {
  return m_parameters ? m_parameters->getMaxInflatedBytes() : m_maxInflatedBytes;
}
void SoInput::setInputParameters(SoInputParameters* parameters) { m_parameters = parameters; }
SoInputParameters* SoInput::getInputParameters() const { return m_parameters; }

bool SoInput::openSource(std::unique_ptr<Source> src, bool push) {
  const size_t maxInflatedBytes = getMaxInflatedBytes();
  if (orvex::isGzip(src->data, src->size)) {
    const char* name = src->fullName.getString();
    try {
      orvex::ByteBuffer inflated;
      // Files must start with a header once inflated; buffers need not.
      const auto result = orvex::gunzip(src->data, src->size, maxInflatedBytes, inflated,
                                        src->requireHeader ? &mayBeInflatedScene : nullptr);
      if (result == orvex::InflateResult::DAMAGED) {
        SoReadError::postAt(name, 0, "Could not decompress the file");
        src->valid = false;
      } else if (result == orvex::InflateResult::TOO_LARGE) {
        SoReadError::postAt(name, 0, "The file inflates to more than the limit of %zu bytes (see setMaxInflatedBytes)",
                            maxInflatedBytes);
        src->valid = false;
      } else {
        // The compressed bytes go with `inflated`.
        src->owned.swap(inflated);
        src->data = src->owned.data();
        src->size = src->owned.size();
      }
    } catch (const std::bad_alloc&) {
      SoReadError::postAt(name, 0, "Out of memory decompressing the file");
      src->valid = false;
    } catch (const std::length_error&) {
      SoReadError::postAt(name, 0, "Out of memory decompressing the file");
      src->valid = false;
    }
    if (!src->valid) {
      // Nothing of an unreadable file is kept.
      src->owned.reset();
      src->data = nullptr;
      src->size = 0;
    }
  }
  if (!push) closeFile();
  src->pushed = push && !m_stack.empty();
  m_stack.push_back(std::move(src));
  if (m_stack.size() == 1) resetProgress();
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
  const bool ok = openStream(std::move(src), fp, false);
  SbFileHelper::close(fp);
  return ok;
}

// Reads the stream into the source and opens it; on failure (posted)
// nothing is opened and, unless pushing, the input is left closed.
bool SoInput::openStream(std::unique_ptr<Source> src, FILE* fp, bool push) {
  const char* name = src->fullName.getString();
  const size_t maxInputBytes = getMaxInputBytes();
  StreamResult result;
  try {
    result = readStream(fp, maxInputBytes, src->requireHeader, src->owned);
  } catch (const std::bad_alloc&) {
    src->owned.reset();
    SoReadError::postAt(name, 0, "Out of memory reading the file");
    if (!push) closeFile();
    return false;
  }
  if (result == StreamResult::TOO_LARGE) {
    src->owned.reset();
    SoReadError::postAt(name, 0, "The input is larger than the limit of %zu bytes (see setMaxInputBytes)",
                        maxInputBytes);
  } else if (result == StreamResult::READ_ERROR) {
    SoReadError::postAt(name, 0, "Error reading file");
  }
  if (result != StreamResult::OK) {
    if (!push) closeFile();
    return false;
  }
  src->data = src->owned.data();
  src->size = src->owned.size();
  return openSource(std::move(src), push);
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
  const bool ok = openStream(std::move(src), fp, true);
  SbFileHelper::close(fp);
  return ok;
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
  if (fp == stdin) src->name = src->fullName = "<stdin>";
  if (fp) {
    openStream(std::move(src), fp, false);
  } else {
    openSource(std::move(src), false);
  }
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
    size_t length = end;
    while (length > 0 && isSpace(d[length - 1])) --length;
    // Registered headers are short; a longer line is none of them and is
    // not copied (a damaged file may have a line of many megabytes).
    const bool mayBeHeader = length <= kMaxHeaderLength;
    const std::string line = mayBeHeader ? std::string(d, length) : std::string();
    bool isBinary = false;
    float version = 0;
    SoDBHeaderCB* preCB = nullptr;
    SoDBHeaderCB* postCB = nullptr;
    void* userData = nullptr;
    if (mayBeHeader && SoDB::getHeaderData(SbString(line), isBinary, version, preCB, postCB, userData)) {
      src.header = SbString(line);
      src.binary = isBinary;
      src.version = version;
      src.postCB = postCB;
      src.headerData = userData;
      // The header line and its end of line.
      size_t next = end;
      if (next < n && d[next] == '\r') ++next;
      if (next < n && d[next] == '\n') ++next;
      src.pos = src.headerEnd = next;
      src.line = 2;
      // Told once the input stands at the first object.
      if (preCB) preCB(userData, this);
      return true;
    }
    if (src.requireHeader || std::string(d, std::min<size_t>(length, 6)) == "#Orvex") {
      SoReadError::postAt(src.fullName.getString(), 1, "Not a valid Orvex file: unknown header \"%s\"",
                          orvex::quoteForMessage(d, length).c_str());
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
    if (s->pos >= m_nextPercentPos && m_stack.size() == 1) reportProgress(*s);
    if (!s->pushback.empty() || s->pos < s->size) return true;
    if (!s->pushed) return false;
    popSource();
  }
}

void SoInput::updateReadPercent(double) {}

void SoInput::resetProgress() {
  m_percentReported = 0;
  m_nextPercentPos = 0;  // the first look reports what the header consumed
}

void SoInput::reportProgress(const Source& src) {
  const size_t size = src.size;
  const size_t pos = std::min(src.pos, size);
  const int percent = size == 0 ? 100 : static_cast<int>(pos * 100 / size);
  if (percent > m_percentReported) {
    m_percentReported = percent;
    updateReadPercent(size == 0 ? 100.0 : static_cast<double>(pos) * 100.0 / static_cast<double>(size));
  }
  // The first position whose whole percent is above the one reported.
  m_nextPercentPos = m_percentReported >= 100 ? std::numeric_limits<size_t>::max()
                                              : ((static_cast<size_t>(m_percentReported) + 1) * size + 99) / 100;
}

void SoInput::popSource() {
  // The post function runs while the file is still the current one, so that
  // it sees the name, header and version of the file it is called for.
  const Source* src = m_stack.back().get();
  if (SoDBHeaderCB* post = m_stack.back()->postCB) {
    m_stack.back()->postCB = nullptr;  // once, even if the function reads on
    post(src->headerData, this);
  }
  // The function may have closed the input, or finished this file by
  // reading, itself.
  auto it = std::find_if(m_stack.begin(), m_stack.end(),
                         [src](const std::unique_ptr<Source>& s) { return s.get() == src; });
  if (it != m_stack.end()) m_stack.erase(it);
}

bool SoInput::get(char& c) {
  if (!fill()) return false;
  Source* s = cur();
  if (!s->pushback.empty()) {
    c = s->pushback.back();
    s->pushback.pop_back();
    return true;
  }
  if (endsLine(s->data, s->pos, s->size)) ++s->line;
  c = s->data[s->pos++];
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
    if (endsLine(s->data, s->pos, s->size)) --s->line;
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
      // A comment: skip the rest of the line (its end is read as whitespace).
      char skip;
      while (get(skip) && skip != '\n' && skip != '\r') {
      }
      continue;
    }
    const char* d = s->data;
    size_t p = s->pos;
    const size_t n = s->size;
    while (p < n) {
      const char c = d[p];
      if (endsLine(d, p, n)) {
        ++s->line;
        ++p;
      } else if (isSpace(c)) {
        ++p;
      } else if (c == '#') {
        while (p < n && d[p] != '\n' && d[p] != '\r') ++p;
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

namespace {

enum class Parse { OK, BAD, OUT_OF_RANGE };

// A decimal or hexadecimal (0x...) integer with an optional sign at p. On
// OK and OUT_OF_RANGE `next` is past the number's text. Unsigned targets
// also take negative values, which wrap as in C.
Parse parseInteger(const char* p, const char* end, bool isUnsigned, int64_t& value, const char*& next) {
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
  const auto [after, ec] = std::from_chars(p, end, magnitude, base);
  next = after;
  if (ec == std::errc::result_out_of_range) return Parse::OUT_OF_RANGE;
  if (ec != std::errc() || after == p) return Parse::BAD;
  if (negative) {
    if (magnitude > uint64_t(std::numeric_limits<int64_t>::max()) + 1) return Parse::OUT_OF_RANGE;
    value = static_cast<int64_t>(0 - magnitude);
  } else {
    if (!isUnsigned && magnitude > uint64_t(std::numeric_limits<int64_t>::max())) return Parse::OUT_OF_RANGE;
    value = static_cast<int64_t>(magnitude);
  }
  return Parse::OK;
}

// Whether a decimal number that no floating type can hold is too large
// rather than too small: the sign of its decimal order of magnitude.
// (from_chars reports both as out of range without telling which.)
bool isTooLarge(const char* p, const char* end) {
  if (p < end && (*p == '-' || *p == '+')) ++p;
  auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  int64_t integerDigits = 0;  // from the first significant digit on
  int64_t leadingZeros = 0;   // of the fraction, before its first significant digit
  bool significant = false;
  for (; p < end && isDigit(*p); ++p) {
    if (*p != '0') significant = true;
    if (significant) ++integerDigits;
  }
  if (p < end && *p == '.') {
    for (++p; p < end && isDigit(*p); ++p) {
      if (*p != '0') significant = true;
      if (!significant) ++leadingZeros;
    }
  }
  int64_t exponent = 0;
  if (p < end && (*p == 'e' || *p == 'E')) {
    ++p;
    bool negative = false;
    if (p < end && (*p == '-' || *p == '+')) negative = *p++ == '-';
    // Saturates: any exponent beyond a billion decides on its own.
    for (; p < end && isDigit(*p); ++p)
      if (exponent < 1000000000) exponent = exponent * 10 + (*p - '0');
    if (negative) exponent = -exponent;
  }
  const int64_t order = integerDigits > 0 ? exponent + integerDigits - 1 : exponent - leadingZeros - 1;
  return order >= 0;
}

// A float or double at p; VRML also allows a leading '+'. Numbers too
// close to zero for the type read as zero (as strtod does); too large ones
// are OUT_OF_RANGE.
template <class T>
Parse parseReal(const char* p, const char* end, T& value, const char*& next) {
  if (p < end && *p == '+') ++p;
  const auto [after, ec] = std::from_chars(p, end, value);
  next = after;
  if (ec == std::errc::result_out_of_range) {
    if (isTooLarge(p, after)) return Parse::OUT_OF_RANGE;
    value = *p == '-' ? -T(0) : T(0);
    return Parse::OK;
  }
  if (ec != std::errc() || after == p) return Parse::BAD;
  return Parse::OK;
}

template <class T>
const char* typeName() {
  if constexpr (std::is_same_v<T, float>) return "a float";
  if constexpr (std::is_same_v<T, double>) return "a double";
  return "an integer";
}

// Posts a number that has the form of a number but not a value the target
// can hold.
void postOutOfRange(const SoInput* in, const char* text, const char* end, const char* what) {
  SoReadError::post(in, "Number %s is out of range for %s",
                    orvex::quoteForMessage(text, static_cast<size_t>(end - text)).c_str(), what);
}

template <class T>
bool narrow(const SoInput* in, int64_t v, T& out) {
  if (v < int64_t(std::numeric_limits<T>::min()) || v > int64_t(std::numeric_limits<T>::max())) {
    SoReadError::post(in, "Number %lld is out of range (%lld to %lld)", static_cast<long long>(v),
                      static_cast<long long>(std::numeric_limits<T>::min()),
                      static_cast<long long>(std::numeric_limits<T>::max()));
    return false;
  }
  out = static_cast<T>(v);
  return true;
}

// Unsigned values accept the signed range of the same width too (wrapping).
template <class T>
bool narrowUnsigned(const SoInput* in, int64_t v, T& out) {
  using S = std::make_signed_t<T>;
  if (v < int64_t(std::numeric_limits<S>::min()) || v > int64_t(std::numeric_limits<T>::max())) {
    SoReadError::post(in, "Number %lld is out of range (%lld to %llu)", static_cast<long long>(v),
                      static_cast<long long>(std::numeric_limits<S>::min()),
                      static_cast<unsigned long long>(std::numeric_limits<T>::max()));
    return false;
  }
  out = static_cast<T>(v);
  return true;
}

// The next word of text that was given back (rare): gathered so that it can
// be parsed like text in the buffer.
std::string takeGivenBackWord(SoInput* in, bool stopAtOperators) {
  std::string token;
  char c;
  while (in->get(c)) {
    if (endsWord(c) || (stopAtOperators && (c == ')' || c == '|'))) {
      in->putBack(c);
      break;
    }
    token += c;
  }
  return token;
}

// An ASCII float or double: parsed in place, or from the word given back.
template <class T>
bool readReal(SoInput* in, SoInput::Source* s, T& value) {
  if (!s->pushback.empty()) {
    const std::string token = takeGivenBackWord(in, false);
    const char* end = token.data() + token.size();
    const char* next = nullptr;
    const Parse r = parseReal(token.data(), end, value, next);
    if (r == Parse::OUT_OF_RANGE) postOutOfRange(in, token.data(), next, typeName<T>());
    return r == Parse::OK && next == end;
  }
  const char* start = s->data + s->pos;
  const char* next = nullptr;
  const Parse r = parseReal(start, s->data + s->size, value, next);
  if (r == Parse::OUT_OF_RANGE) postOutOfRange(in, start, next, typeName<T>());
  if (r != Parse::OK) return false;
  s->pos = static_cast<size_t>(next - s->data);
  return true;
}

}  // namespace

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

bool SoInput::readInteger(int64_t& value, bool isUnsigned) {
  if (!skipWhiteSpace()) return false;
  Source* s = cur();
  if (!s->pushback.empty()) {
    // Rare: text given back. The whole word must be the number.
    const std::string token = takeGivenBackWord(this, true);
    const char* end = token.data() + token.size();
    const char* next = nullptr;
    const Parse r = parseInteger(token.data(), end, isUnsigned, value, next);
    if (r == Parse::OUT_OF_RANGE) postOutOfRange(this, token.data(), next, typeName<int>());
    return r == Parse::OK && next == end;
  }
  const char* start = s->data + s->pos;
  const char* next = nullptr;
  const Parse r = parseInteger(start, s->data + s->size, isUnsigned, value, next);
  if (r == Parse::OUT_OF_RANGE) postOutOfRange(this, start, next, typeName<int>());
  if (r != Parse::OK) return false;
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

bool SoInput::read(int& i) {
  if (isBinary()) {
    uint32_t w;
    if (!readBinaryWord(w)) return false;
    i = static_cast<int>(w);
    return true;
  }
  int64_t v;
  return readInteger(v, false) && narrow(this, v, i);
}

bool SoInput::read(unsigned int& i) {
  if (isBinary()) {
    uint32_t w;
    if (!readBinaryWord(w)) return false;
    i = w;
    return true;
  }
  int64_t v;
  return readInteger(v, true) && narrowUnsigned(this, v, i);
}

bool SoInput::read(short& s) {
  if (isBinary()) {
    int v;
    return read(v) && narrow(this, int64_t(v), s);
  }
  int64_t v;
  return readInteger(v, false) && narrow(this, v, s);
}

bool SoInput::read(unsigned short& s) {
  if (isBinary()) {
    unsigned int v;
    return read(v) && narrowUnsigned(this, int64_t(v), s);
  }
  int64_t v;
  return readInteger(v, true) && narrowUnsigned(this, v, s);
}

bool SoInput::read(signed char& c) {
  int v;
  return read(v) && narrow(this, int64_t(v), c);
}

bool SoInput::read(unsigned char& c) {
  if (isBinary()) {
    unsigned int v;
    return read(v) && narrowUnsigned(this, int64_t(v), c);
  }
  int64_t v;
  return readInteger(v, true) && narrowUnsigned(this, v, c);
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

bool SoInput::read(float& f) {
  if (isBinary()) {
    uint32_t w;
    if (!readBinaryWord(w)) return false;
    std::memcpy(&f, &w, 4);
    return true;
  }
  if (!skipWhiteSpace()) return false;
  return readReal(this, cur(), f);
}

bool SoInput::read(double& d) {
  if (isBinary()) {
    uint64_t w;
    if (!readBinaryDword(w)) return false;
    std::memcpy(&d, &w, 8);
    return true;
  }
  if (!skipWhiteSpace()) return false;
  return readReal(this, cur(), d);
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
