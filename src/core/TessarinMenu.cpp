// The main window's life.

#include "core/TessarinMenu.h"

#include "controls/WindowHost.h"
#include "core/MainMenu.h"
#include "core/PageTable.h"

namespace tessarin {

namespace {

constexpr char16_t kPreviewFile[] = u"\\Temp\\temp.mid";

struct Folder {
  std::filesystem::path Session::*field;
  const char16_t* literal;
};

constexpr Folder kFolders[] = {
    {&Session::javaFolder, u"\\UserData\\Java"},
    {&Session::smsFolder, u"\\UserData\\SMS"},
    {&Session::ringtoneFolder, u"\\UserData\\Ringtone"},
    {&Session::pictureFolder, u"\\UserData\\Picture"},
    {&Session::themeFolder, u"\\UserData\\Theme"},
    {&Session::movieFolder, u"\\UserData\\Movie"},
    {&Session::calendarFolder, u"\\UserData\\Calendar"},
    {&Session::phonebookFolder, u"\\UserData\\Phonebook"},
    {&Session::mmsFolder, u"\\UserData\\MMS"},
};

}  // namespace

TessarinMenu::TessarinMenu(const Needs& needs)
    : Window(needs.host, "TessarinMenu"),
      files_(needs.files),
      registry_(needs.registry),
      language_(needs.language),
      clock_(needs.clock),
      port_(needs.port),
      pages_(kPages.size(), nullptr),
      front_(kStartPanel) {
  for (int index = 0; index <= kStartPanel; ++index) {
    ToolFrame.push_back(std::make_unique<Panel>(*this, "ToolFrame" + std::to_string(index)));
  }
  for (std::size_t index = 0; index < kPages.size(); ++index) {
    lblAbout.push_back(std::make_unique<Label>(*this, "lblAbout" + std::to_string(index)));
  }
  MakeFilePanes();
  for (const FilePanes& panes : filePanes_) {
    panes.download.image = "download";
    panes.upload.image = "upload";
  }
  const std::pair<Button*, const char*> player[] = {
      {&cmdPlay, "play"}, {&cmdPause, "pause"}, {&cmdStop, "stop"}};
  for (const auto& [button, image] : player) button->image = image;
  MainMenu.Define(MainMenuEntries());
  ConnectControls();
}

void TessarinMenu::MakeFilePanes() {
  const auto add = [this](int panel, TreeView& phoneTree, ListView& phoneList,
                          TreeView& computerTree, ListView& computerList, Button& download,
                          Button& upload, ComboBox* storage, Picture* preview) {
    const std::string number = std::to_string(panel);
    filePanes_.push_back({panel, phoneTree, phoneList, computerTree, computerList, download, upload,
                          std::make_unique<Label>(*this, "lblPhone" + number),
                          std::make_unique<Label>(*this, "lblComputer" + number), storage,
                          preview});
  };
  add(0, tvwPhoneDir, lvwPhoneFile, tvwPCDir, lvwPCFile, icoDownload, icoUpload, &ComFolder,
      nullptr);
  add(2, tvwPhoneMMS, lvwPhoneMMS, tvwPCMMS, lvwPCMMS, icoDownload1, icoUpload1, nullptr, nullptr);
  add(3, tvwPhoneRingtone, lvwPhoneRingtone, tvwPCRingtone, lvwPCRingtone, icoDownload2, icoUpload2,
      &comboStorage, nullptr);
  add(4, tvwPhoneLogo, lvwPhoneLogo, tvwPCLogo, lvwPCLogo, icoDownload3, icoUpload3, &combostore,
      &previewLogo);
  add(5, tvwPhonePhoto, lvwPhonePhoto, tvwPCPhoto, lvwPCPhoto, icoDownload4, icoUpload4,
      &comboStorage3, &previewPhoto);
  add(6, tvwPhoneMovie, lvwPhoneMovie, tvwPCMovie, lvwPCMovie, icoDownload5, icoUpload5,
      &comboStorage2, nullptr);
}

void TessarinMenu::ConnectControls() {
  MainMenu.clicked.Always([this](const std::string& key) { MenuClicked(key); });
  MainMenu.opening.Always([this](const std::string& key) { EnableEditEntries(key, true); });
  MainMenu.closed.Always([this](const std::string& key) { EnableEditEntries(key, false); });
  Toolbar1.clicked.Always([this](const std::string& key) { DoAction(key); });
  Toolbar2.clicked.Always([this](const std::string& key) { ShowPage(PanelOf(key)); });
  for (std::size_t i = 0; i < kNextSteps.size(); ++i) {
    start.cmdNext[i]->clicked.Always([this, i] { ShowPage(kNextSteps[i].panel); });
  }
  const std::pair<Control*, const char*> contextMenus[] = {{&lvwPCFile, "mnuClickPC"},
                                                           {&lvwPhoneFile, "mnuClickPhone"},
                                                           {&tvwPhoneDir, "mnuClickPhone"},
                                                           {&lvwPhoneSMS, "mnuClickSMS"},
                                                           {&lvwPhoneRingtone, "mnuClickRingtone"},
                                                           {&lvwPhoneLogo, "mnuClickLogo"},
                                                           {&lvwPhonePhoto, "mnuClickPhoto"},
                                                           {&lvwPhoneMovie, "mnuClickMovie"},
                                                           {&MSHFlexGrid1, "mnuClickCalendar"}};
  for (const auto& [control, menu] : contextMenus) {
    control->contextMenuRequested.Always([this, key = menu] { MainMenu.PopUp(key); });
  }
}

void TessarinMenu::AddPage(Page& page) {
  pages_[static_cast<std::size_t>(page.panel())] = &page;
  AddPart(page);
}

void TessarinMenu::FormLoad() {
  batteryFrame = 1;
  FillCalendarNavigator();
  ComposeFolders();
  scanPort = 3;
  statusPhase = kNoPhone;
  batteryState = 0;
  languageIndex = LanguageIndexOf(registry_.RegGetString(kRegistryKey, kRegistryLanguage));
  EnablePhoneControls(false);
  ApplyInterfaceTexts();
  UpdateStatusTexts(statusPhase);
  ShowStartPanel();
  isClosing = false;
  commandState = job::kStartScan;
  Timer1.enabled = true;
}

// The phone may be in OBEX mode still; the next run's first step brings it back.
void TessarinMenu::FormUnload() {
  isClosing = true;
  Timer1.enabled = false;
  Timer2.enabled = false;
  port_.serial_close();
  // Whatever one step meets, the others must have their turn: the lists are at stake.
  const auto always = [](const auto& step) {
    try {
      step();
    } catch (...) {
      return;  // nobody is left who could be told
    }
  };
  always([this] { host().UnloadOthers(*this); });
  for (SessionPart* part : parts_) always([part] { part->Unloading(); });
  std::error_code ignored;  // a preview file that stays behind is overwritten by the next preview
  std::filesystem::remove(files_.Path(kPreviewFile), ignored);
}

void TessarinMenu::FillCalendarNavigator() {
  const DateParts today = modDate::Unpack(clock_.Now());
  Text1.text = ToText(today.year);
  Combo2.Clear();
  for (int month = 1; month <= 12; ++month) Combo2.Add(ToText(month));
  Combo2.Select(today.month - 1);
  // The last day of a month is the day before the first of the next.
  const int days = modDate::Unpack(modDate::PackDate(today.year, today.month + 1, 1) - 1).day;
  Combo3.Clear();
  for (int day = 1; day <= days; ++day) Combo3.Add(ToText(day));
  Combo3.Select(today.day - 1);
}

void TessarinMenu::ComposeFolders() {
  std::error_code ignored;  // a folder that cannot be made is told of when it is used
  for (const Folder& folder : kFolders) {
    this->*folder.field = files_.Path(folder.literal);
    std::filesystem::create_directories(this->*folder.field, ignored);
  }
}

void TessarinMenu::ShowError(int errorIndex) {
  host().MessageBox(language_.getTSErrStr(errorIndex), MessageKind::Error);
}

}  // namespace tessarin
