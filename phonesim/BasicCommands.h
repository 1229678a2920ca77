#pragma once

#include <string>

#include "phonesim/AtCommands.h"
#include "phonesim/Behaviour.h"

namespace phonesim {

/// The commands of every phone: who it is, its character set, echo, battery, and the way into OBEX.
class BasicCommands {
 public:
  /// `settings` must outlive this object, and this object the table it adds itself to.
  explicit BasicCommands(Settings& settings) : settings_(settings) {}
  BasicCommands(const BasicCommands&) = delete;
  BasicCommands& operator=(const BasicCommands&) = delete;

  void AddTo(AtCommands& commands);

  /// The name that +CSCS has set.
  const std::string& CharacterSetName() const { return characterSet_; }

 private:
  void AddIdentity(AtCommands& commands, const std::string& name, std::string Identity::*field);
  AtAnswer SetEcho(const AtCall& call);
  AtAnswer CharacterSet(const AtCall& call);
  AtAnswer BatteryCharge(const AtCall& call);

  Settings& settings_;
  std::string characterSet_ = "GSM";
};

}  // namespace phonesim
