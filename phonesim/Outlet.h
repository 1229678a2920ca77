#pragma once

#include <chrono>
#include <deque>
#include <optional>

#include "phonesim/Bytes.h"

namespace phonesim {

/// What is still to be sent, each piece with its moment. Knows no clock and no line.
class Outlet {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// The whole of `bytes` at `due`, or after what waits already.
  void Add(Bytes bytes, Time due);

  /// In pieces of `size` bytes, the first at `due` and the others `gap` apart; size 0: whole.
  void AddSplit(const Bytes& bytes, Time due, std::size_t size, std::chrono::milliseconds gap);

  bool Empty() const { return pieces_.empty(); }
  std::optional<Time> NextDue() const;

  /// The next piece if its moment has come, otherwise no bytes.
  Bytes TakeDue(Time now);

  void Clear() { pieces_.clear(); }

 private:
  struct Piece {
    Time due;
    Bytes bytes;
  };
  std::deque<Piece> pieces_;
};

}  // namespace phonesim
