#pragma once
#include <Orvex/SbTime.h>
#include <Orvex/SoType.h>

class SoField;
class SoSensor;
class SoTimerSensor;
class SoSensorManager;

// The scene database: initialisation of the core, the sensor manager, global
// fields and the real-time clock. Scene reading lives with the scene-graph core.
class SoDB {
 public:
  // Initialises the core classes, the sensor manager and the "realTime"
  // global field. Idempotent.
  static void init();
  static bool isInitialized();
  static const char* getVersion();

  static SoSensorManager* getSensorManager();

  // Global fields: created once by name; a second create with the same name
  // and type answers the existing field, with another type nullptr.
  static SoField* createGlobalField(const SbName& name, SoType type);
  static SoField* getGlobalField(const SbName& name);
  static void renameGlobalField(const SbName& oldName, const SbName& newName);

  // The real-time sensor updates the "realTime" global field (an SoSFTime)
  // with the time of day every real-time interval while enabled.
  static void enableRealTimeSensor(bool enable);
  static bool isRealTimeSensorEnabled();
  static SoTimerSensor* getRealTimeSensor();
  // Gives the real-time sensor back its own function (after a caller has
  // replaced or removed it).
  static void restoreRealTimeSensorCB();
  static void setRealTimeInterval(const SbTime& interval);
  static const SbTime& getRealTimeInterval();

  static void setDelaySensorTimeout(const SbTime& t);
  static const SbTime& getDelaySensorTimeout();

  // The thread that counts as the toolkit's main thread (sensor processing,
  // notification): the one that ran init(), or the caller of resetMainThreadId().
  static void resetMainThreadId();
  static bool isMainThread();
  static bool isMultiThread() { return true; }
  static SbTime getCurrentTime() { return SbTime::getTimeOfDay(); }
};
