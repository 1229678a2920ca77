#pragma once

// What the session knows of the pages: their moments, and what the toolbars ask of them.

#include <string>
#include <vector>

#include "controls/Toolbar.h"
#include "core/Session.h"

namespace tessarin {

// Something that takes part in the session's life.
class SessionPart {
 public:
  SessionPart() = default;
  virtual ~SessionPart() = default;
  SessionPart(const SessionPart&) = delete;
  SessionPart& operator=(const SessionPart&) = delete;

  // A phone was identified; the data folders and files are there. Nothing was read from it yet.
  virtual void PhoneFound() {}
  // The user wants the phonebook read while connecting. False when that failed, which ends the
  // program with the phonebook's message.
  [[nodiscard]] virtual bool LoadWhileConnecting() { return true; }
  virtual void PhoneLost() {}
  // The language changed, or was set for the first time.
  virtual void ApplyTexts() {}
  // The program ends: what is to be kept is written now. Must not throw, and must not talk to the
  // phone.
  virtual void Unloading() {}
};

// One of the nine pages of the main window.
class Page : public SessionPart {
 public:
  // The element of `ToolFrame` that is this page's panel, 0 to 8.
  virtual int panel() const = 0;
  virtual MediaKind kind() const { return MediaKind::File; }
  // The buttons of `Toolbar1`, in order.
  virtual std::vector<ToolbarButton> Actions() const { return {}; }

  // The page came to the front. What needs the phone is asked for through `commandState`.
  virtual void Show() {}
  // The buttons of `Toolbar1`.
  virtual void Refresh() {}
  virtual void New() {}
  virtual void Save() {}
  virtual void Delete() {}
  virtual void Edit() {}
  virtual void Sync() {}
};

}  // namespace tessarin
