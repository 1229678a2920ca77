// The real program, widgets and all, is told to end by the system at awkward moments.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <optional>
#include <thread>

#include "phonesim/Server.h"
#include "tests/support/TempFolder.h"

namespace tessarin {
namespace {

using namespace std::chrono_literals;
using phonesim::Behaviour;

bool Within(std::chrono::milliseconds limit, const std::function<bool()>& done) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!done()) {
    if (std::chrono::steady_clock::now() >= end) return false;
    std::this_thread::sleep_for(5ms);
  }
  return true;
}

// The program in a home of its own, without a screen. What it says goes to the file "errors" there.
class RunningProgram {
 public:
  explicit RunningProgram(const std::filesystem::path& home) {
    std::vector<std::string> settings = {"HOME=" + home.string(),
                                         "XDG_DATA_HOME=" + (home / "data").string(),
                                         "XDG_CONFIG_HOME=" + (home / "config").string(),
                                         "XDG_CACHE_HOME=" + (home / "cache").string(),
                                         "XDG_RUNTIME_DIR=" + (home / "run").string(),
                                         "QT_QPA_PLATFORM=offscreen",
                                         "LANG=C.UTF-8"};
    for (const char* name : {"PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"}) {
      if (const char* value = std::getenv(name))
        settings.push_back(name + ("=" + std::string(value)));
    }
    std::filesystem::create_directory(home / "run");
    std::filesystem::permissions(home / "run", std::filesystem::perms(0700));
    std::vector<char*> environment;
    environment.reserve(settings.size() + 1);
    for (auto& setting : settings) environment.push_back(setting.data());
    environment.push_back(nullptr);
    std::string program = TESSARIN_PROGRAM;
    char* arguments[] = {program.data(), nullptr};
    const std::string errors = home / "errors";
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errors.c_str(), O_CREAT | O_WRONLY,
                                       0600);
    const int failure =
        ::posix_spawn(&pid_, program.c_str(), &actions, nullptr, arguments, environment.data());
    ::posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) std::abort();
  }
  ~RunningProgram() {
    if (HasEnded()) return;
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, nullptr, 0);
  }
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  void Signal(int number) const { ::kill(pid_, number); }
  bool HasEnded() {
    int status = 0;
    if (!status_ && ::waitpid(pid_, &status, WNOHANG) == pid_) status_ = status;
    return status_.has_value();
  }
  // The exit code, or the number of the signal that ended it below zero.
  int Result() const { return WIFEXITED(*status_) ? WEXITSTATUS(*status_) : -WTERMSIG(*status_); }

  // Whether it catches the signal yet.
  bool Catches(int number) const {
    std::ifstream status("/proc/" + std::to_string(pid_) + "/status");
    for (std::string line; std::getline(status, line);) {
      if (!line.starts_with("SigCgt:")) continue;
      return (std::stoull(line.substr(7), nullptr, 16) >> (number - 1) & 1) != 0;
    }
    return false;
  }

 private:
  pid_t pid_ = 0;
  std::optional<int> status_;
};

struct Moment {
  const char* name;
  int signal;
  bool plugged;
  std::function<void(Behaviour&)> make;
  bool hasLists;
  const char* lastRequest;  // what the phone has heard by then
  int times;
  std::chrono::milliseconds later;
};

void PrintTo(const Moment& moment, std::ostream* out) { *out << moment.name; }

class EndSignal : public testing::TestWithParam<Moment> {};

TEST_P(EndSignal, EndsTheProgramInTimeWithTheListsWhole) {
  const Moment& moment = GetParam();
  const TempFolder folder;
  const auto app = folder.Path() / "data" / "Tessarin";
  std::filesystem::create_directories(app / "Pb");
  // The program itself ends its lines with CR LF.
  const std::string contact = "0041" + std::string(23, ',');
  const std::string found = contact + "\n" + contact + "\n";
  const std::string saved = contact + "\r\n" + contact + "\r\n";
  const char* lists[] = {"data/Tessarin/Pb/ContactTSC.dat", "data/Tessarin/Pb/ContactMobile.dat"};
  for (const char* list : lists) folder.Write(list, found);
  std::filesystem::create_directories(folder.Path() / "phone" / "Phone");
  std::filesystem::create_directories(folder.Path() / "phone" / "Card");

  phonesim::Server phone(folder.Path() / "phone", app / "ports" / "COM3");
  phone.GetSettings().With(moment.make);
  std::atomic<int> heard = 0;
  phone.SetListener([&](bool fromPhone, phonesim::ByteView bytes) {
    const std::string request(bytes.begin(), bytes.end());
    if (!fromPhone && request.starts_with(moment.lastRequest)) ++heard;
  });
  if (moment.plugged) phone.Start();

  RunningProgram program(folder.Path());
  ASSERT_TRUE(Within(30s, [&] { return program.Catches(moment.signal); }));
  ASSERT_TRUE(Within(30s, [&] { return heard >= moment.times; }));
  std::this_thread::sleep_for(moment.later);
  ASSERT_FALSE(program.HasEnded()) << folder.Read("errors");
  program.Signal(moment.signal);
  ASSERT_TRUE(Within(3s, [&] { return program.HasEnded(); })) << folder.Read("errors");
  EXPECT_EQ(program.Result(), 0) << folder.Read("errors");
  for (const char* list : lists) EXPECT_EQ(folder.Read(list), moment.hasLists ? saved : found);
  phone.Stop();
  EXPECT_EQ(phone.GetReports().All(), std::vector<std::string>());
}

constexpr auto kWell = [](Behaviour&) {};
constexpr char kDisconnect[] = "\x81";

INSTANTIATE_TEST_SUITE_P(
    Program, EndSignal,
    testing::Values(Moment{"Idle", SIGTERM, false, kWell, false, "", 0, 0ms},
                    Moment{"WhileTheSearchWaitsForASilentPort", SIGTERM, true,
                           [](Behaviour& b) { b.silence = phonesim::Silence::Everything; }, false,
                           "AT+CGMM", 1, 50ms},
                    Moment{"WhileThePhoneIsSilentInObexMode", SIGTERM, true,
                           [](Behaviour& b) { b.silence = phonesim::Silence::Obex; }, true,
                           "AT*EOBEX", 1, 300ms},
                    // The third Disconnect of a connection comes right before the question.
                    Moment{"WhileAQuestionStands", SIGINT, true, kWell, true, kDisconnect, 3,
                           500ms}),
    [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace tessarin
