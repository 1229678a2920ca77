#pragma once

// The main window, which is the session: the shared state, the lists of pages and jobs, and the
// program's start and end.

#include <memory>
#include <vector>

#include "codecs/modDate.h"
#include "codecs/modFile.h"
#include "controls/Basics.h"
#include "controls/ItemList.h"
#include "controls/ListView.h"
#include "controls/Menu.h"
#include "controls/StatusBar.h"
#include "controls/Toolbar.h"
#include "controls/TreeView.h"
#include "controls/Window.h"
#include "core/JobTable.h"
#include "core/Language.h"
#include "core/Page.h"
#include "core/Session.h"
#include "core/StartPanel.h"
#include "core/regAPI.h"
#include "link/linkport.h"

namespace tessarin {

// Numbers of the status bar's panels.
namespace panel {
inline constexpr int kConnection = 2;
inline constexpr int kModel = 3;
inline constexpr int kPage = 5;
inline constexpr int kBattery = 6;
}  // namespace panel

class TessarinMenu : public Window, public Session {
 public:
  // All must outlive the window.
  struct Needs {
    WindowHost& host;
    const modFile& files;
    const regAPI& registry;
    Language& language;
    const Clock& clock;
    linkport& port;
  };
  explicit TessarinMenu(const Needs& needs);

  Menu MainMenu{*this, "MainMenu"};
  Toolbar Toolbar2{*this, "Toolbar2"};  // the page bar
  Toolbar Toolbar1{*this, "Toolbar1"};  // the action bar
  std::vector<std::unique_ptr<Panel>> ToolFrame;
  StartPanel start{*this};

  TreeView tvwPhoneDir{*this, "tvwPhoneDir"};
  ListView lvwPhoneFile{*this, "lvwPhoneFile"};
  ListView lvwPhoneSMS{*this, "lvwPhoneSMS"};
  ListView lvwPhoneRingtone{*this, "lvwPhoneRingtone"};
  ListView lvwPhoneLogo{*this, "lvwPhoneLogo"};
  ListView lvwPhonePhoto{*this, "lvwPhonePhoto"};
  ListView lvwPhoneMovie{*this, "lvwPhoneMovie"};
  ListView lvwPhonePhonebook{*this, "lvwPhonePhonebook"};
  // The storage choices of the ringtone, picture, movie and theme pages.
  ComboBox comboStorage{*this, "comboStorage"};
  ComboBox combostore{*this, "combostore"};
  ComboBox comboStorage2{*this, "comboStorage2"};
  ComboBox comboStorage3{*this, "comboStorage3"};
  // The calendar's navigator: year, month, day.
  TextBox Text1{*this, "Text1"};
  ComboBox Combo2{*this, "Combo2"};
  ComboBox Combo3{*this, "Combo3"};

  Label Lbstatus{*this, "Lbstatus"};
  StatusBar StatusBar1{*this, "StatusBar1", 6};
  Timer Timer1{*this, "Timer1", 1000};  // one job a tick
  Timer Timer2{*this, "Timer2", 10};    // one port of the scan a tick

  // Both before the window is shown. The parts must outlive the window; their order is the order
  // of their moments.
  void AddPart(SessionPart& part) { parts_.push_back(&part); }
  void AddPage(Page& page);
  const std::vector<SessionPart*>& parts() const { return parts_; }
  JobTable& jobs() { return jobs_; }

  // Brings a page to the front; nothing happens for an element without a page.
  void ShowPage(int panel);
  // Hides all pages and shows the start panel.
  void ShowStartPanel();
  Page* PageInFront() const { return front_; }

  // Every job calls this last.
  void SetCommandIdle() { commandState = job::kIdlePoll; }
  // The status display for the present language: whether a phone is there, which, and where.
  void UpdateStatusTexts(StatusPhase phase);
  // Every word of the window, after the language file was read.
  void ApplyInterfaceTexts();
  // The eight controls that show the phone's content, and the menu entries that need a phone.
  void EnablePhoneControls(bool enabled);
  // The page bar has the File page from the start; the others come with a phone.
  void RebuildToolbars();

  // True while a tick or a worker runs: no tick starts meanwhile.
  bool IsBusy() const { return busy_ > 0; }

  // Message boxes by table and index.
  void ShowError(int errorIndex);
  Language& language() const { return language_; }
  const modFile& files() const { return files_; }
  const Clock& clock() const { return clock_; }
  using Window::host;

 protected:
  void FormLoad() override;
  void FormUnload() override;

 private:
  friend class Busy;

  void FillCalendarNavigator();
  void ComposeFolders();
  void MenuClicked(const std::string& key);
  void ActionClicked(const std::string& key);
  void ShowOnly(int panel);

  const modFile& files_;
  const regAPI& registry_;
  Language& language_;
  const Clock& clock_;
  linkport& port_;
  JobTable jobs_;
  std::vector<SessionPart*> parts_;
  std::vector<Page*> pages_;
  Page* front_ = nullptr;
  int busy_ = 0;
};

// Marks the session busy for as long as it lives.
class Busy {
 public:
  explicit Busy(TessarinMenu& session) : session_(session) { ++session_.busy_; }
  ~Busy() { --session_.busy_; }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  TessarinMenu& session_;
};

}  // namespace tessarin
