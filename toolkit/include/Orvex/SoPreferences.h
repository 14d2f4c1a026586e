#pragma once
#include <Orvex/SbString.h>

// Named settings of the toolkit. A value set through setValue() wins over an
// environment variable of the same name, which wins over the caller's default.
class SoPreferences {
 public:
  // The value, or nullptr when neither setValue() nor the environment gives
  // one. The returned text stays valid for the life of the process.
  static const char* getValue(const char* name);
  // Sets (or, with a null value, clears) the value for this process. The
  // process environment is left unchanged.
  static void setValue(const char* name, const char* value);

  // Typed reads: "1", "TRUE", "true", "ON", "YES" are true; "0", "FALSE",
  // "OFF", "NO" false; anything else, or no value, gives the default.
  static bool getBool(const char* name, bool defaultValue);
  static int getInt(const char* name, int defaultValue);
  static float getFloat(const char* name, float defaultValue);
  static double getDouble(const char* name, double defaultValue);
  static SbString getString(const char* name, const SbString& defaultValue);

  static void setBool(const char* name, bool value);
  static void setInt(const char* name, int value);
  static void setFloat(const char* name, float value);
  static void setDouble(const char* name, double value);
  static void setString(const char* name, const SbString& value);
};
