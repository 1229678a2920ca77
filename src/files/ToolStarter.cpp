#include "files/ToolStarter.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <sstream>

namespace tessarin {

namespace fs = std::filesystem;

namespace {

constexpr char kExe[] = ".exe";

std::string Stem(const std::string& tool) {
  return tool.ends_with(kExe) ? tool.substr(0, tool.size() - sizeof kExe + 1) : tool;
}

std::vector<fs::path> PathFolders() {
  std::vector<fs::path> folders;
  const char* path = std::getenv("PATH");
  std::istringstream all(path == nullptr ? "/usr/local/bin:/usr/bin:/bin" : path);
  for (std::string folder; std::getline(all, folder, ':');) {
    if (!folder.empty()) folders.emplace_back(folder);
  }
  return folders;
}

bool IsProgram(const fs::path& file) {
  std::error_code ignored;
  return fs::is_regular_file(file, ignored) && ::access(file.c_str(), X_OK) == 0;
}

// The child of a child runs the program, so that it is nobody's to wait for; the pipe closes by
// itself when that worked, and else brings the reason.
[[noreturn]] void RunInGrandchild(const fs::path& program, char* const* arguments, int report) {
  if (::fork() != 0) ::_exit(0);
  ::setsid();
  ::execv(program.c_str(), arguments);
  const int reason = errno;
  const ssize_t ignored = ::write(report, &reason, sizeof reason);
  ::_exit(ignored > 0 ? 1 : 2);
}

// 0, or the system's reason.
int Run(const fs::path& program, const std::vector<std::string>& arguments) {
  std::vector<std::string> words = {program.string()};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);

  int report[2];
  if (::pipe2(report, O_CLOEXEC) != 0) return errno;
  const pid_t child = ::fork();
  if (child == 0) RunInGrandchild(program, pointers.data(), report[1]);
  int reason = child < 0 ? errno : 0;
  ::close(report[1]);
  if (child > 0) {
    ::waitpid(child, nullptr, 0);
    if (::read(report[0], &reason, sizeof reason) <= 0) reason = 0;
  }
  ::close(report[0]);
  return reason;
}

}  // namespace

ToolStart ProcessStarter::Start(const std::string& tool,
                                const std::vector<std::string>& arguments) {
  ToolStart start;
  start.places = folders_;
  for (fs::path& folder : PathFolders()) {
    const bool known =
        std::find(start.places.begin(), start.places.end(), folder) != start.places.end();
    if (!known) start.places.push_back(std::move(folder));
  }
  for (const fs::path& folder : start.places) {
    for (const std::string& name : {Stem(tool), Stem(tool) + kExe}) {
      if (!IsProgram(folder / name)) continue;
      const int reason = Run(folder / name, arguments);
      start.result = reason == 0 ? ToolStart::Result::Started : ToolStart::Result::Failed;
      if (reason != 0) start.reason = FromUtf8(std::generic_category().message(reason));
      return start;
    }
  }
  return start;
}

}  // namespace tessarin
