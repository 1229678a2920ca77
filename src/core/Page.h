#pragma once

// What the session knows of the pages: their moments, and what the toolbars ask of them.

#include <string_view>

#include "core/Session.h"

namespace tessarin {

class bar;
class Control;

// Something that takes part in the session's life.
class SessionPart {
 public:
  SessionPart() = default;
  virtual ~SessionPart() = default;
  SessionPart(const SessionPart&) = delete;
  SessionPart& operator=(const SessionPart&) = delete;

  // A phone was identified; the data folders and files are there. Nothing was read from it yet.
  virtual void PhoneFound() {}
  // The user wants the phonebook read while connecting; `bars` is shown. False when that failed,
  // which ends the program with the phonebook's message.
  [[nodiscard]] virtual bool LoadWhileConnecting([[maybe_unused]] bar& bars) { return true; }
  virtual void PhoneLost() {}
  // The language was set: captions, column heads, names. What is shown of the phone stays.
  virtual void ApplyTexts() {}
  // The program ends: what is to be kept is written now. Must not throw, and must not talk to the
  // phone.
  virtual void Unloading() {}
};

// One of the nine pages of the main window. The keys of its actions are those of `Toolbar1`.
class Page : public SessionPart {
 public:
  // The element of `ToolFrame` that is this page's panel, 0 to 8.
  virtual int panel() const = 0;

  // The page came to the front. What needs the phone is asked for through `commandState`.
  virtual void Show() {}
  // Whether the page can do an action at all; buttons of others stay disabled.
  virtual bool CanDo([[maybe_unused]] std::string_view action) const { return false; }
  virtual void Do([[maybe_unused]] std::string_view action) {}
  // The action that deletes what is selected in `control`; empty where there is none. Only while
  // such a control has the focus do the Delete key and the Edit menu reach the page.
  virtual std::string_view DeletionIn([[maybe_unused]] const Control& control) const { return {}; }
};

}  // namespace tessarin
