#pragma once

#include <chrono>
#include <filesystem>

#include "phonesim/Bytes.h"

namespace phonesim {

/// A pseudo terminal whose other end stands as a serial port at a path of one's choice.
///
/// The port stays usable while clients come and go: one descriptor of it is held open here, so
/// that the line never reports an end of file. Exclusive use that a client asked for ends a moment
/// after that client. Destroying the object takes the port away; a client that still has it open
/// reads the end of file or gets an I/O error.
class Pty {
 public:
  /// Makes the terminal, raw, and links it at `link`, replacing what stood there in one step.
  /// Throws `std::system_error` when the system has none to give or the link cannot be made.
  explicit Pty(std::filesystem::path link);
  ~Pty();
  Pty(const Pty&) = delete;
  Pty& operator=(const Pty&) = delete;

  /// For `poll`: readable when the client has written.
  int Line() const { return line_; }

  /// For `poll`: readable when a client has opened or closed the port; -1 when nobody can tell.
  int Watch() const { return watch_; }

  /// What the client has written, at most `buffer.size()` bytes, without waiting.
  std::size_t Read(std::span<std::uint8_t> buffer);

  /// Writes what the line takes at this moment and returns how much that was.
  std::size_t Write(ByteView bytes);

  /// Reads the news of `Watch`. True when the port was closed by its last client since the last
  /// call, even if it has a new one by now.
  bool LastClientGone();

  /// True while a client has the port open.
  bool HasClient() const { return clients_ > 0; }

  /// Throws away what was sent and nobody has read, and ends exclusive use.
  void Forget();

  /// Waits until the client has read all that was sent, at most for `limit`. Bytes written just
  /// now are on their way for a moment; `arrival` is how long to wait for them to be seen.
  void AwaitRead(std::chrono::milliseconds arrival, std::chrono::milliseconds limit) const;

 private:
  void Open();
  void MakeLink();
  void Close();

  std::filesystem::path link_;
  std::filesystem::path port_;
  int line_ = -1;
  int held_ = -1;
  int watch_ = -1;
  int clients_ = 0;
};

}  // namespace phonesim
