#include <Orvex/SoPreferences.h>

#include <Orvex/SbName.h>

#include <cerrno>
#include <cstdlib>
#include <mutex>
#include <strings.h>
#include <unordered_map>

namespace {

// Values set by the program; they shadow the environment.
struct PreferenceStore {
  std::mutex mutex;
  std::unordered_map<std::string, std::string> values;
};

PreferenceStore& store() {
  // Never destroyed: preferences are read by code running at exit.
  static PreferenceStore* instance = new PreferenceStore;
  return *instance;
}

bool equalsNoCase(const char* a, const char* b) { return strcasecmp(a, b) == 0; }

}  // namespace

const char* SoPreferences::getValue(const char* name) {
  if (!name || !*name) return nullptr;
  {
    PreferenceStore& s = store();
    std::lock_guard<std::mutex> lock(s.mutex);
    auto it = s.values.find(name);
    // Interned, so the text stays valid when the value changes later.
    if (it != s.values.end()) return SbName(it->second).getString();
  }
  const char* env = std::getenv(name);
  return env ? SbName(env).getString() : nullptr;
}

void SoPreferences::setValue(const char* name, const char* value) {
  if (!name || !*name) return;
  PreferenceStore& s = store();
  std::lock_guard<std::mutex> lock(s.mutex);
  if (value)
    s.values[name] = value;
  else
    s.values.erase(name);
}

bool SoPreferences::getBool(const char* name, bool defaultValue) {
  const char* v = getValue(name);
  if (!v) return defaultValue;
  for (const char* t : {"1", "TRUE", "ON", "YES"})
    if (equalsNoCase(v, t)) return true;
  for (const char* f : {"0", "FALSE", "OFF", "NO"})
    if (equalsNoCase(v, f)) return false;
  return defaultValue;
}

int SoPreferences::getInt(const char* name, int defaultValue) {
  const char* v = getValue(name);
  if (!v || !*v) return defaultValue;
  char* end = nullptr;
  errno = 0;
  const long n = std::strtol(v, &end, 10);
  if (*end != '\0' || errno == ERANGE || n < INT32_MIN || n > INT32_MAX) return defaultValue;
  return static_cast<int>(n);
}

float SoPreferences::getFloat(const char* name, float defaultValue) {
  return static_cast<float>(getDouble(name, defaultValue));
}

double SoPreferences::getDouble(const char* name, double defaultValue) {
  const char* v = getValue(name);
  if (!v || !*v) return defaultValue;
  char* end = nullptr;
  const double d = std::strtod(v, &end);
  return *end == '\0' ? d : defaultValue;
}

SbString SoPreferences::getString(const char* name, const SbString& defaultValue) {
  const char* v = getValue(name);
  return v ? SbString(v) : defaultValue;
}

void SoPreferences::setBool(const char* name, bool value) { setValue(name, value ? "TRUE" : "FALSE"); }

void SoPreferences::setInt(const char* name, int value) { setValue(name, SbString(value).getString()); }

void SoPreferences::setFloat(const char* name, float value) {
  setValue(name, SbString::sprintf("%.9g", static_cast<double>(value)).getString());
}

void SoPreferences::setDouble(const char* name, double value) {
  setValue(name, SbString::sprintf("%.17g", value).getString());
}

void SoPreferences::setString(const char* name, const SbString& value) { setValue(name, value.getString()); }
