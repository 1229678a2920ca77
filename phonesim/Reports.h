#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "phonesim/Bytes.h"

namespace phonesim {

/// What the client did against the protocol, one line a breach: what is wrong, then the bytes in
/// hexadecimal. An empty list is what every test of a client ends with. Safe from any thread.
class Reports {
 public:
  void Add(std::string_view what, ByteView bytes);

  std::vector<std::string> All() const;
  std::size_t Count() const;
  void Clear();

  /// Called with every new line, on the thread that found the breach. It must not ask this object
  /// anything.
  void SetListener(std::function<void(const std::string&)> listener);

 private:
  mutable std::mutex mutex_;
  std::vector<std::string> lines_;
  std::function<void(const std::string&)> listener_;
};

}  // namespace phonesim
