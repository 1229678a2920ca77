#pragma once

// Fuzzing input as the pieces in which bytes arrive at a port: a length byte and that many bytes,
// again and again.

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "tests/support/ScriptedPort.h"

namespace tessarin {

inline void Require(bool holds) {
  if (!holds) std::abort();
}

inline ScriptedPort::Pieces TakePieces(std::string_view input) {
  ScriptedPort::Pieces pieces;
  while (!input.empty()) {
    const std::size_t length = static_cast<std::uint8_t>(input.front());
    input.remove_prefix(1);
    pieces.emplace_back(input.substr(0, length));
    input.remove_prefix(std::min(length, input.size()));
  }
  return pieces;
}

// Runs `work`; false when it was still waiting for bytes at the end of the script.
template <typename Work>
bool Ends(const Work& work) {
  try {
    work();
    return true;
  } catch (const ScriptedPort::Exhausted&) {
    return false;
  }
}

}  // namespace tessarin
