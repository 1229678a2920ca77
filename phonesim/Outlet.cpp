#include "phonesim/Outlet.h"

#include <algorithm>
#include <utility>

namespace phonesim {

void Outlet::Add(Bytes bytes, Time due) {
  if (!pieces_.empty()) due = std::max(due, pieces_.back().due);
  pieces_.push_back({due, std::move(bytes)});
}

void Outlet::AddSplit(const Bytes& bytes, Time due, std::size_t size,
                      std::chrono::milliseconds gap) {
  if (size == 0) return Add(bytes, due);
  const ByteView view(bytes);
  for (std::size_t at = 0; at < view.size(); at += size, due += gap) {
    const ByteView piece = view.subspan(at, std::min(size, view.size() - at));
    Add(Bytes(piece.begin(), piece.end()), due);
  }
}

std::optional<Outlet::Time> Outlet::NextDue() const {
  if (pieces_.empty()) return std::nullopt;
  return pieces_.front().due;
}

Bytes Outlet::TakeDue(Time now) {
  if (pieces_.empty() || pieces_.front().due > now) return {};
  Bytes bytes = std::move(pieces_.front().bytes);
  pieces_.pop_front();
  return bytes;
}

}  // namespace phonesim
