#pragma once

// The codes of the messages' work with the phone.

#include <cstdint>

namespace tessarin {

namespace job {
inline constexpr std::int32_t kLoadMessages = 3;
inline constexpr std::int32_t kSendMessage = 4;
inline constexpr std::int32_t kDeleteMessages = 5;
}  // namespace job

namespace worker {
inline constexpr std::int16_t kSmsLoading = 3;
}  // namespace worker

}  // namespace tessarin
