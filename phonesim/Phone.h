#pragma once

#include <filesystem>
#include <vector>

#include "phonesim/AtCommands.h"
#include "phonesim/AtLine.h"
#include "phonesim/BasicCommands.h"
#include "phonesim/Behaviour.h"
#include "phonesim/FileTree.h"
#include "phonesim/Memory.h"
#include "phonesim/MessageCommands.h"
#include "phonesim/ObexServer.h"
#include "phonesim/PhonebookCommands.h"
#include "phonesim/Reports.h"

namespace phonesim {

/// The phone itself: bytes in, bytes out, no line and no clock. It starts in AT mode; AT*EOBEX
/// turns it to OBEX mode and an OBEX Disconnect back.
class Phone {
 public:
  /// A run of bytes to send. Echoes go out at once, answers when the phone has thought them over.
  struct Output {
    bool answer = false;
    Bytes bytes;
    std::chrono::milliseconds delay{};  ///< more time to think than usual
  };

  /// `content` is the folder that holds its files and books; `settings` and `reports` must outlive
  /// the phone.
  Phone(const std::filesystem::path& content, Settings& settings, Reports& reports);
  Phone(const Phone&) = delete;
  Phone& operator=(const Phone&) = delete;

  /// Takes what the client sent, in pieces of any size. A request that is complete before
  /// `Delivered` was called for the answer before it is a breach, and is answered all the same.
  void Receive(ByteView bytes);

  /// What to send, in order.
  std::vector<Output> Take();

  /// The client has all the answers taken so far.
  void Delivered() { answering_ = false; }

  /// True while a packet has begun and not ended.
  bool MidPacket() const { return !packet_.empty(); }

  /// The rest of the packet does not come: a breach, answered as a bad request.
  void Stalled();

  /// Forgets half a request and unsent answers and, unless told to keep it, leaves OBEX mode.
  void Reset();

  /// The client closed the port: `Reset`, as on a phone whose ready line drops. To leave a packet
  /// half sent is a breach.
  void LineClosed();

  bool InObexMode() const { return obexMode_; }

  /// True once a request came at which the phone was told to hang up; it does not answer any more
  /// until `Reset`.
  bool HungUp() const { return hungUp_; }

  Memory& GetMemory() { return memory_; }

 private:
  bool Silent();
  ByteView ReceiveAt(ByteView bytes);
  void ReceiveObex(ByteView bytes);
  void TakeAt(AtLine::Event event);
  void RunCommand(const std::string& line);
  void RunBody(const std::string& digits);
  void CancelBody();
  void SendAnswer(const std::string& name, const AtAnswer& answer);
  std::optional<AtAnswer> Failing(const std::string& name);
  bool HangsUp();
  AtAnswer Answer(const AtCall& call, const std::string& line);
  bool PassedOver(const std::string& name);
  void AnswerPacket();
  bool ObexAnswersLeft();
  void FlushEcho();
  void ReportStray();
  void BeginAnswer(ByteView request);
  void Send(ByteView bytes);

  Settings& settings_;
  Reports& reports_;
  FileTree files_;
  FileTree mms_;
  Memory memory_;
  BasicCommands basics_;
  PhonebookCommands phonebook_;
  MessageCommands messages_;
  AtCommands commands_;
  ObexServer obex_;

  AtLine line_;
  Bytes packet_;
  bool obexMode_ = false;
  bool answering_ = false;
  bool hungUp_ = false;
  bool bodyRefused_ = false;  ///< the client may send a body all the same
  std::function<AtAnswer(const std::string&)> takeBody_;
  std::vector<Output> outputs_;
};

}  // namespace phonesim
