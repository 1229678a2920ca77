#include "tests/support/ScriptedHost.h"

#include <algorithm>
#include <stdexcept>
#include <thread>
#include <utility>

namespace tessarin {

namespace {

using namespace std::chrono_literals;

constexpr auto kPause = 1ms;
constexpr auto kModalLimit = 60s;

template <class Act>
void ForEachTimer(const Window& window, Act act) {
  for (Control* control : window.controls()) {
    if (auto* timer = dynamic_cast<Timer*>(control)) act(*timer);
  }
}

bool Works(const Window& window) {
  bool works = false;
  ForEachTimer(window, [&works](const Timer& timer) { works = works || timer.enabled; });
  return works;
}

}  // namespace

void ScriptedHost::WhenShown(const std::string& window, Reaction reaction) {
  reactions_[window] = std::move(reaction);
}

void ScriptedHost::Press(Window& window, std::string_view button) {
  dynamic_cast<Button&>(*window.Find(button)).clicked();
}

bool ScriptedHost::RunUntil(const std::function<bool()>& done, std::chrono::milliseconds limit) {
  const auto end = Clock::now() + limit;
  while (!done()) {
    if (quits > 0 || Clock::now() >= end) return false;
    if (!RunOneTick()) std::this_thread::sleep_for(kPause);
  }
  return true;
}

bool ScriptedHost::RunOneTick() {
  const auto now = Clock::now();
  Timer* next = nullptr;
  Clock::time_point* due = nullptr;
  for (OpenWindow& open : windows_) {
    ForEachTimer(*open.window, [&](Timer& timer) {
      if (!timer.enabled) {
        open.due.erase(&timer);
        return;
      }
      const auto interval = std::chrono::milliseconds(timer.interval());
      auto& moment = open.due.try_emplace(&timer, now + interval).first->second;
      if (moment <= now && (due == nullptr || moment < *due)) {
        next = &timer;
        due = &moment;
      }
    });
  }
  if (next == nullptr) return false;
  *due = now + std::chrono::milliseconds(next->interval());
  RunEvent([next] { next->tick(); });
  return true;
}

Window* ScriptedHost::Find(const std::string& window) const {
  const auto found = std::find_if(windows_.begin(), windows_.end(), [&](const OpenWindow& open) {
    return open.window->name() == window;
  });
  return found == windows_.end() ? nullptr : found->window;
}

bool ScriptedHost::Stands(const Window& window) const {
  return std::any_of(windows_.begin(), windows_.end(),
                     [&](const OpenWindow& open) { return open.window == &window; });
}

void ScriptedHost::DoShow(Window& window, Modality modality) {
  shown.push_back(window.name());
  if (!Stands(window)) windows_.push_back({&window, {}});
  const auto reaction = reactions_.find(window.name());
  if (reaction != reactions_.end()) {
    RunEvent([&] { reaction->second(window); });
  } else if (modality == Modality::Modal && !Works(window)) {
    throw std::logic_error("nobody reacts to " + window.name());
  }
  if (modality == Modality::Modal) StandModal(window);
}

void ScriptedHost::StandModal(Window& window) {
  const std::string reason = window.name() + " stands for ever";
  const auto end = Clock::now() + kModalLimit;
  while (Stands(window) && !modalsEnded_) {
    if (Clock::now() >= end) throw std::logic_error(reason);
    if (!RunOneTick()) std::this_thread::sleep_for(kPause);
  }
}

void ScriptedHost::DoUnload(Window& window) {
  gone.push_back(window.name());
  std::erase_if(windows_, [&](const OpenWindow& open) { return open.window == &window; });
}

void ScriptedHost::StandBox() {
  if (whileBoxStands) whileBoxStands();
  RunOneTick();
}

Answer ScriptedHost::DoMessageBox(const Text& text, MessageKind kind, MessageButtons buttons,
                                  const Text& title) {
  boxes.push_back({text, kind, buttons, title});
  StandBox();
  if (answers.empty()) return buttons == MessageButtons::YesNo ? Answer::Yes : Answer::Ok;
  const Answer answer = answers.front();
  answers.pop_front();
  return answer;
}

std::optional<std::filesystem::path> ScriptedHost::DoAskSaveFile(const FileQuestion& question) {
  questions.push_back(question);
  StandBox();
  if (files.empty()) return std::nullopt;
  auto file = std::move(files.front());
  files.pop_front();
  return file;
}

void ScriptedHost::DoYield() {
  ++yields;
  if (whileWaiting) whileWaiting();
  RunOneTick();
}

}  // namespace tessarin
