#pragma once

#include <string>

#include "phonesim/AtCommands.h"
#include "phonesim/Behaviour.h"
#include "phonesim/Memory.h"
#include "phonesim/Reports.h"

namespace phonesim {

/// Short messages by 3GPP TS 27.005, in PDU mode only: +CPMS, +CMGF, +CMGR, +CMGD and +CMGS.
class MessageCommands {
 public:
  /// All of them must outlive this object.
  MessageCommands(Settings& settings, Memory& memory, Reports& reports)
      : settings_(settings), memory_(memory), reports_(reports) {}
  MessageCommands(const MessageCommands&) = delete;
  MessageCommands& operator=(const MessageCommands&) = delete;

  void AddTo(AtCommands& commands);

 private:
  AtAnswer Select(const AtCall& call);
  AtAnswer Format(const AtCall& call);
  AtAnswer Read(const AtCall& call);
  AtAnswer Delete(const AtCall& call);
  AtAnswer Send(const AtCall& call);
  AtAnswer Submit(const std::string& digits, std::size_t announced);
  AtAnswer Empty() const;
  std::string Counts() const;
  int Total() const;

  Settings& settings_;
  Memory& memory_;
  Reports& reports_;
  std::string store_ = "ME";
  int reference_ = 0;
};

}  // namespace phonesim
