#pragma once
#include <Orvex/SoType.h>

// Base of every toolkit class that reports a run-time type.
class SoTypedObject {
 public:
  virtual ~SoTypedObject() = default;
  static SoType getClassTypeId();
  virtual SoType getTypeId() const = 0;
  bool isOfType(SoType type) const { return getTypeId().isDerivedFrom(type); }

  // Checks, in a constructor, that the class was registered before any
  // instance is built. Posts a debug error naming `className` and answers
  // false when `classType` is bad (its initClass() has not run).
  static bool checkDatabase(const char* className, const void* object,
                            SoType thisType, SoType classType);

  static void initClass();
};
