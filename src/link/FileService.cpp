#include "link/FileService.h"

#include <cstdint>
#include <fstream>
#include <system_error>

#include "codecs/modHexStr.h"
#include "link/modOBEX.h"

namespace tessarin {

namespace fs = std::filesystem;

using modOBEX::Header;
using modOBEX::Opcode;
using modOBEX::Reply;

namespace {

constexpr std::size_t kHead = 3;  // bytes of a packet's head, and of a Body header's
constexpr std::size_t kChunk = modOBEX::kMaximumPacket - 2 * kHead;

// A file that is sent, read piece by piece.
class Source {
 public:
  // Leaves `IsOpen` false for what is no ordinary file, cannot be read, or is larger than the
  // 32-bit Length header can say.
  explicit Source(const fs::path& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return;
    const std::uintmax_t size = fs::file_size(path, error);
    if (error || size > UINT32_MAX) return;
    left_ = static_cast<std::size_t>(size);
    file_.open(path, std::ios::binary);
  }

  bool IsOpen() const { return file_.is_open(); }
  std::size_t Left() const { return left_; }

  // The next `count` bytes, which are not more than are left. False when the file does not give
  // them any more.
  bool Next(std::size_t count, std::string& hex) {
    Bytes bytes(count);
    file_.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(count));
    hex = modHexStr::BytesToHex(bytes);
    left_ -= count;
    return static_cast<std::size_t>(file_.gcount()) == count;
  }

 private:
  std::ifstream file_;
  std::size_t left_ = 0;
};

bool Write(std::ofstream& file, std::string_view hex) {
  const Bytes bytes = modHexStr::HexToBytes(hex);
  return static_cast<bool>(file.write(reinterpret_cast<const char*>(bytes.data()),
                                      static_cast<std::streamsize>(hex.size() / 2)));
}

// The listing itself, from its first tag to its last; empty when it is not there.
std::string_view CutListing(std::string_view received) {
  constexpr std::string_view kBegin = "<folder-listing";
  constexpr std::string_view kEnd = "folder-listing>";
  const std::size_t begin = received.find(kBegin);
  if (begin == received.npos) return {};
  const std::size_t end = received.rfind(kEnd);
  if (end == received.npos || end < begin) {
    // An empty folder may be a single tag that closes itself.
    const std::size_t close = received.find("/>", begin);
    return close == received.npos ? "" : received.substr(begin, close + 2 - begin);
  }
  return received.substr(begin, end + kEnd.size() - begin);
}

}  // namespace

bool IsSafeFileName(TextView name) {
  return !name.empty() && name != u"." && name != u".." &&
         name.find_first_of(TextView(u"/\0", 2)) == TextView::npos;
}

bool FileService::Reported(bool success, Failure kind) const {
  if (!success && report_) report_(kind);
  return success;
}

bool FileService::Get(const std::string& headers, const Sink& sink) {
  const std::string continuation = modOBEX::Packet(Opcode::Get, "");
  std::string reply;
  if (!com_.ExchangeOBEX(modOBEX::Packet(Opcode::Get, headers), reply)) return false;
  for (;;) {
    const Reply code = modOBEX::ReplyCode(reply);
    if (code == Reply::Refused) return false;
    const auto body = modOBEX::FindBody(reply);
    if (!body || !sink(*body)) return false;
    if (code == Reply::Success) return true;
    if (!com_.ExchangeOBEX(continuation, reply)) return false;
  }
}

void FileService::Tell(std::uint64_t bytes) const {
  if (progress_) progress_(bytes);
}

bool FileService::GetNamed(const std::string& connectionId, TextView name, const Sink& sink) {
  std::uint64_t received = 0;
  const auto count = [&](std::string_view body) {
    if (!sink(body)) return false;
    received += body.size() / 2;
    Tell(received);
    return true;
  };
  return Get(modOBEX::ConnectionIdHeader(connectionId) + modOBEX::NameHeader(name), count);
}

bool FileService::GetFolderListing(const std::string& connectionId, Text& xml,
                                   std::string_view type) {
  std::string hex;
  const std::string headers = modOBEX::ConnectionIdHeader(connectionId) + modOBEX::TypeHeader(type);
  const auto append = [&hex](std::string_view body) {
    hex += body;
    return true;
  };
  if (!Get(headers, append)) return false;
  const Bytes received = modHexStr::HexToBytes(hex);
  const auto listing =
      CutListing({reinterpret_cast<const char*>(received.data()), received.size()});
  xml = FromLatin1(listing);
  return !listing.empty();
}

bool FileService::GetFileBytes(const std::string& connectionId, TextView name, Bytes& bytes) {
  std::string hex;
  const auto append = [&hex](std::string_view body) {
    hex += body;
    return true;
  };
  if (!GetNamed(connectionId, name, append)) return false;
  bytes = modHexStr::HexToBytes(hex);
  bytes.pop_back();  // the zero that HexToBytes adds is none of the file's
  return true;
}

bool FileService::GetFile(const std::string& connectionId, TextView name, const fs::path& folder) {
  return Reported(FetchFile(connectionId, name, folder), Failure::Get);
}

// The local file is opened only once the phone gives its own: a refusal leaves an older one whole.
bool FileService::FetchFile(const std::string& connectionId, TextView name,
                            const fs::path& folder) {
  if (!IsSafeFileName(name)) return false;
  std::ofstream file;
  const auto write = [&](std::string_view body) {
    if (!file.is_open()) file.open(folder / ToUtf8(name), std::ios::binary | std::ios::trunc);
    return Write(file, body);
  };
  if (!GetNamed(connectionId, name, write)) return false;
  file.close();
  return static_cast<bool>(file);
}

bool FileService::PutFile(const std::string& connectionId, const fs::path& path) {
  return Reported(Put(modOBEX::ConnectionIdHeader(connectionId), path, true), Failure::Put);
}

bool FileService::PutFileNoId(const fs::path& path) {
  return Reported(Put("", path, false), Failure::Put);
}

bool FileService::Send(const std::string& packet, Reply expected) {
  std::string reply;
  return com_.ExchangeOBEX(packet, reply) && modOBEX::ReplyCode(reply) == expected;
}

// Every packet but the last is filled up to 512 bytes; the first also holds the file's headers.
bool FileService::Put(const std::string& idHeader, const fs::path& path, bool withLength) {
  Source source(path);
  if (!source.IsOpen()) return false;
  // The phone's folders are divided by backslashes, so a name goes out from its last one on.
  const Text file = FromUtf8(path.filename().string());
  std::string headers = idHeader + modOBEX::NameHeader(file.substr(file.rfind(u'\\') + 1));
  if (withLength) headers += modOBEX::LengthHeader(source.Left());
  if (headers.size() / 2 > kChunk) return false;
  const std::uint64_t size = source.Left();

  std::string data;
  for (std::size_t room = kChunk - headers.size() / 2; source.Left() > room; room = kChunk) {
    if (!source.Next(room, data)) return false;
    headers += modOBEX::BytesHeader(Header::Body, data);
    if (!Send(modOBEX::Packet(Opcode::Put, headers), Reply::Continue)) return false;
    headers.clear();
    Tell(size - source.Left());
  }
  if (!source.Next(source.Left(), data)) return false;
  headers += modOBEX::BytesHeader(Header::EndOfBody, data);
  if (!Send(modOBEX::Packet(Opcode::PutFinal, headers), Reply::Success)) return false;
  Tell(size);
  return true;
}

}  // namespace tessarin
