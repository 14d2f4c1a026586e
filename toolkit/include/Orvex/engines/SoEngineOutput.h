#pragma once
#include <Orvex/SbName.h>
#include <Orvex/SoType.h>

#include <cstddef>
#include <vector>

class SoEngine;
class SoField;
class SoFieldList;
class SoNotList;

// An output of an engine: the fields connected from it receive the
// engine's value for it when they are read. A disabled output neither
// notifies its fields nor writes to them.
class SoEngineOutput {
 public:
  SoEngineOutput();
  ~SoEngineOutput();
  SoEngineOutput(const SoEngineOutput&) = delete;
  SoEngineOutput& operator=(const SoEngineOutput&) = delete;

  // The field type of the values the engine writes.
  SoType getConnectionType() const { return m_type; }
  // Appends the connected fields; answers how many.
  int getForwardConnections(SoFieldList& list) const;
  void enable(bool flag) { m_enabled = flag; }
  bool isEnabled() const { return m_enabled; }
  SoEngine* getContainer() const { return m_container; }

  // Used by engines and fields.
  void setContainer(SoEngine* engine) { m_container = engine; }
  void setType(SoType type) { m_type = type; }
  int getNumConnections() const { return static_cast<int>(m_connections.size()); }
  SoField* operator[](int i) const { return m_connections[static_cast<size_t>(i)]; }
  void addConnection(SoField* field);
  void removeConnection(SoField* field);
  // Marks the connected fields out of date and notifies them.
  void notifyConnections(SoNotList* list) const;
  // Every connected field is taken as current (the engine has written).
  void markEvaluated() const;

 private:
  SoType m_type;
  SoEngine* m_container = nullptr;
  std::vector<SoField*> m_connections;
  bool m_enabled = true;
};

// The outputs of an engine class (or of one engine with outputs made at
// run time): their names, types and where they live.
class SoEngineOutputData {
 public:
  SoEngineOutputData() = default;
  // A copy of `parent` (nothing when null) to which a class adds its own.
  explicit SoEngineOutputData(const SoEngineOutputData* parent);

  // With an engine the output is recorded by its offset in the engine
  // (a member); without, by its address (an output of one engine).
  void addOutput(const SoEngine* base, const char* name, const SoEngineOutput* output, SoType type);
  int getNumOutputs() const { return static_cast<int>(m_outputs.size()); }
  const SbName& getOutputName(int index) const { return m_outputs[static_cast<size_t>(index)].name; }
  SoType getType(int index) const { return m_outputs[static_cast<size_t>(index)].type; }
  SoEngineOutput* getOutput(const SoEngine* engine, int index) const;
  // Index of the output in the engine, or -1.
  int getIndex(const SoEngine* engine, const SoEngineOutput* output) const;

 private:
  struct Entry {
    SbName name;
    SoType type;
    bool byOffset;
    ptrdiff_t offset;
    const SoEngineOutput* output;
  };
  std::vector<Entry> m_outputs;
};

// Writes a value into every field connected from an enabled output: the
// fields of the output's type directly, others through the text form.
// Notification is off while writing (the engine notified already).
#define SO_ENGINE_OUTPUT(outputName, fieldType, setCall)                              \
  do {                                                                               \
    SoEngineOutput& orvexOut_ = outputName;                                           \
    if (!orvexOut_.isEnabled()) break;                                                \
    for (int orvexI_ = 0; orvexI_ < orvexOut_.getNumConnections(); ++orvexI_) {       \
      SoField* orvexF_ = orvexOut_[orvexI_];                                          \
      const bool orvexNotify_ = orvexF_->enableNotify(false);                         \
      if (orvexF_->isOfType(fieldType::getClassTypeId())) {                           \
        static_cast<fieldType*>(orvexF_)->setCall;                                    \
      } else {                                                                       \
        fieldType orvexTmp_;                                                          \
        orvexTmp_.setCall;                                                            \
        orvex::convertFieldValue(orvexTmp_, *orvexF_);                                \
      }                                                                              \
      orvexF_->enableNotify(orvexNotify_);                                            \
    }                                                                                \
  } while (0)

namespace orvex {
// Gives `to` the value of a field of another type, through text.
void convertFieldValue(const SoField& from, SoField& to);
}  // namespace orvex
