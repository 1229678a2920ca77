#pragma once

#include <unistd.h>

#include <cstdlib>

namespace tessarin {

// An ordinary user for as long as this lives, since nothing is read-only for the system's own.
class OrdinaryUser {
 public:
  OrdinaryUser() : isRoot_(::geteuid() == 0) { Become(kNobody); }
  ~OrdinaryUser() { Become(0); }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  static constexpr uid_t kNobody = 65534;

  void Become(uid_t user) const {
    if (isRoot_ && ::seteuid(user) != 0) std::abort();
  }

  bool isRoot_;
};

}  // namespace tessarin
