// A line that takes AT commands and gives the phone's replies.
//
// The phonebook and message commands talk through this interface, so they know no port. A command
// and its reply belong together: send, then read at once. Nothing read earlier is carried over into
// the next reply, and nothing is thrown away between commands.
#pragma once

#include "codecs/Text.h"

namespace tessarin {

class ATLine {
 public:
  virtual ~ATLine() = default;

  // Sends `command` and a carriage return, one byte a unit ("?" for one above U+00FF). True when
  // all bytes were written.
  [[nodiscard]] virtual bool SendATCommand(TextView command) = 0;

  // Sends `text` as it stands, one byte a unit and no terminator: the PDU of a message and the
  // Ctrl-Z behind it. True when all bytes were written.
  [[nodiscard]] virtual bool SendATRaw(TextView text) = 0;

  // Sends `command` and a carriage return in UTF-8, for commands that hold a name. True when all
  // bytes were written.
  [[nodiscard]] virtual bool SendATText(TextView command) = 0;

  // The reply up to and with its end, one unit a byte. The end, upper and lower case being equal,
  // is one of CR LF "CONNECT" CR LF, CR LF "OK" CR LF, CR LF ">" and CR LF "+CMS ERROR:".
  // "ERROR" when none of them came within 100 polls of 100 ms, about ten seconds. A phone that
  // refuses a command with a plain "ERROR" costs the whole time and gives the same "ERROR", so
  // callers look for "OK" in the answer.
  virtual Text ReadATResponse() = 0;

  // True when the time of the last ReadATResponse ran out before any result code came, a plain
  // "ERROR" being one: the phone still owes that reply, and it may arrive instead of the next.
  virtual bool IsReplyOwed() const { return false; }

  // The reply up to and with CR LF "OK" CR LF or CR LF "+CMS ERROR:", one unit a byte. Waits
  // without limit: the network may take its time over a message that is being sent.
  virtual Text ReadATResponseWait() = 0;

  // The reply up to and with "OK" CR LF or CR LF "+CMS ERROR:", decoded from UTF-8, with a U+0000
  // behind it. "ERROR" on time-out, which is that of ReadATResponse.
  virtual Text ReadLongResponse() = 0;
};

}  // namespace tessarin
