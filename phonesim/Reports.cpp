#include "phonesim/Reports.h"

#include <utility>

namespace phonesim {

void Reports::Add(std::string_view what, ByteView bytes) {
  const std::lock_guard lock(mutex_);
  lines_.push_back(std::string(what) + ": " + ToHex(bytes));
  if (listener_) listener_(lines_.back());
}

std::vector<std::string> Reports::All() const {
  const std::lock_guard lock(mutex_);
  return lines_;
}

std::size_t Reports::Count() const {
  const std::lock_guard lock(mutex_);
  return lines_.size();
}

void Reports::Clear() {
  const std::lock_guard lock(mutex_);
  lines_.clear();
}

void Reports::SetListener(std::function<void(const std::string&)> listener) {
  const std::lock_guard lock(mutex_);
  listener_ = std::move(listener);
}

}  // namespace phonesim
