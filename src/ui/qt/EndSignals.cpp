#include "ui/qt/EndSignals.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>

namespace tessarin {

namespace {

constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP};

// A signal handler can do no more than write a byte; the pipe is the one thing that it must find.
std::array<int, 2> pipeEnds = {-1, -1};

void Caught(int) {
  const char byte = 0;
  [[maybe_unused]] const auto written = write(pipeEnds[1], &byte, 1);
}

void Handle(void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int number : kSignals) sigaction(number, &action, nullptr);
}

}  // namespace

EndSignals::EndSignals(std::function<void()> requestEnd) {
  if (pipe2(pipeEnds.data(), O_CLOEXEC) != 0) return;
  notifier_ = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [requestEnd = std::move(requestEnd)] {
                     char byte = 0;
                     [[maybe_unused]] const auto taken = read(pipeEnds[0], &byte, 1);
                     requestEnd();
                   });
  Handle(Caught);
}

EndSignals::~EndSignals() {
  Handle(SIG_DFL);
  for (int& end : pipeEnds) {
    if (end >= 0) close(end);
    end = -1;
  }
}

}  // namespace tessarin
