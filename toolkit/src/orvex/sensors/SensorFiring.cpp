#include "SensorFiring.h"

#include <Orvex/sensors/SoSensor.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace {

// Few sensors fire or die at the same moment: plain vectors do.
std::mutex g_mutex;
std::condition_variable g_ended;
std::vector<std::pair<const SoSensor*, std::thread::id>> g_firing;
std::vector<const SoSensor*> g_retiring;

bool firedElsewhere(const SoSensor* sensor) {
  const std::thread::id self = std::this_thread::get_id();
  return std::any_of(g_firing.begin(), g_firing.end(),
                     [&](const auto& f) { return f.first == sensor && f.second != self; });
}

}  // namespace

namespace SoSensorFiring {

void begin(const SoSensor* sensor) {
  const std::lock_guard<std::mutex> lock(g_mutex);
  g_firing.emplace_back(sensor, std::this_thread::get_id());
}

void end(const SoSensor* sensor) {
  {
    const std::lock_guard<std::mutex> lock(g_mutex);
    const auto entry = std::find(g_firing.begin(), g_firing.end(), std::make_pair(sensor, std::this_thread::get_id()));
    if (entry != g_firing.end()) g_firing.erase(entry);
  }
  g_ended.notify_all();
}

bool isRetiring(const SoSensor* sensor) {
  const std::lock_guard<std::mutex> lock(g_mutex);
  return std::find(g_retiring.begin(), g_retiring.end(), sensor) != g_retiring.end();
}

void retire(SoSensor* sensor) {
  {
    const std::lock_guard<std::mutex> lock(g_mutex);
    if (std::find(g_retiring.begin(), g_retiring.end(), sensor) != g_retiring.end()) return;
    g_retiring.push_back(sensor);
  }
  // From here on no manager queues it again; once it is off its queue, only
  // a firing already under way can still reach it.
  sensor->unschedule();
  std::unique_lock<std::mutex> lock(g_mutex);
  g_ended.wait(lock, [&] { return !firedElsewhere(sensor); });
}

void forget(const SoSensor* sensor) {
  const std::lock_guard<std::mutex> lock(g_mutex);
  g_retiring.erase(std::remove(g_retiring.begin(), g_retiring.end(), sensor), g_retiring.end());
}

}  // namespace SoSensorFiring
