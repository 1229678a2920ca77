#pragma once

// What a file descriptor needs to be a raw serial line.

#include <cstdint>

namespace tessarin {

// The line settings of an open device: raw, 8 data bits, no parity, 1 stop bit, no modem control,
// no flow control, `speed` bits a second (0: 115200), for this process alone. Whatever was received
// before is thrown away. 0, or the errno of what was refused: EINVAL for a speed that the system
// does not know, EWOULDBLOCK for a device that another program holds, ENOTTY for no terminal.
int MakeSerialLine(int file, std::int32_t speed);

// Lets others open the device again, and drops what could not be sent by now: closing would wait
// for a stalled device to take it, up to half a minute.
void ReleaseSerialLine(int file);

}  // namespace tessarin
