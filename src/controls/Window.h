#pragma once

// A window without a toolkit: its controls, its caption, and the two moments of its life.

#include <string>
#include <vector>

#include "codecs/Text.h"
#include "controls/Control.h"
#include "controls/Property.h"

namespace tessarin {

class WindowHost;
enum class Modality;

// The base of every window class, which holds its controls as plain members. The object outlives
// what is seen of it: showing makes the visible window, unloading takes it away, and both can
// happen again. A window has to be unloaded before it is destroyed.
class Window {
 public:
  // `host` must outlive the window. `name` is the window class's own name.
  Window(WindowHost& host, std::string name);
  virtual ~Window();
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  const std::string& name() const { return name_; }
  const std::vector<Control*>& controls() const { return controls_; }
  // Null when there is no control of that name.
  Control* Find(std::string_view controlName) const;

  Signal<> changed;
  Property<Text> caption{changed};
  // False where a question has to be answered by one of its buttons: Escape then does nothing.
  Property<bool> escapeCloses{changed, true};

  // Shows the window, loading it first when it is not loaded. A modal show returns when the window
  // is unloaded, and raises ProgramEnding when the program has begun to end meanwhile.
  void Show(Modality modality);
  // Takes the window away; nothing happens when it is not loaded.
  void Unload();
  // Paints what has changed now, without waiting for the next event.
  void Refresh();
  bool IsLoaded() const { return loaded_; }

 protected:
  WindowHost& host() const { return host_; }
  // Called by the first Show, before anything is seen.
  virtual void FormLoad() {}
  // Called by Unload, or when the user closes the window, before it goes away.
  virtual void FormUnload() {}

 private:
  friend class Control;
  friend class WindowHost;

  WindowHost& host_;
  std::string name_;
  std::vector<Control*> controls_;
  bool loaded_ = false;
};

}  // namespace tessarin
