// Global fields in scene files: "GlobalField { SFTime name value }" blocks
// between the top-level objects of an ASCII file.

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/fields/SoField.h>

#include <memory>
#include <string>

#include "MessageText.h"
#include "ReadObject.h"

namespace orvex {

namespace {

const SbName kGlobalField("GlobalField");

std::string quoted(const SbName& name) { return quoteForMessage(name.getString(), static_cast<size_t>(name.getLength())); }

bool expect(SoInput* in, char wanted, const char* where) {
  char c;
  if (in->read(c) && c == wanted) return true;
  SoReadError::post(in, "Expected '%c' %s of a GlobalField", wanted, where);
  return false;
}

// The block after its keyword.
bool readGlobalField(SoInput* in) {
  if (!expect(in, '{', "at the start")) return false;
  SbName typeName, fieldName;
  if (!in->read(typeName, true)) {
    SoReadError::post(in, "Expected the field type of a GlobalField");
    return false;
  }
  const SoType type = SoType::fromName(typeName);
  if (type.isBad() || !type.isDerivedFrom(SoField::getClassTypeId()) || !type.canCreateInstance()) {
    SoReadError::post(in, "Unknown field type \"%s\" in a GlobalField", quoted(typeName).c_str());
    return false;
  }
  if (!in->read(fieldName, true)) {
    SoReadError::post(in, "Expected the name of a GlobalField");
    return false;
  }
  // The value is read into a field of its own first, so that a bad value
  // leaves the global field (or its absence) as it was.
  std::unique_ptr<SoField> value(static_cast<SoField*>(type.createInstance()));
  if (!value || !value->readValue(in)) {
    SoReadError::post(in, "Bad value for the global field \"%s\"", quoted(fieldName).c_str());
    return false;
  }
  if (!expect(in, '}', "at the end")) return false;
  SoField* global = SoDB::getGlobalField(fieldName);
  if (global && global->getTypeId() != type) {
    SoReadError::post(in, "The global field \"%s\" is a %s, not a %s", quoted(fieldName).c_str(),
                      global->getTypeId().getName().getString(), type.getName().getString());
    return false;
  }
  if (!global) global = SoDB::createGlobalField(fieldName, type);
  if (!global) {
    SoReadError::post(in, "Cannot create the global field \"%s\"", quoted(fieldName).c_str());
    return false;
  }
  global->copyFrom(*value);
  return true;
}

}  // namespace

bool readGlobalFields(SoInput* in) {
  if (in->isBinary()) return true;
  for (;;) {
    char c;
    // Only a word starting with 'G' can be the keyword.
    if (!in->peek(c) || c != 'G') return true;
    SbName word;
    if (!in->read(word, true)) return true;
    if (word != kGlobalField) {
      in->putBack(word.getString());
      return true;
    }
    if (!readGlobalField(in)) return false;
  }
}

}  // namespace orvex
