// A phone that answers anything at all in OBEX mode: every operation gives true or false, or waits
// on, and whatever it sends is a packet. The first byte of the input chooses whether the pieces
// arrive as they are or each as a packet with a right length, which leads deeper.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "fuzz/Pieces.h"
#include "link/FileService.h"
#include "link/FolderListing.h"
#include "link/OBEX.h"

namespace {

using namespace tessarin;

namespace fs = std::filesystem;

// The files of this process; they go with it.
class Folder {
 public:
  Folder() : path_(fs::temp_directory_path() / ("obex-fuzz-" + std::to_string(::getpid()))) {
    fs::create_directories(path_);
    std::ofstream(path_ / "put") << std::string(1200, 'x');
  }
  ~Folder() { fs::remove_all(path_); }
  const fs::path& Path() const { return path_; }

 private:
  fs::path path_;
};

void SetLengths(ScriptedPort::Pieces& pieces) {
  for (auto& piece : pieces) {
    if (piece.empty()) continue;
    const std::size_t length = piece.size() + 2;
    piece.insert(1, {static_cast<char>(length >> 8), static_cast<char>(length)});
  }
}

// A scripted phone with everything that talks to it.
struct Link {
  explicit Link(const ScriptedPort::Pieces& pieces) : port(pieces) { port.emptyReadsLeft = 200; }
  ~Link() {
    for (const std::string& packet : port.written) CheckRequest(packet);
  }

  static void CheckRequest(const std::string& packet) {
    if (packet == "AT*EOBEX\r") return;
    Require(packet.size() >= 3 && packet.size() <= 512);
    Require(packet.substr(1, 2) ==
            std::string{static_cast<char>(packet.size() >> 8), static_cast<char>(packet.size())});
  }

  PortMap map{"/nowhere", "/nowhere"};
  ScriptedPort port;
  modComLib com{port, map};
  OBEX obex{com};
  int failures = 0;
  FileService files{com, [this](FileService::Failure) { ++failures; }};
};

void CheckSession(const ScriptedPort::Pieces& pieces) {
  Link link(pieces);
  Ends([&] {
    std::string id;
    link.obex.EndOBEXSession();
    static_cast<void>(link.obex.ConnectFolderBrowsing(id));
    Require(id.size() <= 8);
    static_cast<void>(link.obex.SetPathRoot(id));
    static_cast<void>(link.obex.SetPathDown(id, u"Phone"));
    static_cast<void>(link.obex.ConnectMmsTarget());
    link.obex.EndOBEXSession();
  });
}

void CheckListing(const ScriptedPort::Pieces& pieces) {
  Link link(pieces);
  Ends([&] {
    Text xml;
    if (!link.files.GetFolderListing("00000001", xml, "x-obex/folder-listing")) return;
    // To its last tag, or a single tag that closes itself.
    Require(xml.starts_with(u"<folder-listing") &&
            (xml.ends_with(u"folder-listing>") || xml.ends_with(u"/>")));
  });
}

// Both ways of getting a file give the same bytes.
void CheckGet(const ScriptedPort::Pieces& pieces, const fs::path& folder) {
  Link toMemory(pieces), toFile(pieces);
  Bytes bytes;
  bool got = false, kept = false;
  const bool ended = Ends([&] { got = toMemory.files.GetFileBytes("00000001", u"a", bytes); });
  Require(ended == Ends([&] { kept = toFile.files.GetFile("00000001", u"a", folder); }));
  Require(got == kept);
  if (!ended) return;
  Require(toFile.failures == (kept ? 0 : 1));
  if (!kept) return;
  std::ifstream file(folder / "a", std::ios::binary);
  Require(Bytes(std::istreambuf_iterator<char>(file), {}) == bytes);
}

void CheckPut(const ScriptedPort::Pieces& pieces, const fs::path& folder) {
  Link link(pieces);
  Ends([&] {
    const bool put = link.files.PutFile("00000001", folder / "put");
    Require(link.failures == (put ? 0 : 1));
    Require(!put || link.port.written.size() == 3);
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Folder folder;
  if (size == 0) return 0;
  auto pieces = TakePieces({reinterpret_cast<const char*>(data) + 1, size - 1});
  if (data[0] % 2 != 0) SetLengths(pieces);
  CheckSession(pieces);
  CheckListing(pieces);
  CheckGet(pieces, folder.Path());
  CheckPut(pieces, folder.Path());
  return 0;
}
