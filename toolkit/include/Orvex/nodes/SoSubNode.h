#pragma once
// Declarations and definitions shared by node classes.

#include <Orvex/fields/SoFieldData.h>
#include <Orvex/nodes/SoNode.h>

#include <cstring>

namespace orvex {
// The type name of a node class: the class name without its "So" prefix.
inline const char* nodeTypeName(const char* className) {
  return std::strncmp(className, "So", 2) == 0 && className[2] ? className + 2 : className;
}
}  // namespace orvex

#define SO_NODE_ABSTRACT_HEADER(className)                       \
 public:                                                         \
  static SoType getClassTypeId();                                \
  SoType getTypeId() const override;                             \
  static void initClass();                                       \
  int getTypeActionMethodIndex() const override;                 \
  const SoFieldData* getFieldData() const override;              \
  static const SoFieldData** getFieldDataPtr();                  \
                                                                 \
 private:                                                        \
  static SoType s_classTypeId;                                   \
  static int s_actionMethodIndex;                                \
  static const SoFieldData* s_fieldData;                         \
  static const SoFieldData** s_parentFieldData

#define SO_NODE_HEADER(className)            \
  SO_NODE_ABSTRACT_HEADER(className);        \
                                             \
 public:                                     \
  static void* createInstance()

#define SO__NODE_VARS(className)                                                          \
  SoType className::s_classTypeId;                                                       \
  int className::s_actionMethodIndex = 0;                                                \
  const SoFieldData* className::s_fieldData = nullptr;                                   \
  const SoFieldData** className::s_parentFieldData = nullptr;                            \
  SoType className::getClassTypeId() { return s_classTypeId; }                           \
  SoType className::getTypeId() const { return s_classTypeId; }                          \
  int className::getTypeActionMethodIndex() const { return s_actionMethodIndex; }        \
  const SoFieldData* className::getFieldData() const { return s_fieldData; }             \
  const SoFieldData** className::getFieldDataPtr() { return &s_fieldData; }

#define SO_NODE_SOURCE(className)  \
  SO__NODE_VARS(className)         \
  void* className::createInstance() { return static_cast<SoBase*>(new className); }

#define SO_NODE_ABSTRACT_SOURCE(className) SO__NODE_VARS(className)

// In initClass(): registers the class (named without "So") with the next
// action-method index.
#define SO__NODE_INIT(className, parentClass, method)                                   \
  do {                                                                                 \
    if (!s_classTypeId.isBad()) break;                                                 \
    s_actionMethodIndex = SoNode::getNextActionMethodIndex();                          \
    s_classTypeId = SoType::createType(parentClass::getClassTypeId(),                  \
                                       orvex::nodeTypeName(#className), method,        \
                                       static_cast<short>(s_actionMethodIndex));       \
    SoNode::incNextActionMethodIndex();                                                \
    s_parentFieldData = parentClass::getFieldDataPtr();                                \
  } while (0)
#define SO_NODE_INIT_CLASS(className, parentClass, parentName) \
  SO__NODE_INIT(className, parentClass, &className::createInstance)
#define SO_NODE_INIT_ABSTRACT_CLASS(className, parentClass, parentName) \
  SO__NODE_INIT(className, parentClass, nullptr)

// In the constructor: the first instance builds the class's field data
// (starting from the parent's), later instances only set up their fields.
#define SO_NODE_CONSTRUCTOR(className)                                           \
  const bool orvexFirstInstance_ = s_fieldData == nullptr;                       \
  SoFieldData* orvexFieldData_ = nullptr;                                        \
  if (orvexFirstInstance_) {                                                     \
    orvexFieldData_ = new SoFieldData(s_parentFieldData ? *s_parentFieldData : nullptr); \
    s_fieldData = orvexFieldData_;                                               \
  }                                                                              \
  (void)orvexFieldData_

// Adds a field with its default value (the arguments of setValue).
#define SO_NODE_ADD_FIELD(fieldName, defValue)                                   \
  do {                                                                           \
    if (orvexFirstInstance_) orvexFieldData_->addField(this, #fieldName, &this->fieldName); \
    this->fieldName.setValue defValue;                                           \
    this->fieldName.setDefault(true);                                            \
    this->fieldName.setContainer(this);                                          \
  } while (0)

// Declares a value of an enumeration used by the class's fields.
#define SO_NODE_DEFINE_ENUM_VALUE(enumType, enumValue)                           \
  do {                                                                           \
    if (orvexFirstInstance_) orvexFieldData_->addEnumValue(#enumType, #enumValue, enumValue); \
  } while (0)

// Gives an enumerated or bit-mask field the names of its enumeration.
#define SO_NODE_SET_SF_ENUM_TYPE(fieldName, enumType) \
  this->fieldName.setEnumTable(s_fieldData->getEnumTable(#enumType))
#define SO_NODE_SET_MF_ENUM_TYPE(fieldName, enumType) \
  this->fieldName.setEnumTable(s_fieldData->getEnumTable(#enumType))
