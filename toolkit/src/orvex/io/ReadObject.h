#pragma once
// Reading one object of a scene file, shared by the database, groups, paths
// and node fields.

#include <Orvex/SoType.h>

class SoBase;
class SoInput;

namespace orvex {

enum class ReadResult {
  OK,    // an object (or NULL, which gives nullptr)
  END,   // the input ended before an object started
  FAIL   // a read error was posted
};

// Reads "[DEF name] Type { ... }", "USE name" or "NULL". On OK a non-null
// object comes with one reference for the caller. The object's type must
// derive from expectedType.
ReadResult readObject(SoInput* in, SoBase*& base, SoType expectedType);

// Reads the "GlobalField { Type name value }" blocks that stand next in an
// ASCII input (none in a binary one), creating or finding each global field
// and setting its value. Answers false after posting a read error.
bool readGlobalFields(SoInput* in);

// Posts that memory ran out at the input's position. Never throws: when
// even the message cannot be made, nothing is posted.
void postOutOfMemory(SoInput* in) noexcept;

}  // namespace orvex
