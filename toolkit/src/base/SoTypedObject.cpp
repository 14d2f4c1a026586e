#include <Orvex/SoTypedObject.h>

#include <Orvex/errors/SoDebugError.h>

namespace {
SoType s_typedObjectType;
}

SoType SoTypedObject::getClassTypeId() { return s_typedObjectType; }

void SoTypedObject::initClass() {
  if (s_typedObjectType.isBad())
    s_typedObjectType = SoType::createType(SoType::badType(), "TypedObject");
}

bool SoTypedObject::checkDatabase(const char* className, const void* object, SoType thisType,
                                  SoType classType) {
  if (!classType.isBad()) return true;
  const char* name = className ? className : "<unknown class>";
  SoDebugError::post("SoTypedObject::checkDatabase",
                     "Instance %p of %s (type \"%s\") was built before its class was "
                     "initialised: call %s::initClass() or SoDB::init() first",
                     object, name, thisType.getName().getString(), name);
  return false;
}
