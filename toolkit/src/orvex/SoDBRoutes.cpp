// Routes between node fields, and the registry of field converters.

#include <Orvex/SoDB.h>
#include <Orvex/SoFieldList.h>
#include <Orvex/engines/SoEngine.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/fields/SoField.h>
#include <Orvex/nodes/SoNode.h>

#include <map>
#include <mutex>
#include <utility>

namespace {

// The two ends of a route, or nulls after a posted error.
struct RouteEnds {
  SoField* from = nullptr;
  SoField* to = nullptr;
};

const char* orEmpty(const char* text) { return text ? text : ""; }

RouteEnds findRouteEnds(const char* method, SoNode* fromNode, const char* eventOutName, SoNode* toNode,
                        const char* eventInName) {
  RouteEnds ends;
  if (!fromNode || !toNode) {
    SoDebugError::post(method, "A route needs two nodes (got %s)", !fromNode ? "no source node" : "no target node");
    return ends;
  }
  if (!eventOutName || !*eventOutName || !eventInName || !*eventInName) {
    SoDebugError::post(method, "A route needs the names of both fields");
    return ends;
  }
  SoField* from = fromNode->getField(SbName(eventOutName));
  if (!from) {
    SoDebugError::post(method, "%s has no field \"%s\"", fromNode->getTypeId().getName().getString(), eventOutName);
    return ends;
  }
  SoField* to = toNode->getField(SbName(eventInName));
  if (!to) {
    SoDebugError::post(method, "%s has no field \"%s\"", toNode->getTypeId().getName().getString(), eventInName);
    return ends;
  }
  if (from == to) {
    SoDebugError::post(method, "A field cannot be routed to itself (\"%s\")", eventOutName);
    return ends;
  }
  ends.from = from;
  ends.to = to;
  return ends;
}

bool isFieldType(SoType type) { return !type.isBad() && type.isDerivedFrom(SoField::getClassTypeId()); }

// User converters by pair of field types.
struct Converters {
  std::mutex mutex;
  std::map<std::pair<uint16_t, uint16_t>, SoType> engines;
};

Converters& converters() {
  // Never destroyed: other threads may ask while the process exits.
  static Converters* instance = new Converters;
  return *instance;
}

std::pair<uint16_t, uint16_t> key(SoType from, SoType to) { return {from.getKey(), to.getKey()}; }

}  // namespace

void SoDB::createRoute(SoNode* fromNode, const char* eventOutName, SoNode* toNode, const char* eventInName) {
  const RouteEnds ends = findRouteEnds("SoDB::createRoute", fromNode, eventOutName, toNode, eventInName);
  if (!ends.to) return;
  // Appended, so that the routes already leading into the field stay.
  ends.to->connectFrom(ends.from, true, true);
}

void SoDB::removeRoute(SoNode* fromNode, const char* eventOutName, SoNode* toNode, const char* eventInName) {
  const RouteEnds ends = findRouteEnds("SoDB::removeRoute", fromNode, eventOutName, toNode, eventInName);
  if (!ends.to) return;
  // Only connections from fields are routes: look for this one among them.
  SoFieldList masters;
  ends.to->getConnections(masters);
  const bool routed = masters.find(ends.from) >= 0;
  if (!routed) {
    SoDebugError::post("SoDB::removeRoute", "There is no route from \"%s\" to \"%s\"", orEmpty(eventOutName),
                       orEmpty(eventInName));
    return;
  }
  ends.to->disconnect(ends.from);
}

void SoDB::addConverter(SoType fromField, SoType toField, SoType converterEngine) {
  if (!isFieldType(fromField) || !isFieldType(toField)) {
    SoDebugError::post("SoDB::addConverter", "Converters convert between field types (got \"%s\" and \"%s\")",
                       fromField.getName().getString(), toField.getName().getString());
    return;
  }
  if (converterEngine.isBad() || !converterEngine.isDerivedFrom(SoEngine::getClassTypeId())) {
    SoDebugError::post("SoDB::addConverter", "\"%s\" is not an engine type",
                       converterEngine.getName().getString());
    return;
  }
  Converters& c = converters();
  std::lock_guard<std::mutex> lock(c.mutex);
  c.engines[key(fromField, toField)] = converterEngine;
}

SoType SoDB::getConverter(SoType fromField, SoType toField) {
  Converters& c = converters();
  std::lock_guard<std::mutex> lock(c.mutex);
  auto it = c.engines.find(key(fromField, toField));
  return it == c.engines.end() ? SoType::badType() : it->second;
}

void SoDB::removeConverter(SoType fromField, SoType toField) {
  Converters& c = converters();
  std::lock_guard<std::mutex> lock(c.mutex);
  c.engines.erase(key(fromField, toField));
}
