#pragma once

// The session and its supervisor on a scripted host, with a phone at a port that costs no time.

#include <gtest/gtest.h>

#include "core/PhoneLink.h"
#include "core/SubMain.h"
#include "core/Supervisor.h"
#include "core/TessarinMenu.h"
#include "core/TextIndex.h"
#include "tests/support/PhonePort.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/TempFolder.h"

namespace tessarin {

// A clock that stands.
class SetClock : public Clock {
 public:
  DateValue now = modDate::PackDate(2004, 6, 15);
  DateValue Now() const override { return now; }
  int StandardBiasMinutes() const override { return -60; }
};

class SessionBench : public testing::Test {
 protected:
  SessionBench() {
    host.SetMainWindow(session);
    for (const char* storage : {"Phone", "Card"}) {
      std::filesystem::create_directories(folder.Path() / "phone" / storage);
    }
    std::filesystem::create_directories(folder.Path() / "ports");
    PlugInAt(3);
    AnswerAsking("Command2");
  }
  void TearDown() override {
    if (!host.IsEnding()) host.RequestEnd();
    EXPECT_EQ(reports.All(), std::vector<std::string>());
  }

  // A port's device is there; the phone answers only at `port.at`.
  void PlugInAt(int number) const { std::filesystem::create_symlink("/dev/null", Link(number)); }
  std::filesystem::path Link(int number) const {
    return folder.Path() / "ports" / ("COM" + std::to_string(number));
  }
  // How the question about the phonebook is answered.
  void AnswerAsking(const char* button) {
    host.WhenShown("Asking", [button](Window& asking) { ScriptedHost::Press(asking, button); });
  }

  void Start() {
    host.RunEvent([this] { SubMain(session, registry); });
  }
  void Tick(Timer& timer) {
    host.RunEvent([&timer] { timer.tick(); });
  }
  // The first tick opens the search, one of the search's finds the phone.
  void StartAndConnect() {
    Start();
    Tick(session.Timer1);
    for (int tick = 0; tick < 300 && session.statusPhase == kNoPhone; ++tick) Tick(session.Timer2);
  }
  const Text& PanelText(int number) const { return session.StatusBar1.Panel(number).text; }
  Text Word(int index) const { return language.getTSInterfaceStr(index); }

  TempFolder folder;
  ScriptedHost host;
  modFile files{folder.Path() / "app", TESSARIN_SHARE};
  regAPI registry{folder.Path() / "registry.ini"};
  Language language{files};
  SetClock clock;
  phonesim::Settings settings;
  phonesim::Reports reports;
  phonesim::Phone phone{folder.Path() / "phone", settings, reports};
  PhonePort port{phone};
  PortMap map{folder.Path() / "ports", folder.Path() / "dev"};
  std::vector<std::string> printers;
  modComLib com{port, map, [this] { return printers; }};
  AT at{com};
  OBEX obex{com};
  FileService fileService{com, [this](FileService::Failure failure) {
                            session.ShowError(failure == FileService::Failure::Get
                                                  ? text::error::kReceiveFile
                                                  : text::error::kSendFile);
                          }};
  IrMC irmc{com};
  PhoneLink link{port, port, com, at, obex, fileService, irmc};
  TessarinMenu session{{host, files, registry, language, clock, port}};
  Supervisor supervisor{session, link};
};

}  // namespace tessarin
