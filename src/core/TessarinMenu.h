#pragma once

// The main window, which is the session: the shared state, the controls of all pages, the tables of
// pages and jobs, and the program's start and end.

#include <functional>
#include <memory>
#include <vector>

#include "codecs/modDate.h"
#include "codecs/modFile.h"
#include "controls/Basics.h"
#include "controls/Grid.h"
#include "controls/ItemList.h"
#include "controls/ListView.h"
#include "controls/Menu.h"
#include "controls/StatusBar.h"
#include "controls/Steppers.h"
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

enum class EditAct;

// Numbers of the status bar's panels.
namespace panel {
inline constexpr int kCount = 1;
inline constexpr int kConnection = 2;
inline constexpr int kModel = 3;
inline constexpr int kPage = 5;
inline constexpr int kBattery = 6;
}  // namespace panel

// The controls of a page that shows files of the phone beside files of the computer. `storage` and
// `preview` are null where the page has none.
struct FilePanes {
  int panel;
  TreeView& phoneTree;
  ListView& phoneList;
  TreeView& computerTree;
  ListView& computerList;
  Button& download;
  Button& upload;
  std::unique_ptr<Label> phoneHead;
  std::unique_ptr<Label> computerHead;
  ComboBox* storage;
  Picture* preview;
};

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
  std::vector<std::unique_ptr<Label>> lblAbout;  // what each page is for
  StartPanel start{*this};

  // File Explorer.
  TreeView tvwPhoneDir{*this, "tvwPhoneDir"};
  ListView lvwPhoneFile{*this, "lvwPhoneFile"};
  TreeView tvwPCDir{*this, "tvwPCDir"};
  ListView lvwPCFile{*this, "lvwPCFile"};
  Button icoDownload{*this, "icoDownload"};
  Button icoUpload{*this, "icoUpload"};
  ComboBox ComFolder{*this, "ComFolder"};

  // SMS/EMS.
  TreeView tvwPhoneSMS{*this, "tvwPhoneSMS"};
  ListView lvwPhoneSMS{*this, "lvwPhoneSMS"};
  TreeView tvwPCSMS{*this, "tvwPCSMS"};
  TextBox rtbSMS{*this, "rtbSMS"};

  // MMS.
  TreeView tvwPhoneMMS{*this, "tvwPhoneMMS"};
  ListView lvwPhoneMMS{*this, "lvwPhoneMMS"};
  TreeView tvwPCMMS{*this, "tvwPCMMS"};
  ListView lvwPCMMS{*this, "lvwPCMMS"};
  Button icoDownload1{*this, "icoDownload1"};
  Button icoUpload1{*this, "icoUpload1"};

  // Ringtone.
  TreeView tvwPhoneRingtone{*this, "tvwPhoneRingtone"};
  ListView lvwPhoneRingtone{*this, "lvwPhoneRingtone"};
  TreeView tvwPCRingtone{*this, "tvwPCRingtone"};
  ListView lvwPCRingtone{*this, "lvwPCRingtone"};
  Button icoDownload2{*this, "icoDownload2"};
  Button icoUpload2{*this, "icoUpload2"};
  ComboBox comboStorage{*this, "comboStorage"};
  Button cmdPlay{*this, "cmdPlay"};
  Button cmdPause{*this, "cmdPause"};
  Button cmdStop{*this, "cmdStop"};

  // Picture.
  TreeView tvwPhoneLogo{*this, "tvwPhoneLogo"};
  ListView lvwPhoneLogo{*this, "lvwPhoneLogo"};
  TreeView tvwPCLogo{*this, "tvwPCLogo"};
  ListView lvwPCLogo{*this, "lvwPCLogo"};
  Button icoDownload3{*this, "icoDownload3"};
  Button icoUpload3{*this, "icoUpload3"};
  ComboBox combostore{*this, "combostore"};
  CheckBox Check1{*this, "Check1"};  // whether a picture that is selected is shown
  Picture previewLogo{*this, "previewLogo"};

  // Theme.
  TreeView tvwPhonePhoto{*this, "tvwPhonePhoto"};
  ListView lvwPhonePhoto{*this, "lvwPhonePhoto"};
  TreeView tvwPCPhoto{*this, "tvwPCPhoto"};
  ListView lvwPCPhoto{*this, "lvwPCPhoto"};
  Button icoDownload4{*this, "icoDownload4"};
  Button icoUpload4{*this, "icoUpload4"};
  ComboBox comboStorage3{*this, "comboStorage3"};
  Picture previewPhoto{*this, "previewPhoto"};

  // Movie.
  TreeView tvwPhoneMovie{*this, "tvwPhoneMovie"};
  ListView lvwPhoneMovie{*this, "lvwPhoneMovie"};
  TreeView tvwPCMovie{*this, "tvwPCMovie"};
  ListView lvwPCMovie{*this, "lvwPCMovie"};
  Button icoDownload5{*this, "icoDownload5"};
  Button icoUpload5{*this, "icoUpload5"};
  ComboBox comboStorage2{*this, "comboStorage2"};

  // Calendar: the choice of the view, the navigator of year, month and day, and three views.
  ComboBox ViewMode{*this, "ViewMode"};
  Label cYear{*this, "cYear"};
  TextBox Text1{*this, "Text1"};
  UpDown UpDown1{*this, "UpDown1"};
  Label cMonth{*this, "cMonth"};
  ComboBox Combo2{*this, "Combo2"};
  Label cDay{*this, "cDay"};
  ComboBox Combo3{*this, "Combo3"};
  Button cmdToday{*this, "cmdToday"};
  Label lblPeriod{*this, "lblPeriod"};  // the month or the day that is shown
  Panel frmAllEvent{*this, "frmAllEvent"};
  Grid MSHFlexGrid1{*this, "MSHFlexGrid1"};
  Panel frmMonthlyEvent{*this, "frmMonthlyEvent"};
  Grid MSHFlexGrid2{*this, "MSHFlexGrid2"};
  Panel frmDailyEvent{*this, "frmDailyEvent"};
  Grid MSHFlexGrid3{*this, "MSHFlexGrid3"};
  Label lblNoEntries{*this, "lblNoEntries"};  // in place of the views of an empty calendar

  // Phonebook.
  TreeView tvwPhonePhonebook{*this, "tvwPhonePhonebook"};
  ListView lvwPhonePhonebook{*this, "lvwPhonePhonebook"};
  TreeView tvwPCPhonebook{*this, "tvwPCPhonebook"};
  TextBox rtbPhonebook{*this, "rtbPhonebook"};

  Label Lbstatus{*this, "Lbstatus"};
  StatusBar StatusBar1{*this, "StatusBar1", 6};
  Timer Timer1{*this, "Timer1", 1000};  // one job a tick
  Timer Timer2{*this, "Timer2", 10};    // one port of the scan a tick
  // Each looks for the folder that its page starts in.
  Timer TimerPicture{*this, "TimerPicture", 100};
  Timer TimerMovie{*this, "TimerMovie", 100};
  Timer timerRingtone{*this, "timerRingtone", 100};

  // The six pages of files, in the order of their panels.
  const std::vector<FilePanes>& filePanes() const { return filePanes_; }

  // Both before the window is shown. The parts must outlive the window; their order is the order
  // of their moments.
  void AddPart(SessionPart& part) { parts_.push_back(&part); }
  void AddPage(Page& page);
  const std::vector<SessionPart*>& parts() const { return parts_; }
  JobTable& jobs() { return jobs_; }
  // What `SubHelp` opens for the page in front.
  void SetHelp(std::function<void(int panel)> help) { help_ = std::move(help); }

  // Brings a page to the front.
  void ShowPage(int panel);
  // Hides all pages and shows the start panel.
  void ShowStartPanel();
  int panelInFront() const { return front_; }

  // Every job calls this last.
  void SetCommandIdle() { commandState = job::kIdlePoll; }
  // The status display for the present language: whether a phone is there, which, and where.
  void UpdateStatusTexts(StatusPhase phase);
  // Reads the session's language file and sets every word of the window.
  void ApplyInterfaceTexts();
  // The choice of a language in the menu.
  void ChangeLanguage(int index);
  // The eight controls that show the phone's content, and `PhoneInfo`. Disabling them disables the
  // pages as well.
  void EnablePhoneControls(bool enabled);
  // The pages that need a phone, in the menu and in the page bar.
  void EnablePages(bool enabled);
  // The page bar has the File page from the start; the others come with the first phone.
  void RebuildToolbars();
  // Enables what the page in front can do at this moment.
  void UpdateActions();

  // The phone's top-level folders and the choices among them are no longer known.
  void ForgetStorage();

  // True while a tick or a worker runs: no tick starts meanwhile.
  bool IsBusy() const { return busy_ > 0; }

  // A message box by table and index.
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

  void MakeFilePanes();
  void ConnectControls();
  void FillCalendarNavigator();
  void ComposeFolders();
  void ApplyPanelTexts();
  void MenuClicked(const std::string& key);
  // In the open Edit menu only what would do something is enabled; while it is closed all are, so
  // that their keys work.
  void EnableEditEntries(const std::string& menu, bool open);
  void Edit(EditAct act);
  // The action by which the page in front deletes what is selected in the control in focus.
  std::string_view DeletionInFocus() const;
  void DoAction(std::string_view action);
  void ShowOnly(int panel);
  void UpdateTitle();
  Page* FrontPage() const;

  const modFile& files_;
  const regAPI& registry_;
  Language& language_;
  const Clock& clock_;
  linkport& port_;
  std::vector<FilePanes> filePanes_;
  JobTable jobs_;
  std::vector<SessionPart*> parts_;
  std::vector<Page*> pages_;
  std::function<void(int panel)> help_;
  int front_;
  bool pagesEnabled_ = false;
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
