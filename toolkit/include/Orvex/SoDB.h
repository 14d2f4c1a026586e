#pragma once
#include <Orvex/SbTime.h>
#include <Orvex/SoType.h>

class SoBase;
class SoField;
class SoInput;
class SoNode;
class SoPath;
class SoSeparator;
class SoSensor;
class SoTimerSensor;
class SoSensorManager;

// Called when a file with a registered header is opened (pre) and when it is
// closed (post).
typedef void SoDBHeaderCB(void* userData, SoInput* in);

// The scene database: initialisation of the core, the sensor manager, global
// fields, the real-time clock, and reading scene files.
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

  // Reads the next top-level object of the input. At the end of the input
  // the result is null and the call succeeds; after a read error (posted
  // as SoReadError) it fails and nothing that was read stays referenced.
  // The object is returned unreferenced: ref() it to keep it.
  static bool read(SoInput* in, SoNode*& rootNode);
  static bool read(SoInput* in, SoPath*& path);
  static bool read(SoInput* in, SoBase*& base);
  // Reads every top-level node until the end of the input, under one
  // unreferenced SoSeparator (the node itself when the file holds exactly
  // one separator); nullptr after a read error.
  static SoSeparator* readAll(SoInput* in);

  // Scene-file headers. A header names the format (ASCII or binary) and the
  // version; the toolkit registers "#Orvex V1.0 ascii" and "#Orvex V1.0 binary".
  static bool isValidHeader(const char* testString);
  static bool registerHeader(const SbString& headerString, bool isBinary, float ivVersion,
                             SoDBHeaderCB* preCB = nullptr, SoDBHeaderCB* postCB = nullptr,
                             void* userData = nullptr);
  static bool getHeaderData(const SbString& headerString, bool& isBinary, float& ivVersion,
                            SoDBHeaderCB*& preCB, SoDBHeaderCB*& postCB, void*& userData,
                            bool substringOK = false);
  static bool getHeaderData(const SbString& headerString, bool& isBinary, float& ivVersion);
  static int getNumHeaders();
  static SbString getHeaderString(int whichHeader);
};
