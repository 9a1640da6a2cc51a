#include "companions/devices/streams/ticker.h"

#include <condition_variable>
#include <mutex>

namespace mavrin2::devices {

Ticker::Ticker(Step step)
    : thread_([step = std::move(step)](const std::stop_token& stop) {
          std::mutex mutex;
          std::condition_variable_any ended;
          while (!stop.stop_requested()) {
              const auto pause = step();
              if (!pause) return;
              std::unique_lock lock(mutex);
              ended.wait_for(lock, stop, *pause, [] { return false; });
          }
      }) {}

}  // namespace mavrin2::devices
