// Reading scene files through the database, and the registry of file headers.

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/SoPath.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/nodes/SoNode.h>
#include <Orvex/nodes/SoSeparator.h>

#include <mutex>
#include <new>
#include <stdexcept>
#include <vector>

#include "ReadObject.h"

namespace {

struct Header {
  SbString text;
  bool isBinary;
  float version;
  SoDBHeaderCB* preCB;
  SoDBHeaderCB* postCB;
  void* userData;
};

struct HeaderRegistry {
  std::mutex mutex;
  std::vector<Header> headers{
      {SbString("#Orvex V1.0 ascii"), false, 1.0f, nullptr, nullptr, nullptr},
      {SbString("#Orvex V1.0 binary"), true, 1.0f, nullptr, nullptr, nullptr},
  };
};

HeaderRegistry& headers() {
  static HeaderRegistry* instance = new HeaderRegistry;
  return *instance;
}

// The first line of a text, without trailing blanks.
std::string firstLine(const char* text) {
  std::string line;
  for (const char* p = text; *p && *p != '\n' && *p != '\r'; ++p) line += *p;
  while (!line.empty() && (line.back() == ' ' || line.back() == '\t')) line.pop_back();
  return line;
}

// One object of the given type, after the global-field blocks before it;
// rolls back everything the attempt defined when it fails. Running out of
// memory is a failed read like any other (objects catch it while they read;
// this catches it around them).
bool readTopLevel(SoInput* in, SoBase*& base, SoType type) {
  base = nullptr;
  if (!in || !in->isValidBuffer()) return false;
  const size_t mark = in->markReferences();
  orvex::ReadResult r = orvex::ReadResult::FAIL;
  try {
    if (orvex::readGlobalFields(in)) r = orvex::readObject(in, base, type);
  } catch (const std::bad_alloc&) {
    orvex::postOutOfMemory(in);
  } catch (const std::length_error&) {
    orvex::postOutOfMemory(in);
  }
  if (r == orvex::ReadResult::FAIL) {
    in->rollBackReferences(mark);
    return false;
  }
  if (base) base->unrefNoDelete();
  return true;
}

}  // namespace

bool SoDB::read(SoInput* in, SoBase*& base) { return readTopLevel(in, base, SoBase::getClassTypeId()); }

bool SoDB::read(SoInput* in, SoNode*& rootNode) {
  SoBase* base = nullptr;
  const bool ok = readTopLevel(in, base, SoNode::getClassTypeId());
  rootNode = static_cast<SoNode*>(base);
  return ok;
}

SoNode* SoDB::readNode(SoInput* in) {
  SoNode* node = nullptr;
  return read(in, node) ? node : nullptr;
}

bool SoDB::read(SoInput* in, SoPath*& path) {
  SoBase* base = nullptr;
  const bool ok = readTopLevel(in, base, SoPath::getClassTypeId());
  path = static_cast<SoPath*>(base);
  return ok;
}

SoSeparator* SoDB::readAll(SoInput* in) {
  if (!in || !in->isValidBuffer()) return nullptr;
  const size_t mark = in->markReferences();
  auto* root = new SoSeparator;
  root->ref();
  for (;;) {
    SoNode* node = nullptr;
    bool ok = read(in, node);
    if (ok && !node) break;
    if (ok) {
      // Held while added: the child list may fail to grow.
      node->ref();
      try {
        root->addChild(node);
      } catch (const std::bad_alloc&) {
        orvex::postOutOfMemory(in);
        ok = false;
      }
      node->unref();
    }
    if (!ok) {
      // Nothing read from this input so far stays referenced.
      root->unref();
      in->rollBackReferences(mark);
      return nullptr;
    }
  }
  // A file holding exactly one separator gives that separator.
  if (root->getNumChildren() == 1 && root->getChild(0)->getTypeId() == SoSeparator::getClassTypeId()) {
    auto* only = static_cast<SoSeparator*>(root->getChild(0));
    only->ref();
    root->unref();
    only->unrefNoDelete();
    return only;
  }
  root->unrefNoDelete();
  return root;
}

bool SoDB::isValidHeader(const char* testString) {
  if (!testString) return false;
  bool isBinary;
  float version;
  return getHeaderData(SbString(firstLine(testString)), isBinary, version);
}

bool SoDB::registerHeader(const SbString& headerString, bool isBinary, float ivVersion, SoDBHeaderCB* preCB,
                          SoDBHeaderCB* postCB, void* userData) {
  // Headers are comment lines of at most 80 characters.
  if (headerString.isEmpty() || headerString.getString()[0] != '#' || headerString.getSize() > 80) return false;
  HeaderRegistry& reg = headers();
  std::lock_guard<std::mutex> lock(reg.mutex);
  for (const Header& h : reg.headers)
    if (h.text == headerString) return false;
  reg.headers.push_back(Header{headerString, isBinary, ivVersion, preCB, postCB, userData});
  return true;
}

bool SoDB::getHeaderData(const SbString& headerString, bool& isBinary, float& ivVersion, SoDBHeaderCB*& preCB,
                         SoDBHeaderCB*& postCB, void*& userData, bool substringOK) {
  const std::string line = firstLine(headerString.getString());
  HeaderRegistry& reg = headers();
  std::lock_guard<std::mutex> lock(reg.mutex);
  for (const Header& h : reg.headers) {
    const std::string& text = h.text.toStdString();
    const bool match = substringOK ? line.compare(0, text.size(), text) == 0 : line == text;
    if (!match) continue;
    isBinary = h.isBinary;
    ivVersion = h.version;
    preCB = h.preCB;
    postCB = h.postCB;
    userData = h.userData;
    return true;
  }
  return false;
}

bool SoDB::getHeaderData(const SbString& headerString, bool& isBinary, float& ivVersion) {
  SoDBHeaderCB* pre;
  SoDBHeaderCB* post;
  void* data;
  return getHeaderData(headerString, isBinary, ivVersion, pre, post, data);
}

int SoDB::getNumHeaders() {
  HeaderRegistry& reg = headers();
  std::lock_guard<std::mutex> lock(reg.mutex);
  return static_cast<int>(reg.headers.size());
}

SbString SoDB::getHeaderString(int whichHeader) {
  HeaderRegistry& reg = headers();
  std::lock_guard<std::mutex> lock(reg.mutex);
  if (whichHeader < 0 || static_cast<size_t>(whichHeader) >= reg.headers.size()) return SbString();
  return reg.headers[static_cast<size_t>(whichHeader)].text;
}
