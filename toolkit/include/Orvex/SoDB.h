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
class SoSystemTimer;

// Called when a file with a registered header is opened (pre) and when it is
// closed (post), with the data given at registration and the input.
typedef void SoDBHeaderCB(void* userData, SoInput* in);

// The scene database: initialisation of the core, the sensor manager, global
// fields, routes and converters, plug-ins, the real-time clock, render-cache
// settings, the application lock, and reading scene files. Every member may
// be called from any thread.
class SoDB {
 public:
  // Initialises the core classes, the sensor manager and the "realTime"
  // global field. Idempotent.
  static void init();
  static bool isInitialized();
  static const char* getVersion();

  static SoSensorManager* getSensorManager();

  // Global fields: created once by name; a second create with the same name
  // and type answers the existing field, with another type nullptr. A type
  // that is no creatable field type is posted as a debug error.
  static SoField* createGlobalField(const SbName& name, SoType type);
  // The global field of that name, or nullptr.
  static SoField* getGlobalField(const SbName& name);
  // Gives the field another name; an empty new name deletes it, and a field
  // that had the new name is deleted in its favour.
  static void renameGlobalField(const SbName& oldName, const SbName& newName);

  // The real-time sensor updates the "realTime" global field (an SoSFTime)
  // with the time of day every real-time interval while enabled.
  static void enableRealTimeSensor(bool enable);
  static bool isRealTimeSensorEnabled();
  static SoTimerSensor* getRealTimeSensor();
  // Gives the real-time sensor back its own function (after a caller has
  // replaced or removed it).
  static void restoreRealTimeSensorCB();
  // The period of the real-time sensor (default 1/12 s).
  static void setRealTimeInterval(const SbTime& interval);
  static const SbTime& getRealTimeInterval();

  // How long a delay sensor may wait for an idle moment before the timer
  // queue fires it anyway (default 1/12 s; zero or less: no limit).
  static void setDelaySensorTimeout(const SbTime& t);
  static const SbTime& getDelaySensorTimeout();

  // The thread that counts as the toolkit's main thread (sensor processing,
  // notification): the one that ran init(), or the caller of resetMainThreadId().
  static void resetMainThreadId();
  static bool isMainThread();
  // Always true: the toolkit is built and initialised for threads (the
  // sensor manager, the type and name tables and the database's registries
  // may be used from any thread), so no separate thread initialisation
  // exists. Scene graphs themselves still need the application's locking,
  // for which readlock() and writelock() are meant.
  static bool isMultiThread() { return true; }
  // The time of day, as the real-time field holds it.
  static SbTime getCurrentTime() { return SbTime::getTimeOfDay(); }
  // One pass of event processing, as an idle moment of an event loop does:
  // fires the timer sensors that are due, then the delay queue (idle-only
  // sensors included). Sensors scheduled by the firing sensors wait for the
  // next pass.
  static void processEvents();

  // A timer of the host system that drives the timer queue: once set, the
  // database gives it a task and arms it whenever the earliest timer sensor
  // changes (see SoSystemTimer), so the timer sensors fire without the
  // application processing the queue. The database keeps a reference to the
  // timer while it is set. Setting another timer, or null, stops the
  // previous one, takes its task back and releases it; with null the timer
  // queue is again processed only by the application (processEvents(), or
  // the sensor manager's processTimerQueue()).
  static void setSystemTimer(SoSystemTimer* timer);
  static SoSystemTimer* getSystemTimer();

  // A process-wide reader-writer lock for applications that share scene
  // graphs between threads: any number of readers, or one writer. Each
  // lock call must be paired with its unlock call on the same thread; the
  // lock is not recursive (a thread holding it must not take it again).
  static void readlock();
  static void readunlock();
  static void writelock();
  static void writeunlock();

  // Whether the interactive scene-tuning tool may attach to the
  // application. Kept for that tool; the toolkit itself does not read it.
  // Default true.
  static void setTuneLuxAllowed(bool allowed);
  static bool getTuneLuxAllowed();

  // Render-cache settings, kept for the renderer: how many render caches a
  // separator may keep (default 2), how they are built, and whether
  // children are cached before their parents. Negative counts are taken
  // as 0 (no render caching); a mode that is none of RenderCacheModes
  // keeps the current one.
  enum RenderCacheModes {
    AUTORENDERCACHE,    // the renderer decides which separators to cache (default)
    COMPILE,            // caches are built in a separate pass, then used
    COMPILEANDEXECUTE   // caches are built while the scene is drawn
  };
  static void setNumRenderCaches(int howMany);
  static int getNumRenderCaches();
  static void setRenderCacheMode(RenderCacheModes mode);
  static RenderCacheModes getRenderCacheMode();
  static void prioritizeChildrenCaching(bool flag);
  static bool isPrioritizedChildrenCaching();

  // Routes: connects the field named eventInName of toNode from the field
  // named eventOutName of fromNode, so that each change of the latter is
  // passed to the former (converted through text when the types differ).
  // Several routes may lead into one field. Null nodes, unknown field
  // names and a route of a field to itself are posted as debug errors.
  static void createRoute(SoNode* fromNode, const char* eventOutName, SoNode* toNode, const char* eventInName);
  // Disconnects what createRoute() connected; a route that does not exist
  // is posted as a debug error.
  static void removeRoute(SoNode* fromNode, const char* eventOutName, SoNode* toNode, const char* eventInName);

  // Converters: engines registered to convert values of one field type to
  // another. Registering a pair again replaces its engine. Types that are
  // not field types, or an engine type that is not an engine, are posted
  // as debug errors and not registered.
  static void addConverter(SoType fromField, SoType toField, SoType converterEngine);
  // The engine registered for the pair, or the bad type when there is none.
  static SoType getConverter(SoType fromField, SoType toField);
  static void removeConverter(SoType fromField, SoType toField);

  // Plug-ins: shared objects that register classes when they are loaded.
  // addPlugin() loads the file (a relative name is searched through the
  // scene files' directory list) and records it; a file that cannot be
  // loaded is posted as a debug error and not recorded. Adding a recorded
  // plug-in again does nothing.
  static void addPlugin(const char* path);
  // Forgets the plug-in. Its library stays loaded, because the classes it
  // registered keep running its code; an unknown name is posted as a debug
  // error.
  static void removePlugin(const char* path);
  // Records the directory and loads each shared object ("*.so") in it, in
  // name order, as addPlugin() does. A directory that cannot be listed is
  // posted as a debug error and not recorded.
  static void addPluginsDirectory(const char* dir);
  // Forgets the directory (its plug-ins stay loaded and recorded).
  static void removePluginsDirectory(const char* dir);

  // Reads the next top-level object of the input. At the end of the input
  // the result is null and the call succeeds; after a read error (posted
  // as SoReadError) it fails and nothing that was read stays referenced.
  // The object is returned unreferenced: ref() it to keep it.
  static bool read(SoInput* in, SoNode*& rootNode);
  static bool read(SoInput* in, SoPath*& path);
  static bool read(SoInput* in, SoBase*& base);
  // Reads the next top-level node: the node (unreferenced), or null at the
  // end of the input and after a read error.
  static SoNode* readNode(SoInput* in);
  // Reads every top-level node until the end of the input, under one
  // unreferenced SoSeparator (the node itself when the file holds exactly
  // one separator); nullptr after a read error.
  static SoSeparator* readAll(SoInput* in);

  // Global fields in ASCII scene files: at the top level, between nodes, a
  // block "GlobalField { SFTime name value }" creates (or finds) the global
  // field of that type and name and sets its value. A name already used by
  // a global field of another type is a read error.

  // Scene-file headers. A header names the format (ASCII or binary) and the
  // version; the toolkit registers "#Orvex V1.0 ascii" and "#Orvex V1.0
  // binary" at start-up, and the reader accepts every registered header.
  // The pre callback of a header runs when a file with that header is
  // opened, before anything is read from it; the post callback when the
  // file is closed (closeFile(), another file opened, the input destroyed,
  // or a pushed file read to its end). Both get the data given at
  // registration and the input, on which the file is the current one (its
  // name, header and version) while they run.
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
