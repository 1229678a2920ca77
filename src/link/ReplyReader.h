#pragma once

// The bytes of one AT reply as they come in, and the search for its end.

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "link/linkport.h"

namespace tessarin {

// One `serial_read` call is never asked for more.
inline constexpr std::size_t kReadSize = 255;

// Appends what one `serial_read` gives to `bytes`; how many that were.
std::size_t ReadSome(linkport& port, std::string& bytes);

// Gathers a reply from its first byte on. It has ended once one of `ends` stands anywhere in it,
// upper and lower case being equal; an end may come in pieces, with bytes before and behind it.
class ReplyReader {
 public:
  // `port` must outlive this reader. The ends are texts in ASCII.
  ReplyReader(linkport& port, std::initializer_list<std::string_view> ends);

  // Reads once. True when bytes came and the reply has ended.
  bool Read();

  const std::string& Reply() const { return reply_; }

 private:
  linkport& port_;
  std::vector<std::string_view> ends_;
  std::size_t overlap_ = 0;  // how far back an end may begin that was not whole before
  std::string reply_;
};

}  // namespace tessarin
