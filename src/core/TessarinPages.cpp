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

void TessarinMenu::ForgetStorage() {
  storageNames.clear();
  for (Text* root : {&storageRoot, &storageRoot2, &storageRoot3, &themeStorageRoot}) {
    root->clear();
  }
  for (ComboBox* box : {&ComFolder, &comboStorage, &combostore, &comboStorage2, &comboStorage3}) {
    box->Clear();
  }
}

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
  pagesEnabled_ = pagesEnabled_ && enabled;
  if (!enabled) EnablePages(false);
}

void TessarinMenu::EnablePages(bool enabled) {
  pagesEnabled_ = enabled;
  for (const PageRow& page : kPages) {
    if (page.needsPhone) MainMenu.Enable(page.menuKey, enabled);
  }
  RebuildToolbars();
}

void TessarinMenu::RebuildToolbars() {
  std::vector<ToolbarButton> buttons;
  for (std::size_t i = 0; i < kPages.size(); ++i) {
    const PageRow& page = kPages[i];
    if (pages_[i] == nullptr || (i > 0 && !phoneWasSeen)) continue;
    ToolbarButton button;
    button.key = page.key;
    button.caption = language_.getTSInterfaceStr(page.caption);
    button.toolTip = language_.getTSInterfaceStr(page.about);
    button.image = page.image;
    button.enabled = pagesEnabled_ || !page.needsPhone;
    button.pressed = front_ == static_cast<int>(i);
    buttons.push_back(std::move(button));
  }
  Toolbar2.Fill(std::move(buttons));
}

void TessarinMenu::ShowOnly(int number) {
  for (const auto& frame : ToolFrame) {
    if (frame != ToolFrame[static_cast<std::size_t>(number)]) frame->visible = false;
  }
  ToolFrame[static_cast<std::size_t>(number)]->visible = true;
  front_ = number;
  StatusBar1.SetText(panel::kCount, u"");
  Toolbar2.Press(number == kStartPanel ? "" : kPages[static_cast<std::size_t>(number)].key);
  UpdateTitle();
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
  std::vector<ToolbarButton> buttons;
  if (page != nullptr) buttons = PageActions(front_, phoneModel, language_);
  for (auto& button : buttons) button.enabled = can(button.key);
  Toolbar1.Fill(std::move(buttons));
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

void TessarinMenu::ShowStartPanel() {
  ShowOnly(kStartPanel);
  UpdateActions();
}

void TessarinMenu::ShowPage(int number) {
  const auto index = static_cast<std::size_t>(number);
  if (number < 0 || index >= pages_.size() || pages_[index] == nullptr) return;
  ShowOnly(number);
  currentPage = kPages[index].kind;
  pages_[index]->Show();
  UpdateActions();
}

void TessarinMenu::DoAction(std::string_view action) {
  Page* page = FrontPage();
  if (page != nullptr && page->CanDo(action)) page->Do(action);
}

void TessarinMenu::EnableEditEntries(const std::string& menu, bool open) {
  if (menu != "Edit") return;
  for (const EditEntry& entry : kEditEntries) {
    const auto deletion = entry.act == EditAct::Delete ? DeletionInFocus() : std::string_view();
    const bool can =
        deletion.empty() ? host().CanEditInFocus(entry.act) : FrontPage()->CanDo(deletion);
    MainMenu.Enable(entry.key, !open || can);
  }
}

void TessarinMenu::MenuClicked(const std::string& key) {
  constexpr std::pair<const char*, void (*)(TessarinMenu&)> kActs[] = {
      {"PhoneInfo", [](TessarinMenu& menu) { menu.commandState = job::kPhoneInfo; }},
      {"Exit1", [](TessarinMenu& menu) { menu.Unload(); }},
      {"SubHelp",
       [](TessarinMenu& menu) {
         if (menu.help_ != nullptr) menu.help_(menu.front_);
       }},
      {"About",
       [](TessarinMenu& menu) { frmAbout(menu.host(), menu.language_).Show(Modality::Modal); }},
      {"mnuPhonebookSync", [](TessarinMenu& menu) { menu.DoAction("Sync"); }},
      {"mnuCalendarSync", [](TessarinMenu& menu) { menu.DoAction("Sync"); }}};
  for (const auto& [entry, act] : kActs) {
    if (key == entry) return act(*this);
  }
  for (const EditEntry& entry : kEditEntries) {
    if (key == entry.key) return Edit(entry.act);
  }
  for (std::size_t index = 0; index < kLanguages.size(); ++index) {
    if (key == kLanguages[index].menuKey) return ChangeLanguage(static_cast<int>(index));
  }
  const auto action = ActionOfContextEntry(key);
  action.empty() ? ShowPage(PanelOf(key)) : DoAction(action);
}

std::string_view TessarinMenu::DeletionInFocus() const {
  const Page* page = FrontPage();
  const Control* focus = host().Focus();
  return page == nullptr || focus == nullptr ? std::string_view() : page->DeletionIn(*focus);
}

// A key that is pressed in a tree, or on a button, must not cost the user what is selected beside.
void TessarinMenu::Edit(EditAct act) {
  const auto deletion = act == EditAct::Delete ? DeletionInFocus() : std::string_view();
  deletion.empty() ? host().EditInFocus(act) : DoAction(deletion);
}

}  // namespace tessarin
