// Put and get of a file of 4 MB with the simulated phone, which runs in a process of its own and
// answers at once, over a real pseudo terminal. What counts is how near that comes to a bare
// exchange of as many packets of the same sizes between two processes, measured in the same run,
// and how much processor time this side takes.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "link/FileService.h"
#include "link/OBEX.h"
#include "link/PosixPort.h"
#include "phonesim/Server.h"

namespace {

using namespace tessarin;

namespace fs = std::filesystem;

constexpr std::size_t kFileSize = 4 << 20;
constexpr std::size_t kPutData = 506;  // bytes of the file in a packet of 512
constexpr std::size_t kGetData = 501;  // the phone's packets repeat the Connection Id
constexpr int kRounds = 9;
constexpr double kLeastRatio = 0.6;
constexpr double kMostProcessorSeconds = 0.5;

void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "link_bench: %s failed\n", what);
  std::exit(1);
}

struct Cost {
  double seconds;
  double processorSeconds;  // of this process
};

// The costs of a transfer and of the bare exchange beside it, round by round.
struct Rounds {
  std::vector<double> seconds, bareSeconds, ratios, processorSeconds;

  void Add(const Cost& ours, const Cost& bare) {
    seconds.push_back(ours.seconds);
    bareSeconds.push_back(bare.seconds);
    ratios.push_back(bare.seconds / ours.seconds);
    processorSeconds.push_back(ours.processorSeconds);
  }
};

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

double ProcessorSeconds() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

Cost Measure(const std::function<void()>& work) {
  const double processor = ProcessorSeconds();
  const auto begin = std::chrono::steady_clock::now();
  work();
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
  return {time.count(), ProcessorSeconds() - processor};
}

// The other process. It runs `work`, which says by its first argument that it is ready and returns
// when the second becomes readable.
class Peer {
 public:
  explicit Peer(const std::function<int(int ready, int stop)>& work) {
    Require(::pipe(ready_) == 0 && ::pipe(stop_) == 0, "pipe");
    process_ = ::fork();
    Require(process_ >= 0, "fork");
    if (process_ == 0) {
      ::close(stop_[1]);
      ::_exit(work(ready_[1], stop_[0]));
    }
    char byte = 0;
    Require(::read(ready_[0], &byte, 1) == 1, "start of the other process");
  }

  // Ends it; its result must be 0.
  void End() {
    ::close(stop_[1]);
    int status = 0;
    ::waitpid(process_, &status, 0);
    Require(WIFEXITED(status) && WEXITSTATUS(status) == 0, "the other process");
  }

 private:
  int ready_[2] = {-1, -1};
  int stop_[2] = {-1, -1};
  pid_t process_ = -1;
};

// Reads or writes all `count` bytes of a blocking descriptor; false when it was closed.
template <typename Move>
bool MoveAll(Move move, int file, char* bytes, std::size_t count) {
  while (count > 0) {
    const ssize_t moved = move(file, bytes, count);
    if (moved <= 0) return false;
    bytes += moved;
    count -= static_cast<std::size_t>(moved);
  }
  return true;
}

// `count` requests and replies of these sizes with another process over a pseudo terminal.
Cost BareExchange(std::size_t count, std::size_t request, std::size_t reply) {
  const int line = ::posix_openpt(O_RDWR | O_NOCTTY);
  Require(line >= 0 && ::grantpt(line) == 0 && ::unlockpt(line) == 0, "pseudo terminal");
  const int port = ::open(::ptsname(line), O_RDWR | O_NOCTTY);
  termios settings{};
  ::tcgetattr(port, &settings);
  ::cfmakeraw(&settings);
  ::tcsetattr(port, TCSANOW, &settings);

  char buffer[512] = {};
  Peer peer([&](int ready, int) {
    Require(::write(ready, "r", 1) == 1, "write");
    for (std::size_t i = 0; i < count; ++i) {
      if (!MoveAll(::read, line, buffer, request) || !MoveAll(::write, line, buffer, reply))
        return 1;
    }
    return 0;
  });
  const Cost cost = Measure([&] {
    for (std::size_t i = 0; i < count; ++i) {
      Require(MoveAll(::write, port, buffer, request) && MoveAll(::read, port, buffer, reply),
              "bare exchange");
    }
  });
  peer.End();
  ::close(port);
  ::close(line);
  return cost;
}

bool Print(const char* what, const Rounds& rounds) {
  const double seconds = Median(rounds.seconds), ratio = Median(rounds.ratios);
  const double processor = Median(rounds.processorSeconds);
  const bool good = ratio >= kLeastRatio && processor < kMostProcessorSeconds;
  std::printf(
      "%s 4 MB: %.3f s (%.1f MB/s), bare %.3f s, %.0f %% of its rate; %.3f s of processor%s\n",
      what, seconds, kFileSize / seconds / 1e6, Median(rounds.bareSeconds), 100 * ratio, processor,
      good ? "" : "   BELOW THE AIM");
  return good;
}

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string SomeBytes() {
  std::mt19937 random(1);
  std::string bytes(kFileSize, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return bytes;
}

// The phone, until `stop` is closed. 1 when it saw a breach of the protocol.
int ServePhone(const fs::path& folder, int ready, int stop) {
  phonesim::Server server(folder / "phone", folder / "COM3");
  server.Start();
  Require(::write(ready, "r", 1) == 1, "write");
  char byte = 0;
  while (::read(stop, &byte, 1) > 0) {
  }
  server.Stop();
  return server.GetReports().Count() == 0 ? 0 : 1;
}

bool Run(const fs::path& folder) {
  const std::string data = SomeBytes();
  fs::create_directories(folder / "phone" / "Phone");
  fs::create_directories(folder / "got");
  std::ofstream(folder / "file.bin", std::ios::binary) << data;

  Peer phone([&](int ready, int stop) { return ServePhone(folder, ready, stop); });
  const PortMap map(folder);
  PosixPort port(map);
  modComLib com(port, map);
  OBEX obex(com);
  FileService files(com, nullptr);
  std::string id;
  Require(com.OpenPhonePort("COM3") && obex.ConnectFolderBrowsing(id) && obex.SetPathRoot(id) &&
              obex.SetPathDown(id, u"Phone"),
          "session");
  Rounds put, get;
  for (int round = 0; round < kRounds; ++round) {
    put.Add(Measure([&] { Require(files.PutFile(id, folder / "file.bin"), "put"); }),
            BareExchange(kFileSize / kPutData + 1, 512, 3));
    get.Add(Measure([&] { Require(files.GetFile(id, u"file.bin", folder / "got"), "get"); }),
            BareExchange(kFileSize / kGetData + 1, 3, 512));
  }
  Require(obex.EndOBEXSession() != 0, "end of the session");
  port.serial_close();
  phone.End();
  Require(ReadFile(folder / "phone" / "Phone" / "file.bin") == data,
          "comparison with the put file");
  Require(ReadFile(folder / "got" / "file.bin") == data, "comparison with the got file");

  const bool putGood = Print("put", put), getGood = Print("get", get);
  return putGood && getGood;
}

}  // namespace

int main() {
  const fs::path folder = fs::temp_directory_path() / ("link-bench-" + std::to_string(::getpid()));
  const bool good = Run(folder);
  fs::remove_all(folder);
  return good ? 0 : 1;
}
