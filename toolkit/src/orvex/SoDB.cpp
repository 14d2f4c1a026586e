#include <Orvex/SoDB.h>

#include <Orvex/SoTypedObject.h>
#include <Orvex/devices/SoCpuBufferObject.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/errors/SoError.h>
#include <Orvex/fields/SoSFTime.h>
#include <Orvex/misc/SoBase.h>
#include <Orvex/sensors/SoSensorManager.h>
#include <Orvex/sensors/SoTimerSensor.h>

#include "SceneGraphInit.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <thread>
#include <unordered_map>

#ifndef ORVEX_VERSION_STRING
#define ORVEX_VERSION_STRING "1.0.0"
#endif

namespace {

const SbName kRealTimeName("realTime");

// Everything the database owns.
struct Database {
  std::recursive_mutex initMutex;
  std::atomic<bool> initialized{false};
  bool initializing = false;  // guards against re-entry from a class's initClass
  std::unique_ptr<SoSensorManager> sensorManager;
  std::atomic<SoSensorManager*> publishedManager{nullptr};  // set once by init()

  std::mutex fieldsMutex;
  std::unordered_map<SbName, std::unique_ptr<SoField>> globalFields;

  std::mutex realTimeMutex;  // the settings below and the sensor's schedule
  bool realTimeEnabled = true;
  SbTime realTimeInterval = SbTime(1.0 / 12.0);
  std::unique_ptr<SoTimerSensor> realTimeSensor;

  std::atomic<SbTime> delaySensorTimeout{SbTime(1.0 / 12.0)};
  std::atomic<std::thread::id> mainThread{};

  // The application's lock (readlock() / writelock()).
  std::shared_mutex appLock;

  std::atomic<bool> tuneLuxAllowed{true};
  std::atomic<int> numRenderCaches{2};
  std::atomic<SoDB::RenderCacheModes> renderCacheMode{SoDB::AUTORENDERCACHE};
  std::atomic<bool> prioritizedChildrenCaching{false};
};

Database& db() {
  // Never destroyed: the process may exit while another thread (e.g. a
  // host's timer thread) still processes the sensor queue.
  static Database* instance = new Database;
  return *instance;
}

// The real-time sensor's own function: puts the time of day in "realTime".
void realTimeSensorCB(void*, SoSensor*) {
  if (auto* field = dynamic_cast<SoSFTime*>(SoDB::getGlobalField(kRealTimeName)))
    field->setValue(SbTime::getTimeOfDay());
}

}  // namespace

void SoDB::init() {
  Database& d = db();
  std::lock_guard<std::recursive_mutex> lock(d.initMutex);
  if (d.initialized || d.initializing) return;
  d.initializing = true;

  SoTypedObject::initClass();
  SoError::initClasses();
  SoBase::initClass();
  SoField::initClasses();
  SoBufferObject::initClass();
  SoCpuBufferObject::initClass();
  // Containers, nodes, paths, actions, elements and the scene-file headers.
  orvex::initSceneGraph();

  d.mainThread = std::this_thread::get_id();
  d.sensorManager = std::make_unique<SoSensorManager>();
  // Published before the real-time sensor is scheduled, which needs it.
  d.publishedManager = d.sensorManager.get();

  auto* realTime = static_cast<SoSFTime*>(createGlobalField(kRealTimeName, SoSFTime::getClassTypeId()));
  realTime->setValue(SbTime::getTimeOfDay());

  std::lock_guard<std::mutex> rt(d.realTimeMutex);
  d.realTimeSensor = std::make_unique<SoTimerSensor>(&realTimeSensorCB, nullptr);
  d.realTimeSensor->setInterval(d.realTimeInterval);
  if (d.realTimeEnabled) d.realTimeSensor->schedule();
  d.initialized = true;
  d.initializing = false;
}

bool SoDB::isInitialized() { return db().initialized; }

const char* SoDB::getVersion() { return "Orvex " ORVEX_VERSION_STRING; }

SoSensorManager* SoDB::getSensorManager() { return db().publishedManager.load(); }

SoField* SoDB::createGlobalField(const SbName& name, SoType type) {
  if (!name || !type.isDerivedFrom(SoField::getClassTypeId()) || !type.canCreateInstance()) {
    SoDebugError::post("SoDB::createGlobalField", "Cannot create a global field \"%s\" of type \"%s\"",
                       name.getString(), type.getName().getString());
    return nullptr;
  }
  Database& d = db();
  std::lock_guard<std::mutex> lock(d.fieldsMutex);
  auto it = d.globalFields.find(name);
  if (it != d.globalFields.end()) return it->second->getTypeId() == type ? it->second.get() : nullptr;
  std::unique_ptr<SoField> field(static_cast<SoField*>(type.createInstance()));
  SoField* result = field.get();
  d.globalFields.emplace(name, std::move(field));
  return result;
}

SoField* SoDB::getGlobalField(const SbName& name) {
  Database& d = db();
  std::lock_guard<std::mutex> lock(d.fieldsMutex);
  auto it = d.globalFields.find(name);
  return it == d.globalFields.end() ? nullptr : it->second.get();
}

// An empty new name deletes the field; a field already using the new name
// is replaced.
void SoDB::renameGlobalField(const SbName& oldName, const SbName& newName) {
  Database& d = db();
  std::unique_ptr<SoField> field;
  std::unique_ptr<SoField> replaced;
  {
    std::lock_guard<std::mutex> lock(d.fieldsMutex);
    auto it = d.globalFields.find(oldName);
    if (it == d.globalFields.end() || oldName == newName) return;
    field = std::move(it->second);
    d.globalFields.erase(it);
    if (!!newName) {
      auto& slot = d.globalFields[newName];
      replaced = std::move(slot);
      slot = std::move(field);
    }
  }
  // Fields deleted outside the lock: their auditors may look up global fields.
}

void SoDB::enableRealTimeSensor(bool enable) {
  Database& d = db();
  std::lock_guard<std::mutex> lock(d.realTimeMutex);
  d.realTimeEnabled = enable;
  if (!d.realTimeSensor) return;  // applied by init()
  if (enable && !d.realTimeSensor->isScheduled())
    d.realTimeSensor->schedule();
  else if (!enable)
    d.realTimeSensor->unschedule();
}

bool SoDB::isRealTimeSensorEnabled() {
  Database& d = db();
  std::lock_guard<std::mutex> lock(d.realTimeMutex);
  return d.realTimeEnabled;
}

SoTimerSensor* SoDB::getRealTimeSensor() {
  Database& d = db();
  std::lock_guard<std::mutex> lock(d.realTimeMutex);
  return d.realTimeSensor.get();
}

void SoDB::restoreRealTimeSensorCB() {
  Database& d = db();
  std::lock_guard<std::mutex> lock(d.realTimeMutex);
  if (d.realTimeSensor) d.realTimeSensor->setFunction(&realTimeSensorCB, nullptr);
}

void SoDB::setRealTimeInterval(const SbTime& interval) {
  Database& d = db();
  std::lock_guard<std::mutex> lock(d.realTimeMutex);
  d.realTimeInterval = interval;
  if (d.realTimeSensor) d.realTimeSensor->setInterval(interval);  // reschedules if scheduled
}

const SbTime& SoDB::getRealTimeInterval() {
  // A per-thread copy, so the reference is never torn by a concurrent setter.
  thread_local SbTime value;
  Database& d = db();
  std::lock_guard<std::mutex> lock(d.realTimeMutex);
  value = d.realTimeInterval;
  return value;
}

void SoDB::setDelaySensorTimeout(const SbTime& t) {
  db().delaySensorTimeout = t;
  // The manager moves an armed timeout to the new deadline.
  if (SoSensorManager* manager = getSensorManager()) manager->setDelaySensorTimeout(t);
}

const SbTime& SoDB::getDelaySensorTimeout() {
  // A per-thread copy, as for the real-time interval.
  thread_local SbTime value;
  value = db().delaySensorTimeout.load();
  return value;
}

void SoDB::resetMainThreadId() { db().mainThread = std::this_thread::get_id(); }

bool SoDB::isMainThread() { return db().mainThread.load() == std::this_thread::get_id(); }

void SoDB::processEvents() {
  SoSensorManager* manager = getSensorManager();
  if (!manager) return;
  manager->processTimerQueue();
  manager->processDelayQueue(true);
}

void SoDB::readlock() { db().appLock.lock_shared(); }
void SoDB::readunlock() { db().appLock.unlock_shared(); }
void SoDB::writelock() { db().appLock.lock(); }
void SoDB::writeunlock() { db().appLock.unlock(); }

void SoDB::setTuneLuxAllowed(bool allowed) { db().tuneLuxAllowed = allowed; }
bool SoDB::getTuneLuxAllowed() { return db().tuneLuxAllowed; }

void SoDB::setNumRenderCaches(int howMany) { db().numRenderCaches = howMany < 0 ? 0 : howMany; }
int SoDB::getNumRenderCaches() { return db().numRenderCaches; }

void SoDB::setRenderCacheMode(RenderCacheModes mode) {
  // A value from outside the enumeration (a cast integer) keeps the setting.
  if (mode == AUTORENDERCACHE || mode == COMPILE || mode == COMPILEANDEXECUTE) db().renderCacheMode = mode;
}
SoDB::RenderCacheModes SoDB::getRenderCacheMode() { return db().renderCacheMode; }

void SoDB::prioritizeChildrenCaching(bool flag) { db().prioritizedChildrenCaching = flag; }
bool SoDB::isPrioritizedChildrenCaching() { return db().prioritizedChildrenCaching; }
