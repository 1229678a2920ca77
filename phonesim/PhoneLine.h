#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>

#include "phonesim/Behaviour.h"
#include "phonesim/Outlet.h"
#include "phonesim/Phone.h"
#include "phonesim/Pty.h"

namespace phonesim {

/// A phone on a pseudo terminal: moves the bytes between them, in time. The port is there from the
/// making of this object to its end.
class PhoneLine {
 public:
  enum class End { Stopped, Dropped };

  /// Told every run of bytes, on the thread that runs the line.
  using Listener = std::function<void(bool fromPhone, ByteView)>;

  /// `phone` and `settings` must outlive this object. Throws `std::system_error` as `Pty` does.
  PhoneLine(Phone& phone, Settings& settings, const std::filesystem::path& link);

  void SetListener(Listener listener) { listener_ = std::move(listener); }

  /// Serves the line until `stop` becomes readable, or until the phone hangs up by itself after
  /// the bytes it was told to send; those the client has read by then.
  End Run(int stop);

  /// Waits until the client has read what was sent, at most half a second.
  void AwaitRead() const;

 private:
  using Clock = std::chrono::steady_clock;

  std::optional<Clock::time_point> NextMoment() const;
  Bytes Read();
  void Receive(ByteView bytes);
  void Forget();
  void QueueOutputs();
  bool SendDue();
  bool Send(ByteView bytes);

  Phone& phone_;
  Settings& settings_;
  Pty pty_;
  Outlet outlet_;
  Bytes unsent_;  ///< due, but the line was full
  Clock::time_point lastRead_;
  Clock::time_point lastSent_;
  Listener listener_;
};

}  // namespace phonesim
