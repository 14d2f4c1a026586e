#pragma once
#include <Orvex/engines/SoEngineOutput.h>
#include <Orvex/fields/SoFieldContainer.h>

#include <vector>

class SoEngineList;

// Base of the engines: field containers outside the scene graph that
// compute values from their input fields and hand them out through their
// outputs to the fields connected from them. When an input changes the
// engine only tells its connected fields that they are out of date; it
// computes (evaluate) when one of them is read, once for all. Engines are
// reference counted; each connected field holds a reference.
class SoEngine : public SoFieldContainer {
 public:
  static SoType getClassTypeId();
  static void initClass();
  // Every engine class of the toolkit.
  static void initClasses();

  // The outputs; answers how many were appended.
  int getOutputs(std::vector<SoEngineOutput*>& list) const;
  SoEngineOutput* getOutput(const SbName& outputName) const;
  bool getOutputName(const SoEngineOutput* output, SbName& outputName) const;
  virtual const SoEngineOutputData* getOutputData() const;
  // The data of this base class (no fields, no outputs).
  static const SoFieldData** getFieldDataPtr();
  static const SoEngineOutputData** getOutputDataPtr();

  static SoEngine* getByName(const SbName& name);
  static int getByName(const SbName& name, SoEngineList& list);
  // A copy with the same input values (and connections when asked).
  SoEngine* copy(bool copyConnections = false) const;

  // Computes the outputs now and takes every connected field as current.
  void evaluateWrapper();
  // Whether the engine is passing a notification on.
  bool isNotifying() const { return m_notifying; }
  void notify(SoNotList* list) override;

 protected:
  SoEngine();
  ~SoEngine() override;
  // An input changed (called before the outputs' fields are told): an
  // engine may enable or disable outputs for this change.
  virtual void inputChanged(SoField* whichField);
  // Writes the outputs (SO_ENGINE_OUTPUT); an engine without outputs has
  // nothing to write.
  virtual void evaluate();

 private:
  bool m_evaluating = false;
  bool m_notifying = false;
};
