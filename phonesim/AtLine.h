#pragma once

#include <string>

#include "phonesim/Bytes.h"

namespace phonesim {

/// Collects command lines from the bytes of AT mode, as V.250 reads them: all before "AT" is passed
/// over, a carriage return ends the line, a backspace takes a character back.
///
/// The three bytes 81 00 03, an OBEX Disconnect that arrives although the phone is in AT mode, are
/// found wherever they stand and throw away the line they interrupt.
class AtLine {
 public:
  enum class Event { None, Line, Disconnect, Body, Cancelled, BrokenOff };

  /// After `Line`, `TakeLine` has the command; after `Disconnect` everything is empty again.
  Event Take(std::uint8_t byte);

  /// What follows is the body of the last command: all up to 1A, which is `Body`, or 1B, which is
  /// `Cancelled`. A carriage return is `BrokenOff`, as bodies are single lines. Outside a body 1B
  /// means nothing.
  void AwaitBody() { body_ = true; }

  /// The command from its "AT" up to, not including, the carriage return; or the body.
  std::string TakeLine();

  /// The bytes taken since the last call that an echoing phone sends back.
  Bytes TakeEcho();

  /// The bytes taken since the last call that belong to no command.
  Bytes TakeStray();

  /// True while part of a command, or of a Disconnect, has come.
  bool Started() const { return body_ || !line_.empty() || matched_ > 0; }

  void Clear();

 private:
  Event TakeBody(std::uint8_t byte);
  Event TakeText(std::uint8_t byte);
  void TakePrefix(std::uint8_t byte);

  bool body_ = false;
  std::size_t matched_ = 0;  ///< how much of 81 00 03 is held back
  std::string line_;
  Bytes echo_;
  Bytes stray_;
};

}  // namespace phonesim
