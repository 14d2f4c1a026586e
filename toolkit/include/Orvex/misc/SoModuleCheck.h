#pragma once
#include <Orvex/SbBase.h>
#include <string>
#include <vector>

// Interface version of the public toolkit headers. Code compiled against the
// headers records the value it saw; the library compares it with its own.
#define ORVEX_INTERFACE_VERSION 1

// A registry of the binding modules built on the toolkit. Each compiled
// binding unit (one per wrapped class) registers one record when its library
// is loaded, naming its module and the class it wraps and carrying the
// interface version it was compiled against. The toolkit can then list what is
// loaded and find units built against another version of its headers.
//
// Records are registered from static initialisers, so registration only
// stores the record; nothing is reported until check() is called.
class SoModuleCheck {
 public:
  struct Record {
    std::string module;     // the library that holds the unit ("orvexjava")
    std::string className;  // the class it wraps ("com.orvexa.orvex.SbVec3f")
    int interfaceVersion;   // ORVEX_INTERFACE_VERSION seen when compiling
  };

  // Registers on construction, unregisters on destruction; meant to be a
  // static object of the unit it describes.
  SoModuleCheck(const char* module, const char* className,
                int interfaceVersion = ORVEX_INTERFACE_VERSION);
  ~SoModuleCheck();
  SoModuleCheck(const SoModuleCheck&) = delete;
  SoModuleCheck& operator=(const SoModuleCheck&) = delete;

  // The interface version this toolkit library was built with.
  static int getInterfaceVersion();
  // Snapshot of every registered record, in registration order.
  static std::vector<Record> getRecords();
  static int getNumRecords();
  // Number of records registered by `module`.
  static int getNumRecords(const char* module);
  // True when a unit wrapping `className` is registered.
  static bool isRegistered(const char* className);
  // Posts one debug error per record whose interface version differs from
  // the library's; returns how many there were.
  static int check();

 private:
  int m_id;
};
