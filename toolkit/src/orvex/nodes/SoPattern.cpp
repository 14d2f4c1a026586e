#include <Orvex/nodes/SoPattern.h>

#include <Orvex/SbFileHelper.h>
#include <Orvex/SoInput.h>
#include <Orvex/errors/SoReadError.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace {

using PatternBits = std::array<unsigned char, 128>;

// Patterns known to the process, by category and name.
struct PatternRegistry {
  std::mutex mutex;
  std::map<std::pair<std::string, std::string>, PatternBits> patterns;
};
PatternRegistry& registry() {
  static PatternRegistry* instance = new PatternRegistry;
  return *instance;
}

const char kPatternHeader[] = "#Orvex Pattern V1.0";

struct FilePattern {
  std::string category;
  std::string name;
  PatternBits bits;
};

// Reads a pattern file. Answers false (after posting a read error) when
// the file cannot be read or is malformed.
bool readPatternFile(const SbString& fileName, std::vector<FilePattern>& result) {
  SbString full;
  if (!SoInput::findAbsolutePath(fileName, full)) {
    SoReadError::postAt(fileName.getString(), 0, "Can't find pattern file \"%s\"", fileName.getString());
    return false;
  }
  FILE* fp = SbFileHelper::open(full, "rb");
  if (!fp) {
    SoReadError::postAt(full.getString(), 0, "Can't open pattern file");
    return false;
  }
  std::string text;
  char chunk[4096];
  size_t n;
  while ((n = std::fread(chunk, 1, sizeof chunk, fp)) > 0) text.append(chunk, n);
  SbFileHelper::close(fp);

  const size_t eol = text.find('\n');
  std::string header = text.substr(0, eol);
  while (!header.empty() && (header.back() == '\r' || header.back() == ' ')) header.pop_back();
  if (header != kPatternHeader) {
    SoReadError::postAt(full.getString(), 1, "Not a pattern file (expected \"%s\")", kPatternHeader);
    return false;
  }
  // The rest is read with the scene tokenizer (a headerless text buffer);
  // its line numbers count from the second line.
  const std::string body = eol == std::string::npos ? std::string() : text.substr(eol + 1);
  SoInput in;
  in.setBuffer(const_cast<char*>(body.data()), body.size());
  std::string category;
  for (;;) {
    SbName keyword;
    if (!in.skipWhiteSpace()) return true;
    if (!in.read(keyword, true)) {
      SoReadError::postAt(full.getString(), in.getLineNumber() + 1, "Expected Category or Pattern");
      return false;
    }
    SbString value;
    if (!in.read(value)) {
      SoReadError::postAt(full.getString(), in.getLineNumber() + 1, "Expected a name after %s", keyword.getString());
      return false;
    }
    if (keyword == "Category") {
      category = value.toStdString();
      continue;
    }
    if (keyword != "Pattern") {
      SoReadError::postAt(full.getString(), in.getLineNumber() + 1, "Unknown keyword \"%s\"", keyword.getString());
      return false;
    }
    FilePattern pattern{category, value.toStdString(), {}};
    char c;
    if (!in.read(c) || c != '[') {
      SoReadError::postAt(full.getString(), in.getLineNumber() + 1, "Expected '[' after the pattern name");
      return false;
    }
    for (int row = 0; row < 32; ++row) {
      unsigned int bits;
      if (!in.read(bits)) {
        SoReadError::postAt(full.getString(), in.getLineNumber() + 1, "Pattern \"%s\" needs 32 rows",
                            pattern.name.c_str());
        return false;
      }
      for (int b = 0; b < 4; ++b) pattern.bits[static_cast<size_t>(row * 4 + b)] = static_cast<unsigned char>(bits >> (24 - 8 * b));
      if (in.read(c) && c != ',') in.putBack(c);
    }
    if (!in.read(c) || c != ']') {
      SoReadError::postAt(full.getString(), in.getLineNumber() + 1, "Expected ']' after 32 rows");
      return false;
    }
    result.push_back(pattern);
  }
}

}  // namespace

SO_NODE_SOURCE(SoPattern)

SoPattern::SoPattern() {
  SO_NODE_CONSTRUCTOR(SoPattern);
  SO_NODE_ADD_FIELD(category, (SbString()));
  SO_NODE_ADD_FIELD(name, (SbString()));
}

SoPattern::~SoPattern() = default;

void SoPattern::initClass() { SO_NODE_INIT_CLASS(SoPattern, SoNode, "Node"); }

void SoPattern::addPattern(const SbString& cat, const SbString& patternName, const unsigned char* pattern) {
  if (!pattern) return;
  PatternBits bits;
  std::copy(pattern, pattern + bits.size(), bits.begin());
  PatternRegistry& reg = registry();
  std::lock_guard<std::mutex> lock(reg.mutex);
  reg.patterns[{cat.toStdString(), patternName.toStdString()}] = bits;
}

void SoPattern::addPattern(const SbString& patternName, const unsigned char* pattern) {
  addPattern(SbString(), patternName, pattern);
}

int SoPattern::loadPatterns(const SbString& fileName) {
  std::vector<FilePattern> patterns;
  if (!readPatternFile(fileName, patterns)) return -1;
  for (const FilePattern& p : patterns) addPattern(SbString(p.category), SbString(p.name), p.bits.data());
  return static_cast<int>(patterns.size());
}

int SoPattern::loadPatterns(const SbString& fileName, const SbString& categoryFilter, FilterTypes filterType) {
  std::vector<FilePattern> patterns;
  if (!readPatternFile(fileName, patterns)) return -1;
  int loaded = 0;
  for (const FilePattern& p : patterns) {
    const bool inCategory = p.category == categoryFilter.toStdString();
    if (inCategory != (filterType == INCLUSIVEFILTER)) continue;
    addPattern(SbString(p.category), SbString(p.name), p.bits.data());
    ++loaded;
  }
  return loaded;
}

bool SoPattern::getPatternNames(int& numNames, SbString*& names, const SbString& fileName) {
  numNames = 0;
  names = nullptr;
  std::vector<FilePattern> patterns;
  if (!readPatternFile(fileName, patterns)) return false;
  numNames = static_cast<int>(patterns.size());
  if (numNames == 0) return true;
  names = new SbString[patterns.size()];
  for (size_t i = 0; i < patterns.size(); ++i) names[i] = SbString(patterns[i].name);
  return true;
}

const unsigned char* SoPattern::getPattern(const SbString& cat, const SbString& patternName) {
  PatternRegistry& reg = registry();
  std::lock_guard<std::mutex> lock(reg.mutex);
  auto it = reg.patterns.find({cat.toStdString(), patternName.toStdString()});
  // Entries are never removed, so the bytes stay where they are.
  return it == reg.patterns.end() ? nullptr : it->second.data();
}

const unsigned char* SoPattern::getPattern() const { return getPattern(category.getValue(), name.getValue()); }
