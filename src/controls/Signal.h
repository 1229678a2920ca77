#pragma once

// A signal and its slots: how a control tells of a change, and how a user's act comes in.

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tessarin {

// Keeps a slot connected for as long as it lives. Empty by default; movable.
class Connection {
 public:
  Connection() = default;
  explicit Connection(std::shared_ptr<void> slot) : slot_(std::move(slot)) {}

 private:
  std::shared_ptr<void> slot_;
};

// Slots run in the order in which they were connected. A slot may connect, disconnect, and destroy
// the signal itself; a slot whose connection went away during the call does not run any more.
template <class... Args>
class Signal {
 public:
  using Slot = std::function<void(Args...)>;

  Signal() = default;
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;

  // Connected until the returned connection is destroyed, or for good if the signal dies first.
  [[nodiscard]] Connection Connect(Slot slot) {
    auto held = std::make_shared<Slot>(std::move(slot));
    slots_.push_back(held);
    return Connection(held);
  }

  // Connected for the signal's whole life: for an owner that holds the signal itself.
  void Always(Slot slot) { own_.push_back(Connect(std::move(slot))); }

  void operator()(Args... args) {
    std::erase_if(slots_, [](const auto& slot) { return slot.expired(); });
    const auto slots = slots_;
    for (const auto& slot : slots) {
      if (const auto held = slot.lock()) (*held)(args...);
    }
  }

 private:
  std::vector<std::weak_ptr<Slot>> slots_;
  std::vector<Connection> own_;
};

}  // namespace tessarin
