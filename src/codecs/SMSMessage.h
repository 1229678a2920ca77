// A text message as it came from the phone, and one on its way to it.
#pragma once

#include <cstdint>

#include "codecs/FixedText.h"

namespace tessarin {

// A message of one of the phone's stores, or one part of a long message.
struct SMSMessage {
  std::int16_t location = 0;  // its index in the store, for AT+CMGR and AT+CMGD
  std::int16_t stat = 0;      // 0 received unread, 1 received read, 2 stored unsent, 3 stored sent
  std::int16_t concatenated = 0;  // 1 for a part of a long message
  FixedText<40> sender;           // or, for a stored message, the recipient
  FixedText<20> timestamp;        // of the service centre, "dd/mm/yyyy hh:mm:ss", or blank
  FixedText<160> text;
  std::int16_t reference = 0;   // equal in all parts of a long message
  std::int16_t partCount = 0;   // how many parts it has
  std::int16_t partNumber = 0;  // from 1
};

// Data coding values.
inline constexpr std::int32_t kGsm7Bit = 0;
inline constexpr std::int32_t kUcs2 = 8;

struct SMSSendRecord {
  std::int32_t Coding = kGsm7Bit;
  std::int32_t NumberLength = 0;  // characters of `Number`
  std::int32_t TextLength = 0;    // characters of `Text`
  FixedText<40> Number;           // with a "+" in front when it is international
  FixedText<804> Text;
};

// How many parts a text of that many characters takes: one up to 160 (70 in UCS2), else parts of
// 153 (67) characters.
int SMSPartCount(std::int32_t coding, std::int32_t textLength);

}  // namespace tessarin
