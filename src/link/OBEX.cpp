#include "link/OBEX.h"

#include <algorithm>
#include <string_view>

#include "link/modOBEX.h"

namespace tessarin {

using modOBEX::Header;
using modOBEX::Opcode;

// What a Connect asks for: the identifier, in hexadecimal, in a header of the service's own choice.
struct OBEX::Service {
  Header header;
  std::string_view identifier;
};

namespace {

constexpr OBEX::Service kFolderBrowsing = {Header::Target, "F9EC7BC4953C11D2984E525400DC9E09"};
constexpr OBEX::Service kIrmcSync = {Header::Target, "49524D432D53594E43"};  // "IRMC-SYNC"
constexpr OBEX::Service kMmsTarget = {Header::Who, "B9C7FD98E5F811D1BFCE0000F8753890"};

constexpr std::string_view kDisconnect = "810003";

// Connect: OBEX version 1.0, no flags, packets of up to 512 bytes.
constexpr std::string_view kConnectFields = "10000200";

// Set Path: go down, or to the root when there is no name, and make no folder; constants 0.
constexpr std::string_view kSetPathFields = "0200";

// In the reply to a Connect the four bytes of the Connection Id header stand behind response code,
// length, version, flags, maximum packet length (7 bytes) and the header's own identifier.
constexpr std::size_t kConnectionIdAt = 16;
constexpr std::size_t kConnectionIdDigits = 8;

}  // namespace

bool OBEX::EnterOBEXMode() {
  return com_.SendATCommand(u"AT*EOBEX") && ContainsIgnoringCase(com_.ReadATResponse(), u"CONNECT");
}

bool OBEX::LeaveOBEXMode() {
  Text reply;
  if (!com_.SendOBEXPacket(std::string(kDisconnect))) return false;
  if (!com_.ReadOBEXCloseResponse(reply)) return false;
  return ContainsIgnoringCase(reply, u"OK") || reply.find(FromLatin1(kDisconnect)) != Text::npos;
}

int OBEX::EndOBEXSession() { return LeaveOBEXMode() ? -1 : 0; }

bool OBEX::Exchange(const std::string& packet, std::string& reply) {
  return com_.ExchangeOBEX(packet, reply) && modOBEX::ReplyCode(reply) == modOBEX::Reply::Success;
}

bool OBEX::Connect(const Service& service, std::string& connectionId) {
  std::string reply;
  if (!EnterOBEXMode()) return false;
  const std::string target = modOBEX::BytesHeader(service.header, service.identifier);
  if (!Exchange(modOBEX::Packet(Opcode::Connect, target, kConnectFields), reply)) return false;
  connectionId = reply.substr(std::min(reply.size(), kConnectionIdAt), kConnectionIdDigits);
  return true;
}

bool OBEX::ConnectFolderBrowsing(std::string& connectionId) {
  return Connect(kFolderBrowsing, connectionId);
}

bool OBEX::ConnectIrmcSync(std::string& connectionId) { return Connect(kIrmcSync, connectionId); }

bool OBEX::ConnectMmsTarget() {
  std::string unused;  // this service has no connection identifier
  return Connect(kMmsTarget, unused);
}

bool OBEX::SetPathRoot(const std::string& connectionId) {
  return SetPath(connectionId, modOBEX::EmptyNameHeader());
}

bool OBEX::SetPathDown(const std::string& connectionId, TextView folderName) {
  return SetPath(connectionId, modOBEX::NameHeader(folderName));
}

bool OBEX::SetPath(const std::string& connectionId, const std::string& nameHeader) {
  std::string reply;
  const std::string headers = modOBEX::ConnectionIdHeader(connectionId) + nameHeader;
  return Exchange(modOBEX::Packet(Opcode::SetPath, headers, kSetPathFields), reply);
}

}  // namespace tessarin
