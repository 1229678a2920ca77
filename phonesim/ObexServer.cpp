#include "phonesim/ObexServer.h"

#include <algorithm>
#include <utility>

namespace phonesim {
namespace {

using namespace obex;

constexpr std::uint8_t kVersion = 0x10;
constexpr std::size_t kLeastPacket = 255;  ///< what every side of IrOBEX must be able to take
constexpr std::uint32_t kIdStep = 0x00010101;

ObexFault Breach(const std::string& what, std::uint8_t code = kBadRequest) {
  return ObexFault(code, what);
}

/// Every answer to a Connect, a refusal too, has version, flags and the maximum packet length.
Bytes ConnectResponse(std::uint8_t code, const Bytes& headers) {
  Bytes rest{kVersion, 0};
  Append16(rest, kObexPacketLimit);
  Append(rest, headers);
  return ObexResponse(code, rest);
}

bool IsBody(const ObexHeader& header) { return header.id == kBody || header.id == kEndOfBody; }

bool HasBody(const ObexPacket& packet) {
  return std::any_of(packet.headers.begin(), packet.headers.end(), IsBody);
}

bool HasHeader(const ObexPacket& packet, std::uint8_t id) {
  return std::any_of(packet.headers.begin(), packet.headers.end(),
                     [id](const ObexHeader& header) { return header.id == id; });
}

}  // namespace

void ObexServer::Open() {
  closed_ = false;
  row_ = nullptr;
  service_.reset();
  EndOperation();
}

Bytes ObexServer::Answer(ByteView packet) {
  try {
    return Dispatch(ParseObexPacket(packet));
  } catch (const ObexFault& fault) {
    if (*fault.what() != '\0') reports_.Add(fault.what(), packet);
    EndOperation();
    if (packet[0] == kConnect) return ConnectResponse(fault.Code(), {});
    return ObexResponse(fault.Code());
  }
}

Bytes ObexServer::Dispatch(const ObexPacket& packet) {
  switch (packet.opcode) {
    case kConnect:
      return Connect(packet);
    case kDisconnect:
      return Disconnect(packet);
    case kSetPath:
      return SetPath(packet);
    case kGetFinal:
      return Get(packet);
    case kPut:
    case kPutFinal:
      return Put(packet);
    case kAbort:
      EndOperation();
      return ObexResponse(kSuccess);
    default:
      throw Breach("opcode that this phone does not serve", kNotBuilt);
  }
}

/// Request: 80, length (2), version 10, flags 0, maximum packet length (2), 46 or 4A, length (2),
/// service. Response: A0, length (2), 10, 0, 0200, CB, connection id (4), 4A, length (2), service.
/// Clients read the identifier at its fixed place, so it stands right behind the first 7 bytes.
Bytes ObexServer::Connect(const ObexPacket& packet) {
  if (service_) throw Breach("Connect within a session");
  if (packet.fields[0] != kVersion) throw Breach("OBEX version is not 1.0");
  if (packet.fields[1] != 0) throw Breach("Connect with flags");
  const std::size_t limit = Read16(ByteView(packet.fields).subspan(2));
  if (limit < kLeastPacket) throw Breach("maximum packet length below 255");
  const ObexServiceRow& row = FindService(packet);
  MeetRefusal(ObexOperation::Connect, {});
  EndOperation();

  row_ = &row;
  service_ = row.make();
  replyLimit_ = std::min(limit, kObexPacketLimit);
  connectionId_ += kIdStep;
  Bytes headers;
  AppendObexNumber(headers, kConnectionId, connectionId_);
  AppendObexHeader(headers, kWho, row.identifier);
  return ConnectResponse(kSuccess, headers);
}

const ObexServiceRow& ObexServer::FindService(const ObexPacket& packet) const {
  if (packet.headers.size() != 1) throw Breach("Connect without exactly one Target");
  const ObexHeader& target = packet.headers.front();
  const auto row = std::find_if(rows_.begin(), rows_.end(), [&target](const ObexServiceRow& r) {
    return r.header == target.id && r.identifier == target.value;
  });
  if (row == rows_.end()) throw Breach("Connect to an unknown service", kUnavailable);
  return *row;
}

Bytes ObexServer::Disconnect(const ObexPacket& packet) {
  RequireObexHeaders(packet.headers, {});
  EndOperation();
  service_.reset();
  closed_ = true;
  return ObexResponse(kSuccess);
}

Bytes ObexServer::SetPath(const ObexPacket& packet) {
  RequireIdle();
  const ObexHeaders headers = Directed(packet);
  if (packet.fields[1] != 0) throw Breach("SetPath constants are not 0");
  MeetRefusal(ObexOperation::SetPath, headers);
  service_->SetPath(packet.fields[0], headers);
  EndOperation();
  return ObexResponse(kSuccess);
}

Bytes ObexServer::Get(const ObexPacket& packet) {
  if (upload_) throw Breach("Get within a Put");
  if (!download_) return StartGet(packet);
  RequireObexHeaders(packet.headers, {});
  MeetRefusal(getKind_, {});
  Bytes reply = download_->Next();
  if (download_->Done()) EndOperation();
  return reply;
}

Bytes ObexServer::StartGet(const ObexPacket& packet) {
  const ObexHeaders headers = Directed(packet);
  if (headers.empty()) throw Breach("Get goes on, but none was begun");
  getKind_ = HasHeader(packet, kType) ? ObexOperation::Listing : ObexOperation::Get;
  MeetRefusal(getKind_, headers);
  Bytes prefix;
  if (row_->usesConnectionId) AppendObexNumber(prefix, kConnectionId, connectionId_);
  download_.emplace(service_->Get(headers), prefix, replyLimit_);
  Bytes reply = download_->Next();
  if (download_->Done()) EndOperation();
  return reply;
}

Bytes ObexServer::Put(const ObexPacket& packet) {
  if (download_) throw Breach("Put within a Get");
  const bool final = packet.opcode == kPutFinal;
  if (final && !upload_ && !HasBody(packet)) return Delete(packet);
  ObexHeaders headers = upload_ ? packet.headers : Directed(packet);
  if (headers.empty() || !IsBody(headers.back())) throw Breach("Put without a Body as last header");
  const ObexHeader body = std::move(headers.back());
  headers.pop_back();

  MeetRefusal(ObexOperation::Put, headers);
  if (!upload_) {
    upload_ = service_->BeginPut(headers);
  } else {
    RequireObexHeaders(headers, {});
  }
  TakeUploadBody(*upload_, body, final);
  if (!final) return ObexResponse(kContinue);
  const Bytes answer = service_->FinishPut(*upload_);
  EndOperation();
  return ObexResponse(kSuccess, answer);
}

Bytes ObexServer::Delete(const ObexPacket& packet) {
  const ObexHeaders headers = Directed(packet);
  MeetRefusal(ObexOperation::Delete, headers);
  const Bytes answer = service_->Delete(headers);
  EndOperation();
  return ObexResponse(kSuccess, answer);
}

/// The headers of a request to the connected service, without its Connection Id, which IrOBEX wants
/// as the first header.
ObexHeaders ObexServer::Directed(const ObexPacket& packet) const {
  if (!service_) throw Breach("request before Connect");
  if (!row_->usesConnectionId) return packet.headers;
  if (packet.headers.empty() || packet.headers.front().id != kConnectionId) {
    throw Breach(HasHeader(packet, kConnectionId) ? "Connection Id is not the first header"
                                                  : "no Connection Id");
  }
  if (Read32(packet.headers.front().value) != connectionId_) {
    throw Breach("Connection Id of another session", kUnavailable);
  }
  return {packet.headers.begin() + 1, packet.headers.end()};
}

void ObexServer::RequireIdle() const {
  if (download_ || upload_) throw Breach("request within another operation");
}

/// Counts the packet of the operation under way and throws when the phone was told to refuse it.
/// The first packet's Name tells which object it is about.
void ObexServer::MeetRefusal(ObexOperation operation, const ObexHeaders& headers) {
  const auto name = std::find_if(headers.begin(), headers.end(),
                                 [](const ObexHeader& header) { return header.id == kName; });
  if (name != headers.end()) object_ = ObexName(*name);
  const std::size_t packet = ++packetsOfOperation_;
  const auto code = settings_.With([&](Behaviour& b) -> std::optional<std::uint8_t> {
    const auto row = b.refusedOperations.find(operation);
    if (row == b.refusedOperations.end()) return {};
    ObexRefusal& refusal = row->second;
    if (refusal.packet != packet || !object_.starts_with(refusal.object)) return {};
    if (refusal.skip == 0) return refusal.code;
    --refusal.skip;
    return {};
  });
  if (code) throw ObexFault(*code);
}

void ObexServer::EndOperation() {
  download_.reset();
  upload_.reset();
  packetsOfOperation_ = 0;
  object_.clear();
}

}  // namespace phonesim
