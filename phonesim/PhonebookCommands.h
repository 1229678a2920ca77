#pragma once

#include <string>

#include "phonesim/AtCommands.h"
#include "phonesim/Behaviour.h"
#include "phonesim/Memory.h"

namespace phonesim {

/// The SIM's phonebook by 3GPP TS 27.007: +CPBS, +CPBR and +CPBW.
class PhonebookCommands {
 public:
  /// `characterSet` is the name that +CSCS has set. All of them must outlive this object.
  PhonebookCommands(Settings& settings, Memory& memory, const std::string& characterSet)
      : settings_(settings), memory_(memory), characterSet_(characterSet) {}
  PhonebookCommands(const PhonebookCommands&) = delete;
  PhonebookCommands& operator=(const PhonebookCommands&) = delete;

  void AddTo(AtCommands& commands);

 private:
  AtAnswer Select(const AtCall& call);
  AtAnswer Read(const AtCall& call);
  AtAnswer Write(const AtCall& call);
  std::string Line(int location, const SimBook::Entry& entry) const;

  Settings& settings_;
  Memory& memory_;
  const std::string& characterSet_;
};

}  // namespace phonesim
