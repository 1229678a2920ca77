#pragma once

// The main window with nine pages that can do everything and note what they are asked for.

#include <iterator>
#include <sstream>

#include "core/PageTable.h"
#include "tests/support/SessionBench.h"

namespace tessarin {

using Names = std::vector<std::string>;

// The words of a list, parted by blanks.
inline Names In(const std::string& list) {
  std::istringstream words(list);
  return {std::istream_iterator<std::string>(words), {}};
}

template <class Items>
Names KeysOf(const Items& items) {
  Names keys;
  for (const auto& item : items) keys.push_back(item.key);
  return keys;
}

// A page that can do everything and notes what it is asked for.
class AnyPage : public Page {
 public:
  AnyPage(TessarinMenu& session, int panel) : panel_(panel) { session.AddPage(*this); }
  int panel() const override { return panel_; }
  void Show() override { ++shows; }
  bool CanDo(std::string_view) const override { return !canAfterShowing || shows > 0; }
  void Do(std::string_view action) override { done.emplace_back(action); }
  std::string_view DeletionIn(const Control& control) const override {
    return &control == records ? "Delete" : std::string_view();
  }

  const Control* records = nullptr;
  bool canAfterShowing = false;  // nothing before that
  int shows = 0;
  Names done;

 private:
  int panel_;
};

class FrameBench : public SessionBench {
 protected:
  FrameBench() {
    for (int panel = 0; panel < kStartPanel; ++panel) {
      pages.push_back(std::make_unique<AnyPage>(session, panel));
    }
  }
  AnyPage& PageAt(int panel) { return *pages[static_cast<std::size_t>(panel)]; }
  void Choose(const std::string& key) {
    host.RunEvent([&] { session.MainMenu.clicked(key); });
  }
  void Speak(int index) { Choose(kLanguages[static_cast<std::size_t>(index)].menuKey); }
  void Connect() {
    if (session.Timer1.enabled) Tick(session.Timer1);
    for (int i = 0; i < 300 && session.statusPhase == kNoPhone; ++i) Tick(session.Timer2);
    ASSERT_EQ(session.statusPhase, kPhonePresent);
  }
  void LosePhone() {
    port.levels.assign(3, linkport::kNoBatteryLevel);
    Tick(session.Timer1);
    ASSERT_EQ(session.statusPhase, kNoPhone);
  }
  std::vector<std::unique_ptr<AnyPage>> pages;
};

}  // namespace tessarin
