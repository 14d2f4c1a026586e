// Reading and writing objects: the parts of the file format that all objects
// share (DEF, USE, NULL, the type name and the braces).

#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/misc/SoBase.h>
#include <Orvex/nodes/SoNode.h>
#include <Orvex/nodes/SoUnknownNode.h>

#include <new>
#include <stdexcept>
#include <string>

#include "MessageText.h"
#include "ReadObject.h"

namespace orvex {

namespace {

// Flags written after the type name in binary files.
constexpr int kFlagFieldDescriptions = 1;

bool readWord(SoInput* in, SbName& word) { return in->read(word, false); }

// A name read from the file, as a message shows it (bounded).
std::string quoted(const SbName& name) { return quoteForMessage(name.getString(), static_cast<size_t>(name.getLength())); }

// Keeps the input's list of objects being read in step on every way out.
class ObjectBeingRead {
 public:
  ObjectBeingRead(SoInput* in, SoBase* object) : m_in(in), m_depth(in->enterObject(object)) {}
  ~ObjectBeingRead() { m_in->leaveObject(); }
  ObjectBeingRead(const ObjectBeingRead&) = delete;
  ObjectBeingRead& operator=(const ObjectBeingRead&) = delete;
  int depth() const { return m_depth; }

 private:
  SoInput* m_in;
  int m_depth;
};

// Posts what stands where an object was expected.
void postUnexpected(SoInput* in, const char* what) {
  char c = 0;
  if (!in->isBinary() && in->peek(c))
    SoReadError::post(in, "Expected %s, found '%c'", what, c);
  else
    SoReadError::post(in, "Expected %s", what);
}

bool expectChar(SoInput* in, char wanted, const char* context) {
  char c;
  if (!in->read(c)) {
    SoReadError::post(in, "Premature end of file: '%c' missing %s", wanted, context);
    return false;
  }
  if (c != wanted) {
    SoReadError::post(in, "Expected '%c' %s, found '%c'", wanted, context, c);
    return false;
  }
  return true;
}

// After the opening brace of an object of an unknown type: whether the
// file describes its fields ("fields [").
bool describesFields(SoInput* in) {
  char c;
  if (!in->peek(c) || c != 'f') return false;
  SbName word;
  if (!in->read(word, true)) return false;
  const bool found = word == "fields" && in->peek(c) && c == '[';
  in->putBack(word.getString());
  return found;
}

}  // namespace

ReadResult readObject(SoInput* in, SoBase*& base, SoType expectedType) {
  base = nullptr;
  if (!in->isValidBuffer()) return ReadResult::FAIL;
  if (in->isBinary() ? in->eof() : !in->skipWhiteSpace()) return ReadResult::END;

  SbName word;
  if (!readWord(in, word)) {
    postUnexpected(in, "a node type, DEF, USE or NULL");
    return ReadResult::FAIL;
  }
  if (word == "NULL") return ReadResult::OK;
  if (word == "USE") {
    SbName name;
    if (!readWord(in, name)) {
      SoReadError::post(in, "Expected a name after USE");
      return ReadResult::FAIL;
    }
    SoBase* found = in->findReference(name);
    if (!found) {
      SoReadError::post(in, "Unknown reference \"%s\"", quoted(name).c_str());
      return ReadResult::FAIL;
    }
    if (in->isBeingRead(found)) {
      SoReadError::post(in, "\"%s\" is used inside its own definition", quoted(name).c_str());
      return ReadResult::FAIL;
    }
    if (!found->isOfType(expectedType)) {
      SoReadError::post(in, "\"%s\" is a %s, where a %s is expected", quoted(name).c_str(),
                        found->getTypeId().getName().getString(), expectedType.getName().getString());
      return ReadResult::FAIL;
    }
    found->ref();
    base = found;
    return ReadResult::OK;
  }
  SbName defName;
  if (word == "DEF") {
    if (!readWord(in, defName)) {
      SoReadError::post(in, "Expected a name after DEF");
      return ReadResult::FAIL;
    }
    if (!readWord(in, word)) {
      postUnexpected(in, "a node type after DEF");
      return ReadResult::FAIL;
    }
  }

  // A name that is not a type and is not followed by a brace is most likely
  // a misspelt field of the enclosing group.
  SoType type = SoType::fromName(word);
  if (type.isBad() && !in->isBinary()) {
    char next;
    if (in->peek(next) && next != '{') {
      SoReadError::post(in, "Unknown node type or field \"%s\"", quoted(word).c_str());
      return ReadResult::FAIL;
    }
  }

  int flags = 0;
  if (in->isBinary()) {
    if (!in->read(flags)) {
      SoReadError::post(in, "Premature end of file after \"%s\"", quoted(word).c_str());
      return ReadResult::FAIL;
    }
  } else if (!expectChar(in, '{', "after the type name")) {
    return ReadResult::FAIL;
  }

  // The type: registered, or supplied by the unknown-name callback.
  SoBase* object = nullptr;
  bool isUnknown = false;
  if (!type.isBad() && type.isDerivedFrom(SoBase::getClassTypeId()) && type.canCreateInstance()) {
    if (!type.isDerivedFrom(expectedType)) {
      SoReadError::post(in, "A %s stands where a %s is expected", quoted(word).c_str(),
                        expectedType.getName().getString());
      return ReadResult::FAIL;
    }
    object = static_cast<SoBase*>(type.createInstance());
  }
  if (!object) {
    const bool described = in->isBinary() ? (flags & kFlagFieldDescriptions) != 0 : describesFields(in);
    if (!described) {
      SoReadError::post(in, "Unknown node type \"%s\"", quoted(word).c_str());
      return ReadResult::FAIL;
    }
    if (!SoUnknownNode::getClassTypeId().isDerivedFrom(expectedType)) {
      SoReadError::post(in, "Unknown type \"%s\" where a %s is expected", quoted(word).c_str(),
                        expectedType.getName().getString());
      return ReadResult::FAIL;
    }
    object = new SoUnknownNode;
    isUnknown = true;
    flags |= kFlagFieldDescriptions;
  }

  object->ref();
  bool ok = false;
  // Running out of memory inside the object (a huge value, a long list) is
  // a read error at this point of the file; the object and what it holds
  // are released as for any failed read.
  try {
    if (isUnknown) static_cast<SoUnknownNode*>(object)->setClassName(word.getString());
    if (!!defName) {
      object->setName(defName);
      in->addReference(defName, object);
    }
    const ObjectBeingRead reading(in, object);
    if (reading.depth() > SoInput::kMaxNesting) {
      SoReadError::post(in, "Objects nested too deeply");
    } else {
      ok = object->readInstance(in, static_cast<unsigned short>(flags));
    }
  } catch (const std::bad_alloc&) {
    postOutOfMemory(in);
  } catch (const std::length_error&) {
    postOutOfMemory(in);
  }
  if (ok && !in->isBinary()) ok = expectChar(in, '}', "at the end of the object");
  if (!ok) {
    object->unref();
    return ReadResult::FAIL;
  }
  base = object;
  return ReadResult::OK;
}

void postOutOfMemory(SoInput* in) noexcept {
  try {
    SoReadError::post(in, "Out of memory while reading");
  } catch (...) {
    // Not even the message fits: the failed read says enough.
  }
}

}  // namespace orvex

// ---- SoBase -------------------------------------------------------------------------

bool SoBase::read(SoInput* in, SoBase*& base, SoType expectedType) {
  const orvex::ReadResult r = orvex::readObject(in, base, expectedType);
  if (r == orvex::ReadResult::FAIL) return false;
  if (base) base->unrefNoDelete();
  return true;
}

bool SoBase::readInstance(SoInput* in, unsigned short) {
  SoReadError::post(in, "Objects of type %s cannot be read", getTypeId().getName().getString());
  return false;
}

bool SoBase::addWriteReference(SoOutput* out, bool) const { return out->addReference(this) == 1; }

bool SoBase::writeHeader(SoOutput* out, bool, bool) const {
  if (out->isWritten(this)) {
    const SbName name = out->getWriteName(this);
    if (!!name) {
      if (out->isBinary()) {
        out->write(SbName("USE"));
        out->write(name);
      } else {
        out->indent();
        out->write("USE ");
        out->write(name.getString());
        out->endLine();
      }
      return true;
    }
    // Written before without a name (it was not known to be shared):
    // written again in full.
  }
  const SbName name = getName();
  SbName writeName;
  if (!!name || out->getReferenceCount(this) > 1) writeName = out->makeUniqueName(name);
  out->setWritten(this, writeName);
  const SbName typeName(getFileFormatName());
  if (out->isBinary()) {
    if (!!writeName) {
      out->write(SbName("DEF"));
      out->write(writeName);
    }
    out->write(typeName);
    out->write(isOfType(SoUnknownNode::getClassTypeId()) ? orvex::kFlagFieldDescriptions : 0);
    return false;
  }
  out->indent();
  if (!!writeName) {
    out->write("DEF ");
    out->write(writeName.getString());
    out->write(' ');
  }
  out->write(typeName.getString());
  out->write(" {\n");
  out->incrementIndent();
  return false;
}

void SoBase::writeFooter(SoOutput* out) const {
  if (out->isBinary()) return;
  out->decrementIndent();
  out->indent();
  out->write('}');
  out->endLine();
}

void SoBase::writeInstance(SoOutput* out) {
  if (out->getStage() == SoOutput::COUNTREFS) {
    addWriteReference(out);
    return;
  }
  if (writeHeader(out, false, false)) return;
  writeFooter(out);
}
