#pragma once

// Why a port that exists was passed over, for the search window to say in words.

#include <string>

namespace tessarin {

struct PortTrouble {
  enum class Kind { None, NoPermission, Busy, NoTerminal, InputOutput, Silent };
  Kind kind = Kind::None;
  std::string device;  // the device's path
  std::string group;   // NoPermission: the group that may use the device
};

// What the errno of a failed opening means. Kind::None when the device vanished.
PortTrouble DiagnoseOpening(int error, const std::string& device);

class PortDiagnosis {
 public:
  virtual ~PortDiagnosis() = default;

  // The device that the port's link leads to, for the user to read; empty when there is none.
  virtual std::string DeviceName(int port) const = 0;

  // What went wrong at the last attempt to open or use this port; Kind::None for a port that does
  // not look like a phone's, so that a machine's own serial ports are passed over in silence.
  virtual PortTrouble TroubleAt(int port) const = 0;
};

}  // namespace tessarin
