#pragma once
// Declarations and definitions shared by element classes.

#include <Orvex/elements/SoElement.h>
#include <Orvex/misc/SoState.h>

class SoNode;

namespace orvex {
// Adds an element class's initClass() to the registry; answers true.
bool registerElementClass(void (*initClass)());
}  // namespace orvex

#define SO_ELEMENT_ABSTRACT_HEADER(className)       \
 public:                                            \
  static SoType getClassTypeId();                   \
  static int getClassStackIndex();                  \
  static void initClass();                          \
                                                    \
 protected:                                         \
  className();                                      \
                                                    \
 private:                                           \
  static SoType s_classTypeId;                      \
  static int s_classStackIndex

#define SO_ELEMENT_HEADER(className)                \
  SO_ELEMENT_ABSTRACT_HEADER(className);            \
                                                    \
 public:                                            \
  static void* createInstance()

#define SO__ELEMENT_VARS(className)                                      \
  SoType className::s_classTypeId;                                      \
  int className::s_classStackIndex = -1;                                \
  SoType className::getClassTypeId() { return s_classTypeId; }          \
  int className::getClassStackIndex() { return s_classStackIndex; }

// Declaring a class with one of the two SOURCE macros also registers its
// initClass() with the element registry, so SoElement::initElements() (run
// by SoDB::init) sets it up; a class registered later is set up at once.
#define SO__ELEMENT_REGISTER(className)                                  \
  namespace {                                                           \
  const bool orvexRegistered##className = orvex::registerElementClass(&className::initClass); \
  }

#define SO_ELEMENT_SOURCE(className)                                     \
  SO__ELEMENT_VARS(className)                                           \
  SO__ELEMENT_REGISTER(className)                                       \
  void* className::createInstance() { return static_cast<SoElement*>(new className); }

#define SO_ELEMENT_ABSTRACT_SOURCE(className) \
  SO__ELEMENT_VARS(className)                 \
  SO__ELEMENT_REGISTER(className)

// Registers the class under its full name; a class whose parent has no
// stack starts one, any other shares its parent's.
#define SO_ELEMENT_INIT_CLASS(className, parentClass)                             \
  do {                                                                           \
    if (!s_classTypeId.isBad()) break;                                           \
    parentClass::initClass();                                                    \
    s_classTypeId = SoType::createType(parentClass::getClassTypeId(), #className, \
                                       &className::createInstance);               \
    s_classStackIndex = parentClass::getClassStackIndex() < 0                    \
                            ? createStackIndex(s_classTypeId)                    \
                            : parentClass::getClassStackIndex();                 \
  } while (0)

#define SO_ELEMENT_INIT_ABSTRACT_CLASS(className, parentClass)                       \
  do {                                                                              \
    if (!s_classTypeId.isBad()) break;                                              \
    parentClass::initClass();                                                       \
    s_classTypeId = SoType::createType(parentClass::getClassTypeId(), #className);  \
    s_classStackIndex = parentClass::getClassStackIndex();                          \
  } while (0)

// In the constructor of a concrete element class.
#define SO_ELEMENT_CONSTRUCTOR(className)  \
  do {                                    \
    setTypeId(s_classTypeId);             \
    setStackIndex(s_classStackIndex);     \
  } while (0)
