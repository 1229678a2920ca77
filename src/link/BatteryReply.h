#pragma once

// The phone's answer to AT+CBC (3GPP TS 27.007, 8.4):
//
//     +CBC: <bcs>,<bcl>     bcs: 0 on battery, 1 charging ...; bcl: charge in percent, 0 to 100

#include <cstdint>
#include <string_view>

namespace tessarin {

struct BatteryReply {
  bool ended = false;       // the final OK or ERROR has come, line end included
  std::uint16_t level = 0;  // percent, or linkport::kNoBatteryLevel when none was told
};

// Reads what has come so far. Only whole lines count, so a reply may come byte by byte; empty
// lines, carriage returns in any number and the command's echo are passed over. A refusal, and a
// level above 100, give no level.
BatteryReply ReadBatteryReply(std::string_view received);

}  // namespace tessarin
