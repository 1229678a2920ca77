// From the tick that finds a phone to the start panel. The phone is the simulated one, which
// answers at once, over a real pseudo terminal.

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "Program.h"
#include "bench/NoScreen.h"
#include "phonesim/SampleContent.h"
#include "phonesim/Server.h"

namespace {

using namespace tessarin;
using std::chrono::steady_clock;

namespace fs = std::filesystem;

constexpr int kRounds = 5;
constexpr double kMostToTheStartPanel = 1.0;

double Since(steady_clock::time_point start) {
  return std::chrono::duration<double>(steady_clock::now() - start).count();
}

double ProcessorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

class Folder {
 public:
  Folder() {
    std::string pattern = fs::temp_directory_path() / "tessarin-bench-XXXXXX";
    path = mkdtemp(pattern.data());
    fs::create_directories(path / "Tessarin" / "ports");
  }
  ~Folder() { fs::remove_all(path); }
  fs::path Port() const { return path / "Tessarin" / "ports" / "COM3"; }
  fs::path path;
};

// The whole connection inside one tick: seconds, and processor seconds of this process but for the
// phone's thread, which sleeps while it has nothing to say.
std::pair<double, double> Connect() {
  const Folder folder;
  phonesim::FillWithSamples(folder.path / "phone");
  phonesim::Server phone(folder.path / "phone", folder.Port());
  phone.Start();
  NoScreen host;
  Program program(host, {folder.path / "Tessarin", TESSARIN_SHARE, folder.path / "registry.ini",
                         folder.path / "no-devices"});
  program.Start();
  TessarinMenu& session = program.session();
  host.RunEvent([&] { session.Timer1.tick(); });
  const auto start = steady_clock::now();
  const double processor = ProcessorSeconds();
  host.RunEvent([&] { session.Timer2.tick(); });
  const std::pair cost(Since(start), ProcessorSeconds() - processor);
  if (session.statusPhase != kPhonePresent) std::exit(1);
  host.RequestEnd();
  return cost;
}

}  // namespace

int main() {
  std::vector<double> connect, processor;
  for (int round = 0; round < kRounds; ++round) {
    const auto [seconds, processorSeconds] = Connect();
    connect.push_back(seconds);
    processor.push_back(processorSeconds);
  }
  std::printf("found phone to start panel     %.3f s, processor %.3f s (aim: below %.1f s)\n",
              Median(connect), Median(processor), kMostToTheStartPanel);
  return Median(connect) < kMostToTheStartPanel ? 0 : 1;
}
