#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoMField.h>
#include <Orvex/fields/SoSFBool.h>
#include <Orvex/fields/SoSFTrigger.h>

#include <memory>

// Lets values of a chosen multiple-value field type through: while enable
// is on the output follows the input; a trigger passes the input once.
// The input field and the output are made for the type given to the
// constructor.
class SoGate : public SoEngine {
 public:
  static SoType getClassTypeId();
  SoType getTypeId() const override;
  static void initClass();
  static void* createInstance();
  static const SoFieldData** getFieldDataPtr();
  static const SoEngineOutputData** getOutputDataPtr();


  SoSFBool enable;
  SoSFTrigger trigger;
  SoMField* input = nullptr;  // of the gate's type
  SoEngineOutput* output = nullptr;

  // `type` is a multiple-value field type (SoMFFloat::getClassTypeId()...).
  explicit SoGate(SoType type);

  // The per-instance data that includes the input and the output.
  const SoFieldData* getFieldData() const override;
  const SoEngineOutputData* getOutputData() const override;

 protected:
  ~SoGate() override;
  void inputChanged(SoField* whichField) override;
  void evaluate() override;

 private:
  // Made by the type's factory (needs a type): the default gate passes
  // floats.
  SoGate();
  void setUpInput(SoType type);

  static SoType s_classTypeId;
  static const SoFieldData* s_fieldData;
  static const SoFieldData** s_parentFieldData;
  static const SoEngineOutputData* s_outputData;
  static const SoEngineOutputData** s_parentOutputData;

  std::unique_ptr<SoField> m_input;
  std::unique_ptr<SoField> m_snapshot;  // the input when the trigger came
  SoEngineOutput m_output;
  std::unique_ptr<SoFieldData> m_fieldData;
  std::unique_ptr<SoEngineOutputData> m_outputData;
  bool m_triggered = false;
};
