// The main window's pages, toolbars and menus at work.

#include <algorithm>

#include "controls/WindowHost.h"
#include "core/MainMenu.h"
#include "core/PageTable.h"
#include "core/TessarinMenu.h"
#include "core/TextIndex.h"
#include "core/frmAbout.h"

namespace tessarin {

namespace {

constexpr char16_t kTitle[] = u"Tessarin";

struct EditEntry {
  const char* key;
  EditAct act;
};

constexpr EditEntry kEditEntries[] = {{"Cut", EditAct::Cut},
                                      {"Copy", EditAct::Copy},
                                      {"Paste", EditAct::Paste},
                                      {"Delete", EditAct::Delete},
                                      {"SelectAll", EditAct::SelectAll}};

}  // namespace

Page* TessarinMenu::FrontPage() const {
  return front_ == kStartPanel ? nullptr : pages_[static_cast<std::size_t>(front_)];
}

void TessarinMenu::EnablePhoneControls(bool enabled) {
  for (Control* control : std::initializer_list<Control*>{
           &tvwPhoneDir, &lvwPhoneFile, &lvwPhoneSMS, &lvwPhoneRingtone, &lvwPhoneLogo,
           &lvwPhonePhoto, &lvwPhoneMovie, &lvwPhonePhonebook}) {
    control->enabled = enabled;
  }
  MainMenu.Enable("PhoneInfo", enabled);
  for (const PageRow& page : kPages) {
    if (!page.needsPhone) continue;
    MainMenu.Enable(page.menuKey, enabled);
    Toolbar2.Enable(page.key, enabled);
  }
}

void TessarinMenu::RebuildToolbars() {
  Toolbar2.Clear();
  for (std::size_t i = 0; i < kPages.size(); ++i) {
    if (pages_[i] == nullptr || (i > 0 && !phoneWasSeen)) continue;
    ToolbarButton button;
    button.key = kPages[i].key;
    button.caption = language_.getTSInterfaceStr(kPages[i].caption);
    button.toolTip = language_.getTSInterfaceStr(kPages[i].about);
    button.image = kPages[i].image;
    button.pressed = front_ == static_cast<int>(i);
    Toolbar2.Add(std::move(button));
  }
}

void TessarinMenu::ShowOnly(int number) {
  for (int index = 0; index <= kStartPanel; ++index) {
    ToolFrame[static_cast<std::size_t>(index)]->visible = index == number;
  }
  front_ = number;
  Toolbar2.Press(number == kStartPanel ? "" : kPages[static_cast<std::size_t>(number)].key);
  UpdateTitle();
  UpdateActions();
}

// The File Explorer's title is the same in every language.
void TessarinMenu::UpdateTitle() {
  if (front_ == kStartPanel) {
    caption = kTitle;
  } else if (front_ == kFilePanel) {
    caption = u"Tessarin - File Explorer";
  } else {
    const int name = kPages[static_cast<std::size_t>(front_)].caption;
    caption = kTitle + Text(u" - ") + language_.getTSInterfaceStr(name);
  }
}

void TessarinMenu::UpdateActions() {
  const Page* page = FrontPage();
  const auto can = [page](std::string_view action) {
    return page != nullptr && page->CanDo(action);
  };
  Toolbar1.Clear();
  if (page != nullptr) {
    for (auto& button : PageActions(front_, phoneModel, language_)) {
      button.enabled = can(button.key);
      Toolbar1.Add(std::move(button));
    }
  }
  for (const auto& menu : MainMenu.entries()) {
    for (const auto& entry : menu.entries) {
      const auto action = ActionOfContextEntry(entry.key);
      if (!action.empty()) MainMenu.Enable(entry.key, can(action));
    }
  }
  const bool connected = statusPhase == kPhonePresent;
  MainMenu.Enable("mnuPhonebookSync", connected && front_ == kPhonebookPanel && can("Sync"));
  MainMenu.Enable("mnuCalendarSync", connected && front_ == kCalendarPanel && can("Sync"));
}

void TessarinMenu::ShowStartPanel() { ShowOnly(kStartPanel); }

void TessarinMenu::ShowPage(int number) {
  if (number < 0 || pages_[static_cast<std::size_t>(number)] == nullptr) return;
  ShowOnly(number);
  currentPage = kPages[static_cast<std::size_t>(number)].kind;
  FrontPage()->Show();
}

void TessarinMenu::DoAction(std::string_view action) {
  Page* page = FrontPage();
  if (page != nullptr && page->CanDo(action)) page->Do(action);
}

void TessarinMenu::MenuClicked(const std::string& key) {
  if (key == "PhoneInfo") commandState = job::kPhoneInfo;
  if (key == "Exit1") Unload();
  if (key == "About") frmAbout(host(), language_).Show(Modality::Modal);
  if (key == "SubHelp" && help_ != nullptr) help_(front_);
  if (key == "mnuPhonebookSync" || key == "mnuCalendarSync") DoAction("Sync");
  for (const EditEntry& entry : kEditEntries) {
    if (key == entry.key && !host().EditInFocus(entry.act) && entry.act == EditAct::Delete) {
      DoAction("Delete");
    }
  }
  for (std::size_t index = 0; index < kLanguages.size(); ++index) {
    if (key == kLanguages[index].menuKey) ChangeLanguage(static_cast<int>(index));
  }
  const auto action = ActionOfContextEntry(key);
  if (!action.empty()) DoAction(action);
  ShowPage(PanelOf(key));
}

}  // namespace tessarin
