#pragma once

// What the logic asks of a window system, and the rules of life that hold in every one: how windows
// come and go, where a fault ends up, and how the program ends while something waits.

#include <exception>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "codecs/Text.h"
#include "controls/Window.h"

namespace tessarin {

enum class Modality { Modeless, Modal };
enum class MessageButtons { Ok, OkCancel, YesNo };
enum class MessageKind { Information, Question, Error };
enum class Answer { Ok, Cancel, Yes, No };

enum class EditAct { Cut, Copy, Paste, Delete, SelectAll };

// The few words that a window system shows by itself, in the program's language.
struct HostWords {
  Text ok, cancel, yes, no;
  Text faultTitle;  // of the box that tells of a fault
  Text divider;     // what a screen reader calls the handle between two parts of a window
  Text fault;       // around the text of a fault, which takes the place of "###1"
  // A file dialog's: its labels, and the button that saves.
  Text folder, fileName, fileType, save;
  std::string isoCode;  // of the language, for the rest of the system's own dialogs
};

struct FileQuestion {
  Text caption;
  Text filter;         // words for the kind of file, such as "Rich Text"
  std::string suffix;  // such as "rtf", without the point; empty for any
  std::filesystem::path folder;
  Text suggestedName;
};

// Unwinds whatever waits for the phone or for the user once the program has begun to end. It is no
// fault and nobody but RunEvent catches it.
struct ProgramEnding {};

class WindowHost {
 public:
  WindowHost() = default;
  virtual ~WindowHost() = default;
  WindowHost(const WindowHost&) = delete;
  WindowHost& operator=(const WindowHost&) = delete;

  // The window whose unload ends the program. Set once, before anything is shown.
  void SetMainWindow(Window& window) { main_ = &window; }

  // See Window. Unloading the main window unloads nothing else by itself: its own unload moment
  // does that.
  void Show(Window& window, Modality modality);
  void Unload(Window& window);
  void UnloadOthers(const Window& window);
  void Repaint(Window& window) { DoRepaint(window); }

  // A modal box, titled with the program's name where no title is given. Raises ProgramEnding when
  // the program has begun to end meanwhile.
  Answer MessageBox(const Text& text, MessageKind kind = MessageKind::Information,
                    MessageButtons buttons = MessageButtons::Ok, const Text& title = {});
  // A file to write, or none when the user gives up. Raises ProgramEnding likewise.
  std::optional<std::filesystem::path> AskSaveFile(const FileQuestion& question);

  // The control that has the keyboard's focus, or had it before a menu took it. Null for none.
  const Control* Focus() const { return DoFocus(); }

  // Cut, copy and the like on that control; nothing happens where it has no such act.
  void EditInFocus(EditAct act) { DoEditInFocus(act); }

  // Whether that act would do something just now.
  bool CanEditInFocus(EditAct act) const { return DoCanEditInFocus(act); }

  void SetWords(HostWords words);

  // Lets the screen catch up while something waits: painting and animation, no user input. Raises
  // ProgramEnding once the program has begun to end.
  void YieldToScreen();
  // True within YieldToScreen: what the user does is not for now.
  bool IsYielding() const { return yielding_; }

  // Runs what an event, a tick or the start of the program does. A fault that rises out of it shows
  // its text in a message box and then ends the program. Once the program is ending, further
  // events do nothing.
  void RunEvent(const std::function<void()>& event);

  // Begins the end of the program from outside (a signal, log-out, a fault): whatever waits is
  // unwound, and the main window is unloaded as the last thing.
  void RequestEnd();
  bool IsEnding() const { return ending_; }
  bool EndedByFault() const { return endedByFault_; }

 protected:
  virtual void DoShow(Window& window, Modality modality) = 0;  // modal: returns when taken away
  virtual void DoUnload(Window& window) = 0;
  virtual void DoRepaint(Window& window) = 0;
  virtual Answer DoMessageBox(const Text& text, MessageKind kind, MessageButtons buttons,
                              const Text& title) = 0;
  virtual std::optional<std::filesystem::path> DoAskSaveFile(const FileQuestion& question) = 0;
  virtual const Control* DoFocus() const = 0;
  virtual void DoEditInFocus(EditAct act) = 0;
  virtual bool DoCanEditInFocus(EditAct act) const = 0;
  virtual void DoYield() = 0;
  virtual void WordsChanged() {}
  // Makes every modal show and box return.
  virtual void DoEndModals() = 0;
  // The main window is gone: leave the event loop.
  virtual void DoQuit() = 0;

  const HostWords& words() const { return words_; }

 private:
  // Takes away what is seen of the window, without its unload moment.
  void Forget(Window& window);
  void EndIfOutermost();
  void Quit();
  void RaiseIfEnding() const;
  void ReportFault(const Text& message);

  HostWords words_;
  Window* main_ = nullptr;
  std::vector<Window*> loaded_;
  int depth_ = 0;
  bool yielding_ = false;
  bool ending_ = false;
  bool endedByFault_ = false;
  bool quit_ = false;
};

}  // namespace tessarin
