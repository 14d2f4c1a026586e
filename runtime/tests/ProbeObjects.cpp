#include "ProbeObjects.h"

#include <atomic>
#include <map>
#include <memory>
#include <mutex>

#include <Orvex/fields/SoField.h>

namespace probe {

namespace {
std::atomic<int> s_aliveNodes{0};

SoType findOrCreate(SoType parent, const char* name) {
  SoType type = SoType::fromName(SbName(name));
  if (type.isBad()) type = SoType::createType(parent, SbName(name));
  return type;
}
}  // namespace

TypedProbe* typedProbe(const std::string& typeName) {
  static std::mutex lock;
  static auto* probes = new std::map<std::string, std::unique_ptr<TypedProbe>>();
  std::lock_guard<std::mutex> guard(lock);
  auto& slot = (*probes)[typeName];
  if (!slot) slot = std::make_unique<TypedProbe>(findOrCreate(SoField::getClassTypeId(), typeName.c_str()));
  return slot.get();
}

ProbeNode::ProbeNode() { s_aliveNodes.fetch_add(1); }

ProbeNode::~ProbeNode() { s_aliveNodes.fetch_sub(1); }

SoType ProbeNode::getTypeId() const {
  static const SoType type = findOrCreate(SoBase::getClassTypeId(), "ProbeNode");
  return type;
}

int ProbeNode::alive() { return s_aliveNodes.load(); }

}  // namespace probe
