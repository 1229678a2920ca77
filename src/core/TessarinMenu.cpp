#include "core/TessarinMenu.h"

#include "controls/WindowHost.h"
#include "core/MainMenu.h"
#include "core/PageTable.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

constexpr char16_t kTitle[] = u"Tessarin";
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

struct Action {
  const char* key;
  void (Page::*act)();
};

constexpr Action kActions[] = {
    {"New", &Page::New},   {"Save", &Page::Save},       {"Delete", &Page::Delete},
    {"Edit", &Page::Edit}, {"Refresh", &Page::Refresh}, {"Sync", &Page::Sync},
};

}  // namespace

TessarinMenu::TessarinMenu(const Needs& needs)
    : Window(needs.host, "TessarinMenu"),
      files_(needs.files),
      registry_(needs.registry),
      language_(needs.language),
      clock_(needs.clock),
      port_(needs.port),
      pages_(kPages.size(), nullptr) {
  for (int index = 0; index <= kStartPanel; ++index) {
    ToolFrame.push_back(std::make_unique<Panel>(*this, "ToolFrame" + std::to_string(index)));
  }
  caption = kTitle;
  MainMenu.Define(MainMenuEntries());
  MainMenu.clicked.Always([this](const std::string& key) { MenuClicked(key); });
  Toolbar1.clicked.Always([this](const std::string& key) { ActionClicked(key); });
  Toolbar2.clicked.Always([this](const std::string& key) {
    for (std::size_t i = 0; i < kPages.size(); ++i) {
      if (key == kPages[i].key) ShowPage(static_cast<int>(i));
    }
  });
  start.cmdOpenFiles.clicked.Always([this] { ShowPage(0); });
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
  host().UnloadOthers(*this);
  for (SessionPart* part : parts_) part->Unloading();
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
  for (const Folder& folder : kFolders) this->*folder.field = files_.Path(folder.literal);
}

void TessarinMenu::ApplyInterfaceTexts() {
  language_.readLangFile(languageIndex);
  ApplyMenuTexts(MainMenu, language_);
  RebuildToolbars();
  for (SessionPart* part : parts_) part->ApplyTexts();
  StatusBar1.SetAccessibleName(panel::kBattery, language_.getTSInterfaceStr(words::kStartBattery));
  if (front_ != nullptr) ShowOnly(front_->panel());
}

void TessarinMenu::UpdateStatusTexts(StatusPhase phase) {
  const auto word = [this](int index) { return language_.getTSInterfaceStr(index); };
  if (phase == kNoPhone) {
    StatusBar1.SetText(panel::kConnection, word(words::kStatusNoPhone));
  } else {
    Lbstatus.text = word(words::kStatusCaption);
    StatusBar1.SetText(panel::kConnection, word(words::kStatusConnected));
    StatusBar1.SetText(panel::kModel,
                       phoneModel + word(words::kStatusSeparator) + u"COM" + ToText(connectedPort));
  }
  start.Update(*this, language_);
}

void TessarinMenu::EnablePhoneControls(bool enabled) {
  for (Control* control : std::initializer_list<Control*>{
           &tvwPhoneDir, &lvwPhoneFile, &lvwPhoneSMS, &lvwPhoneRingtone, &lvwPhoneLogo,
           &lvwPhonePhoto, &lvwPhoneMovie, &lvwPhonePhonebook}) {
    control->enabled = enabled;
  }
  MainMenu.Enable("PhoneInfo", enabled);
}

void TessarinMenu::RebuildToolbars() {
  Toolbar2.Clear();
  for (std::size_t i = 0; i < kPages.size(); ++i) {
    if (pages_[i] == nullptr || (i > 0 && !phoneWasSeen)) continue;
    const Text words = language_.getTSInterfaceStr(kPages[i].caption);
    Toolbar2.Add({kPages[i].key, words, words, kPages[i].image});
  }
}

void TessarinMenu::ShowOnly(int number) {
  for (int index = 0; index <= kStartPanel; ++index) {
    ToolFrame[static_cast<std::size_t>(index)]->visible = index == number;
  }
  Toolbar1.Clear();
  const bool isPage = number != kStartPanel;
  front_ = isPage ? pages_[static_cast<std::size_t>(number)] : nullptr;
  Toolbar2.Press(isPage ? kPages[static_cast<std::size_t>(number)].key : "");
  if (front_ == nullptr) {
    caption = kTitle;
    return;
  }
  for (auto& button : front_->Actions()) Toolbar1.Add(std::move(button));
  caption = kTitle + Text(u" - ") +
            language_.getTSInterfaceStr(kPages[static_cast<std::size_t>(number)].caption);
}

void TessarinMenu::ShowStartPanel() { ShowOnly(kStartPanel); }

void TessarinMenu::ShowPage(int number) {
  Page* page = pages_[static_cast<std::size_t>(number)];
  if (page == nullptr) return;
  ShowOnly(number);
  currentPage = page->kind();
  page->Show();
}

void TessarinMenu::MenuClicked(const std::string& key) {
  if (key == "PhoneInfo") commandState = job::kPhoneInfo;
  if (key == "Exit1") Unload();
  for (std::size_t i = 0; i < kPages.size(); ++i) {
    if (key == kPages[i].menuKey) ShowPage(static_cast<int>(i));
  }
}

void TessarinMenu::ActionClicked(const std::string& key) {
  if (front_ == nullptr) return;
  for (const Action& action : kActions) {
    if (key == action.key) (front_->*action.act)();
  }
}

void TessarinMenu::ShowError(int errorIndex) {
  host().MessageBox(language_.getTSErrStr(errorIndex), MessageKind::Error);
}

}  // namespace tessarin
