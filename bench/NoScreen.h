#pragma once

// A window system for what is measured.

#include <cstdio>
#include <cstdlib>

#include "controls/WindowHost.h"
#include "core/Asking.h"

namespace tessarin {

// Shows nothing, declines to read the phonebook, and takes any message for the end.
class NoScreen : public WindowHost {
 protected:
  void DoShow(Window& window, Modality) override {
    if (auto* asking = dynamic_cast<Asking*>(&window)) asking->Command2.clicked();
  }
  void DoUnload(Window&) override {}
  void DoRepaint(Window&) override {}
  Answer DoMessageBox(const Text& text, MessageKind, MessageButtons, const Text&) override {
    std::fprintf(stderr, "bench: %s\n", ToUtf8(text).c_str());
    std::exit(1);
  }
  std::optional<std::filesystem::path> DoAskSaveFile(const FileQuestion&) override {
    return std::nullopt;
  }
  std::optional<std::filesystem::path> DoAskOpenFile(const FileQuestion&) override {
    return std::nullopt;
  }
  bool DoEditInFocus(EditAct) override { return false; }
  bool DoCanEditInFocus(EditAct) const override { return false; }
  void DoYield() override {}
  void DoEndModals() override {}
  void DoQuit() override {}
};

}  // namespace tessarin
