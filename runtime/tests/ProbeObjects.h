#pragma once
// Native objects of made-up toolkit types for the identity and type-mapping tests.

#include <string>

#include <Orvex/SoTypedObject.h>
#include <Orvex/misc/SoBase.h>

namespace probe {

// A typed object whose run-time type is any name the test chooses; one
// instance per name, alive for the whole process.
class TypedProbe : public SoTypedObject {
 public:
  explicit TypedProbe(SoType type) : m_type(type) {}
  SoType getTypeId() const override { return m_type; }

 private:
  SoType m_type;
};

// The probe of `typeName` (its type registered under the field base class
// when the toolkit does not know the name yet).
TypedProbe* typedProbe(const std::string& typeName);

// A reference-counted toolkit object of the type "ProbeNode".
class ProbeNode : public SoBase {
 public:
  ProbeNode();
  SoType getTypeId() const override;
  static int alive();  // instances not yet destroyed

 protected:
  ~ProbeNode() override;
};

}  // namespace probe
