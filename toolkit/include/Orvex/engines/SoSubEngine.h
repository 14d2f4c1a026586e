#pragma once
// Declarations and definitions shared by engine classes.

#include <Orvex/engines/SoEngine.h>
#include <Orvex/fields/SoFieldData.h>
#include <Orvex/nodes/SoSubNode.h>

#define SO_ENGINE_ABSTRACT_HEADER(className)                       \
 public:                                                           \
  static SoType getClassTypeId();                                  \
  SoType getTypeId() const override;                               \
  static void initClass();                                         \
  const SoFieldData* getFieldData() const override;                \
  const SoEngineOutputData* getOutputData() const override;        \
  static const SoFieldData** getFieldDataPtr();                    \
  static const SoEngineOutputData** getOutputDataPtr();            \
                                                                   \
 private:                                                          \
  static SoType s_classTypeId;                                     \
  static const SoFieldData* s_fieldData;                           \
  static const SoFieldData** s_parentFieldData;                    \
  static const SoEngineOutputData* s_outputData;                   \
  static const SoEngineOutputData** s_parentOutputData

#define SO_ENGINE_HEADER(className)     \
  SO_ENGINE_ABSTRACT_HEADER(className); \
                                        \
 public:                                \
  static void* createInstance()

#define SO__ENGINE_VARS(className)                                                                 \
  SoType className::s_classTypeId;                                                               \
  const SoFieldData* className::s_fieldData = nullptr;                                           \
  const SoFieldData** className::s_parentFieldData = nullptr;                                    \
  const SoEngineOutputData* className::s_outputData = nullptr;                                   \
  const SoEngineOutputData** className::s_parentOutputData = nullptr;                            \
  SoType className::getClassTypeId() { return s_classTypeId; }                                   \
  SoType className::getTypeId() const { return s_classTypeId; }                                  \
  const SoFieldData* className::getFieldData() const { return s_fieldData; }                     \
  const SoEngineOutputData* className::getOutputData() const { return s_outputData; }            \
  const SoFieldData** className::getFieldDataPtr() { return &s_fieldData; }                      \
  const SoEngineOutputData** className::getOutputDataPtr() { return &s_outputData; }

#define SO_ENGINE_SOURCE(className) \
  SO__ENGINE_VARS(className)        \
  void* className::createInstance() { return static_cast<SoBase*>(new className); }

#define SO_ENGINE_ABSTRACT_SOURCE(className) SO__ENGINE_VARS(className)

// In initClass(): registers the class under its name without "So".
#define SO__ENGINE_INIT(className, parentClass, method)                                      \
  do {                                                                                      \
    if (!s_classTypeId.isBad()) break;                                                      \
    parentClass::initClass();                                                               \
    s_classTypeId = SoType::createType(parentClass::getClassTypeId(),                       \
                                       orvex::nodeTypeName(#className), method);            \
    s_parentFieldData = parentClass::getFieldDataPtr();                                     \
    s_parentOutputData = parentClass::getOutputDataPtr();                                   \
  } while (0)
#define SO_ENGINE_INIT_CLASS(className, parentClass, parentName) \
  SO__ENGINE_INIT(className, parentClass, &className::createInstance)
#define SO_ENGINE_INIT_ABSTRACT_CLASS(className, parentClass, parentName) \
  SO__ENGINE_INIT(className, parentClass, nullptr)

// In the constructor: the first instance builds the class's field and
// output data, later instances only set up their inputs and outputs.
#define SO_ENGINE_CONSTRUCTOR(className)                                                    \
  const bool orvexFirstInstance_ = s_fieldData == nullptr;                                  \
  SoFieldData* orvexFieldData_ = nullptr;                                                   \
  SoEngineOutputData* orvexOutputData_ = nullptr;                                           \
  if (orvexFirstInstance_) {                                                                \
    orvexFieldData_ = new SoFieldData(s_parentFieldData ? *s_parentFieldData : nullptr);    \
    s_fieldData = orvexFieldData_;                                                          \
    orvexOutputData_ =                                                                      \
        new SoEngineOutputData(s_parentOutputData ? *s_parentOutputData : nullptr);         \
    s_outputData = orvexOutputData_;                                                        \
  }                                                                                         \
  (void)orvexFieldData_;                                                                    \
  (void)orvexOutputData_

#define SO_ENGINE_ADD_INPUT(inputName, defValue)                                            \
  do {                                                                                      \
    if (orvexFirstInstance_) orvexFieldData_->addField(this, #inputName, &this->inputName); \
    this->inputName.setValue defValue;                                                      \
    this->inputName.setDefault(true);                                                       \
    this->inputName.setContainer(this);                                                     \
  } while (0)

#define SO_ENGINE_ADD_OUTPUT(outputName, fieldType)                                          \
  do {                                                                                       \
    if (orvexFirstInstance_)                                                                 \
      orvexOutputData_->addOutput(this, #outputName, &this->outputName,                      \
                                  fieldType::getClassTypeId());                              \
    this->outputName.setContainer(this);                                                     \
    this->outputName.setType(fieldType::getClassTypeId());                                   \
  } while (0)

#define SO_ENGINE_DEFINE_ENUM_VALUE(enumType, enumValue)                                     \
  do {                                                                                       \
    if (orvexFirstInstance_) orvexFieldData_->addEnumValue(#enumType, #enumValue, enumValue); \
  } while (0)

#define SO_ENGINE_SET_SF_ENUM_TYPE(fieldName, enumType) \
  this->fieldName.setEnumTable(s_fieldData->getEnumTable(#enumType))
#define SO_ENGINE_SET_MF_ENUM_TYPE(fieldName, enumType) \
  this->fieldName.setEnumTable(s_fieldData->getEnumTable(#enumType))
