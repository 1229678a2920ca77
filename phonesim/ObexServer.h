#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "phonesim/Behaviour.h"
#include "phonesim/ObexTransfer.h"
#include "phonesim/Reports.h"

namespace phonesim {

/// The OBEX side of the phone: one request packet in, one response packet out. It keeps the order
/// of a session (Connect, then operations, each to its end, then Disconnect), and hands the
/// operations themselves to the service that the Connect chose.
class ObexServer {
 public:
  /// `settings` and `reports` must outlive this server.
  ObexServer(Settings& settings, Reports& reports) : settings_(settings), reports_(reports) {}

  void Add(ObexServiceRow row) { rows_.push_back(std::move(row)); }

  /// Begins with no service connected.
  void Open();

  /// Answers a packet whose length field is its size. A breach is reported and answered with C0 or
  /// a code that says more, and ends the operation it belongs to.
  Bytes Answer(ByteView packet);

  /// True once a Disconnect was answered.
  bool Closed() const { return closed_; }

 private:
  Bytes Dispatch(const ObexPacket& packet);
  Bytes Connect(const ObexPacket& packet);
  Bytes Disconnect(const ObexPacket& packet);
  Bytes SetPath(const ObexPacket& packet);
  Bytes Get(const ObexPacket& packet);
  Bytes StartGet(const ObexPacket& packet);
  Bytes Put(const ObexPacket& packet);

  const ObexServiceRow& FindService(const ObexPacket& packet) const;
  ObexHeaders Directed(const ObexPacket& packet) const;
  void RequireIdle() const;
  Bytes Delete(const ObexPacket& packet);
  void MeetRefusal(ObexOperation operation, const ObexHeaders& headers);
  void EndOperation();

  Settings& settings_;
  Reports& reports_;
  std::vector<ObexServiceRow> rows_;

  bool closed_ = true;
  const ObexServiceRow* row_ = nullptr;
  std::unique_ptr<ObexService> service_;
  std::uint32_t connectionId_ = 0x5E550000;
  std::size_t replyLimit_ = kObexPacketLimit;

  ObexOperation getKind_ = ObexOperation::Get;
  std::optional<ObexDownload> download_;
  std::optional<ObexUpload> upload_;
  std::size_t packetsOfOperation_ = 0;
  std::string object_;  ///< what the operation under way names
};

}  // namespace phonesim
