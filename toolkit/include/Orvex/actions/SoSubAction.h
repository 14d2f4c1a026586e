#pragma once
// Declarations and definitions shared by action classes.

#include <Orvex/actions/SoAction.h>

#define SO_ACTION_HEADER(className)                                   \
 public:                                                              \
  SoType getTypeId() const override;                                  \
  static SoType getClassTypeId();                                     \
  static void initClass();                                            \
  static void addMethod(SoType nodeType, SoActionMethod method);      \
  static void enableElement(SoType elementType, int stackIndex);      \
  const SoEnabledElementsList& getEnabledElements() const override;  \
  static SoEnabledElementsList* getClassEnabledElements();            \
  static SoActionMethodList* getClassActionMethods();                 \
                                                                      \
 private:                                                             \
  static SoType s_classTypeId;                                        \
  static SoEnabledElementsList* s_enabledElements;                    \
  static SoActionMethodList* s_methods

#define SO_ACTION_SOURCE(className)                                                        \
  SoType className::s_classTypeId;                                                         \
  SoEnabledElementsList* className::s_enabledElements = nullptr;                           \
  SoActionMethodList* className::s_methods = nullptr;                                      \
  SoType className::getTypeId() const { return s_classTypeId; }                            \
  SoType className::getClassTypeId() { return s_classTypeId; }                             \
  void className::addMethod(SoType nodeType, SoActionMethod method) {                      \
    s_methods->addMethod(nodeType, method);                                                \
  }                                                                                        \
  void className::enableElement(SoType elementType, int stackIndex) {                      \
    s_enabledElements->enable(elementType, stackIndex);                                    \
  }                                                                                        \
  const SoEnabledElementsList& className::getEnabledElements() const { return *s_enabledElements; } \
  SoEnabledElementsList* className::getClassEnabledElements() { return s_enabledElements; } \
  SoActionMethodList* className::getClassActionMethods() { return s_methods; }

// In initClass(): registers the class under its full name, with lists that
// inherit the parent action's methods and elements.
#define SO_ACTION_INIT_CLASS(className, parentClass)                                    \
  do {                                                                                 \
    if (!s_classTypeId.isBad()) break;                                                 \
    s_enabledElements = new SoEnabledElementsList(parentClass::getClassEnabledElements()); \
    s_methods = new SoActionMethodList(parentClass::getClassActionMethods());          \
    s_classTypeId = SoType::createType(parentClass::getClassTypeId(), #className);     \
  } while (0)

// In the constructor of a concrete action.
#define SO_ACTION_CONSTRUCTOR(className) (traversalMethods = s_methods)

// In an action's initClass(): the traversal function for a node class.
#define SO_ACTION_ADD_METHOD(nodeClass, method) addMethod(nodeClass::getClassTypeId(), method)

// Enables an element class for an action class.
#define SO_ENABLE(actionClass, elementClass) \
  actionClass::enableElement(elementClass::getClassTypeId(), elementClass::getClassStackIndex())
