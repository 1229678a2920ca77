#pragma once

// The signals by which the system ends a program, as events of the event loop.

#include <functional>
#include <memory>

class QSocketNotifier;

namespace tessarin {

// Catches SIGTERM, SIGINT and SIGHUP while it lives, one object at a time. `requestEnd` is called
// on the user interface thread, also while something waits and yields to the screen.
class EndSignals {
 public:
  explicit EndSignals(std::function<void()> requestEnd);
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

 private:
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace tessarin
