#include <Orvex/sensors/SoFileSensor.h>
#include "SensorFiring.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

// What the sensor saw of a file at its last look.
struct SoFileSensor::FileState {
  SbString name;
  bool exists = false;
  fs::file_time_type modified{};
  uintmax_t size = 0;

  // Looks at the file now; answers whether anything differs from before.
  bool refresh() {
    std::error_code ec;
    const fs::path path(name.toStdString());
    const bool nowExists = fs::is_regular_file(path, ec);
    fs::file_time_type nowModified{};
    uintmax_t nowSize = 0;
    if (nowExists) {
      nowModified = fs::last_write_time(path, ec);
      if (ec) nowModified = {};
      nowSize = fs::file_size(path, ec);
      if (ec) nowSize = 0;
    }
    const bool changed = nowExists != exists || nowModified != modified || nowSize != size;
    exists = nowExists;
    modified = nowModified;
    size = nowSize;
    return changed;
  }
};

SoFileSensor::SoFileSensor() { setInterval(SbTime(1.0)); }

SoFileSensor::SoFileSensor(SoSensorCB* func, void* data) : SoTimerSensor(func, data) { setInterval(SbTime(1.0)); }

SoFileSensor::~SoFileSensor() {
  SoSensorFiring::retire(this);
  *m_alive = false;
  unschedule();
}

void SoFileSensor::addFile(const SbString& filename) {
  std::lock_guard<std::mutex> lock(m_filesMutex);
  auto same = [&](const FileState& f) { return f.name == filename; };
  if (std::any_of(m_files.begin(), m_files.end(), same)) return;
  FileState state;
  state.name = filename;
  state.refresh();  // the baseline: later looks report differences from it
  m_files.push_back(std::move(state));
}

void SoFileSensor::removeFile(const SbString& filename) {
  std::lock_guard<std::mutex> lock(m_filesMutex);
  m_files.erase(std::remove_if(m_files.begin(), m_files.end(), [&](const FileState& f) { return f.name == filename; }),
                m_files.end());
}

void SoFileSensor::clearFiles() {
  std::lock_guard<std::mutex> lock(m_filesMutex);
  m_files.clear();
}

int SoFileSensor::getNumFiles() const {
  std::lock_guard<std::mutex> lock(m_filesMutex);
  return static_cast<int>(m_files.size());
}

SbString SoFileSensor::getFilename() const {
  std::lock_guard<std::mutex> lock(m_filesMutex);
  return m_filename;
}

bool SoFileSensor::isWatched(const SbString& filename) const {
  std::lock_guard<std::mutex> lock(m_filesMutex);
  return std::any_of(m_files.begin(), m_files.end(), [&](const FileState& f) { return f.name == filename; });
}

std::vector<SbString> SoFileSensor::pollChanges() {
  std::lock_guard<std::mutex> lock(m_filesMutex);
  std::vector<SbString> changed;
  for (FileState& f : m_files)
    if (f.refresh()) changed.push_back(f.name);
  return changed;
}

void SoFileSensor::trigger() {
  scheduleNextTick();
  const std::shared_ptr<bool> alive = m_alive;
  for (const SbString& name : pollChanges()) {
    // The function may have stopped watching this file, or deleted the sensor.
    if (!isWatched(name)) continue;
    {
      std::lock_guard<std::mutex> lock(m_filesMutex);
      m_filename = name;
    }
    SoSensor::trigger();
    if (!*alive) return;
  }
}
