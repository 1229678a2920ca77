#include "controls/WindowHost.h"

#include <algorithm>
#include <utility>

#include "codecs/Faults.h"

namespace tessarin {

namespace {

// Marks a time for as long as it lives; one within another changes nothing.
class Yielding {
 public:
  explicit Yielding(bool& mark) : mark_(mark), before_(std::exchange(mark, true)) {}
  ~Yielding() { mark_ = before_; }
  Yielding(const Yielding&) = delete;
  Yielding& operator=(const Yielding&) = delete;

 private:
  bool& mark_;
  const bool before_;
};

}  // namespace

void WindowHost::Show(Window& window, Modality modality) {
  try {
    if (!window.loaded_) {
      window.loaded_ = true;
      loaded_.push_back(&window);
      window.FormLoad();
      if (!window.loaded_) return;  // it unloaded itself while loading
    }
    DoShow(window, modality);
    if (modality == Modality::Modal) RaiseIfEnding();
  } catch (...) {
    // Its owner is about to be unwound. The main window has its unload moment before that.
    if (&window != main_) Forget(window);
    throw;
  }
}

void WindowHost::Unload(Window& window) {
  if (!window.loaded_) return;
  window.loaded_ = false;
  std::erase(loaded_, &window);
  if (&window == main_) ending_ = true;
  window.FormUnload();
  DoUnload(window);
  if (&window == main_) Quit();
}

void WindowHost::UnloadOthers(const Window& window) {
  const auto loaded = loaded_;
  for (Window* other : loaded) {
    if (other != &window) Unload(*other);
  }
}

void WindowHost::Forget(Window& window) {
  if (!window.loaded_) return;
  window.loaded_ = false;
  std::erase(loaded_, &window);
  DoUnload(window);
}

Answer WindowHost::MessageBox(const Text& text, MessageKind kind, MessageButtons buttons,
                              const Text& title) {
  const Answer answer = DoMessageBox(text, kind, buttons, title);
  RaiseIfEnding();
  return answer;
}

std::optional<std::filesystem::path> WindowHost::AskSaveFile(const FileQuestion& question) {
  auto answer = DoAskSaveFile(question);
  RaiseIfEnding();
  return answer;
}

void WindowHost::SetWords(HostWords words) {
  words_ = std::move(words);
  WordsChanged();
}

void WindowHost::YieldToScreen() {
  RaiseIfEnding();
  {
    const Yielding yielding(yielding_);
    DoYield();
  }
  RaiseIfEnding();
}

void WindowHost::RaiseIfEnding() const {
  if (ending_) throw ProgramEnding();
}

void WindowHost::RunEvent(const std::function<void()>& event) {
  if (ending_) return;
  ++depth_;
  try {
    event();
  } catch (const ProgramEnding&) {
  } catch (const Fault& fault) {
    ReportFault(fault.Message());
  } catch (const std::exception& fault) {
    ReportFault(FromUtf8(fault.what()));
  }
  --depth_;
  if (ending_) EndIfOutermost();
}

// The box stands while the program is ending already, so that no tick can run into the same fault
// behind it.
void WindowHost::ReportFault(const Text& message) {
  if (ending_) return;
  ending_ = true;
  endedByFault_ = true;
  const Text around = words_.fault.empty() ? u"###1" : words_.fault;
  DoMessageBox(Replace(around, u"###1", message), MessageKind::Error, MessageButtons::Ok,
               words_.faultTitle);
}

void WindowHost::RequestEnd() {
  ending_ = true;
  EndIfOutermost();
}

void WindowHost::EndIfOutermost() {
  if (depth_ > 0) {
    DoEndModals();
    return;
  }
  try {
    if (main_ != nullptr) Unload(*main_);
  } catch (...) {
    DoUnload(*main_);  // the end goes on: nobody is left who could be told
  }
  Quit();
}

void WindowHost::Quit() {
  if (!std::exchange(quit_, true)) DoQuit();
}

}  // namespace tessarin
