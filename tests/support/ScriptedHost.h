#pragma once

// A window system without a screen, the program's second front end: it keeps account of what would
// be seen, lets the timers of all windows tick in real time, and a script stands in for the user.

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "controls/Basics.h"
#include "controls/WindowHost.h"

namespace tessarin {

class ScriptedHost : public WindowHost {
 public:
  using Reaction = std::function<void(Window&)>;
  using Clock = std::chrono::steady_clock;

  struct Box {
    Text text;
    MessageKind kind;
    MessageButtons buttons;
    Text title;
  };

  // What the user does each time the window of that name was shown. A modal window that nobody
  // reacts to and that does no work of its own raises std::logic_error, for it would stand for
  // ever.
  void WhenShown(const std::string& window, Reaction reaction);
  // Presses a button of that name.
  static void Press(Window& window, std::string_view button);

  // The user's answers, first question first. Then boxes are left by Ok or Yes, file dialogs by
  // giving up.
  std::deque<Answer> answers;
  std::deque<std::filesystem::path> files;

  const Control* focus = nullptr;
  bool textInFocus = false;  // whether there is something to cut, copy and the like

  // Called whenever something waits and yields to the screen, and while a box or dialog stands.
  std::function<void()> whileWaiting;
  std::function<void()> whileBoxStands;

  // Runs the program until `done`; false when that did not come within the limit, or when the
  // program ended before.
  bool RunUntil(const std::function<bool()>& done,
                std::chrono::milliseconds limit = std::chrono::seconds(30));
  bool RunUntilQuit() {
    return RunUntil([this] { return quits > 0; });
  }

  // The window of that name that stands, or null.
  Window* Find(const std::string& window) const;

  // What happened, in order.
  std::vector<std::string> shown;
  std::vector<std::string> gone;
  std::vector<Box> boxes;
  std::vector<FileQuestion> questions;
  std::vector<EditAct> edits;
  int yields = 0;
  int quits = 0;

 protected:
  void DoShow(Window& window, Modality modality) override;
  void DoUnload(Window& window) override;
  void DoRepaint(Window&) override {}
  Answer DoMessageBox(const Text& text, MessageKind kind, MessageButtons buttons,
                      const Text& title) override;
  std::optional<std::filesystem::path> DoAskSaveFile(const FileQuestion& question) override;
  const Control* DoFocus() const override { return focus; }
  void DoEditInFocus(EditAct act) override { edits.push_back(act); }
  bool DoCanEditInFocus(EditAct) const override { return textInFocus; }
  void DoYield() override;
  void DoEndModals() override { modalsEnded_ = true; }
  void DoQuit() override { ++quits; }

 private:
  struct OpenWindow {
    Window* window;
    std::map<const Timer*, Clock::time_point> due;  // of the enabled timers
  };

  bool Stands(const Window& window) const;
  void StandModal(Window& window);
  void StandBox();
  // Runs the tick that is due for longest; false when none is due.
  bool RunOneTick();

  std::map<std::string, Reaction> reactions_;
  std::vector<OpenWindow> windows_;
  bool modalsEnded_ = false;
};

}  // namespace tessarin
