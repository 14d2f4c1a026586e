#pragma once
#include <Orvex/SbString.h>
#include <Orvex/sensors/SoTimerSensor.h>

#include <memory>
#include <mutex>
#include <vector>

// Watches files: each time it fires on its timer interval (one second unless
// changed) it compares every watched file's modification time, size and
// existence with what it saw last, and calls its function once per file
// that changed (created, modified or removed), in the order the files were
// added. getFilename() names that file while the function runs.
class SoFileSensor : public SoTimerSensor {
 public:
  SoFileSensor();
  SoFileSensor(SoSensorCB* func, void* data);
  ~SoFileSensor() override;

  // Starts watching `filename` from its present state; a file already
  // watched is not added twice. The file need not exist yet.
  void addFile(const SbString& filename);
  void removeFile(const SbString& filename);
  void clearFiles();
  int getNumFiles() const;

  // The file whose change made the sensor fire last (empty before).
  SbString getFilename() const;

  void trigger() override;

 private:
  struct FileState;
  // Names of the files that changed since the last look; updates their state.
  std::vector<SbString> pollChanges();
  bool isWatched(const SbString& filename) const;

  mutable std::mutex m_filesMutex;  // the two members below
  std::vector<FileState> m_files;
  SbString m_filename;
  // Cleared by the destructor: lets trigger() notice that the function
  // deleted the sensor and stop touching it.
  std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};
