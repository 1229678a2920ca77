#pragma once

// The whole program but its widgets, on the real port code, and a simulated phone at the other end
// of a pseudo terminal.

#include <gtest/gtest.h>

#include <memory>

#include "Program.h"
#include "core/TextIndex.h"
#include "phonesim/Server.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/TempFolder.h"

namespace tessarin {

class EndToEnd : public testing::Test {
 protected:
  EndToEnd() {
    for (const char* made : {"app/Pb", "app/ports", "phone/Phone", "phone/Card", "no-devices"}) {
      std::filesystem::create_directories(folder.Path() / made);
    }
    folder.Write(kBook, kContact);
    // The program's jobs and its search know no seconds; both run ten times as fast here.
    session.Timer1.interval = 100;
    session.Timer2.interval = 1;
    AnswerAsking("Command2");
  }

  // The phone has found no fault with the program.
  void TearDown() override {
    host.RequestEnd();
    phone.Stop();
    EXPECT_EQ(phone.GetReports().All(), std::vector<std::string>());
  }

  std::filesystem::path Port(int number) const {
    return folder.Path() / "app" / "ports" / ("COM" + std::to_string(number));
  }
  template <class Change>
  void Behave(Change change) {
    phone.GetSettings().With(change);
  }
  void AnswerAsking(const char* button) {
    host.WhenShown("Asking", [button](Window& asking) { ScriptedHost::Press(asking, button); });
  }

  bool Connects() {
    return host.RunUntil([this] { return session.statusPhase == kPhonePresent; });
  }
  bool StartsAndConnects() {
    phone.Start();
    program.Start();
    return Connects();
  }
  // A click of the user's, and the job that it asks for.
  bool Does(const std::function<void()>& click) {
    host.RunEvent(click);
    return host.RunUntil([this] { return session.commandState == job::kIdlePoll; });
  }
  const Text& PanelText(int number) const { return session.StatusBar1.Panel(number).text; }
  Text Word(int index) const { return session.language().getTSInterfaceStr(index); }

  static constexpr char kBook[] = "app/Pb/ContactTSC.dat";
  // One contact whose first field is "A", with a line end that the program does not write itself.
  inline static const std::string kContact = "0041" + std::string(23, ',') + "\n";
  inline static const std::string kSavedContact = "0041" + std::string(23, ',') + "\r\n";

  TempFolder folder;
  ScriptedHost host;
  phonesim::Server phone{folder.Path() / "phone", Port(3)};
  Program program{host,
                  {folder.Path() / "app", TESSARIN_SHARE, folder.Path() / "registry.ini",
                   folder.Path() / "no-devices"}};
  TessarinMenu& session = program.session();
};

}  // namespace tessarin
