// Every word of the main window.

#include "codecs/Faults.h"
#include "controls/WindowHost.h"
#include "core/MainMenu.h"
#include "core/PageTable.h"
#include "core/TessarinMenu.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

// Column heads and widths at 100 %.
struct Column {
  int heading;  // interface text, -1 for none
  int width;
  bool numbers = false;
  bool visible = true;
};

const std::vector<Column> kPhoneFileColumns = {{words::kColumnFileName, 140},
                                               {words::kColumnPhoneSize, 65, true},
                                               {words::kColumnFileType, 55}};
const std::vector<Column> kComputerFileColumns = {{words::kColumnFileName, 135},
                                                  {words::kColumnComputerSize, 90, true},
                                                  {words::kColumnFileType, 90},
                                                  {words::kColumnComputerDate, 118}};
const std::vector<Column> kMessageColumns = {{-1, 24},
                                             {words::kColumnMessageStore, 80},
                                             {words::kColumnMessageSender, 130},
                                             {words::kColumnMessageText, 310},
                                             {words::kColumnPhoneDate, 165}};
const std::vector<Column> kContactColumns = {
    {words::kColumnFileName, 200}, {words::kColumnNumbers, 420}, {-1, 0, false, false}};

}  // namespace

void TessarinMenu::ApplyInterfaceTexts() {
  language_.readLangFile(languageIndex);
  const auto word = [this](int index) { return language_.getTSInterfaceStr(index); };
  host().SetWords({.ok = word(words::kButtonOk),
                   .cancel = word(words::kButtonCancel),
                   .yes = word(words::kButtonYes),
                   .no = word(words::kButtonNo),
                   .faultTitle = word(words::kFaultTitle),
                   .divider = word(words::kNameDivider),
                   .fault = language_.getTSErrStr(text::error::kFault),
                   .folder = word(words::kDialogFolder),
                   .fileName = word(words::kDialogFileName),
                   .fileType = word(words::kDialogFileType),
                   .save = word(words::kDialogSave),
                   .isoCode = kLanguages[static_cast<std::size_t>(language_.index())].isoCode});
  ApplyMenuTexts(MainMenu, language_);
  for (const LanguageRow& row : kLanguages) {
    MainMenu.Check(row.menuKey, &row == &kLanguages[static_cast<std::size_t>(languageIndex)]);
  }
  RebuildToolbars();
  ApplyPanelTexts();
  for (SessionPart* part : parts_) part->ApplyTexts();
  UpdateTitle();
  UpdateActions();
}

void TessarinMenu::ApplyPanelTexts() {
  const auto word = [this](int index) { return language_.getTSInterfaceStr(index); };
  const auto columns = [&](const std::vector<Column>& table) {
    std::vector<ListColumn> heads;
    heads.reserve(table.size());
    for (const Column& column : table) {
      heads.push_back({column.heading < 0 ? Text() : word(column.heading), column.width,
                       column.numbers, column.visible});
    }
    return heads;
  };
  for (std::size_t i = 0; i < kPages.size(); ++i) {
    ToolFrame[i]->accessibleName = word(kPages[i].caption);
    lblAbout[i]->text = word(kPages[i].about);
  }
  ToolFrame[kStartPanel]->accessibleName = word(words::kNameStartPanel);
  for (const FilePanes& panes : filePanes_) {
    panes.phoneTree.accessibleName = word(words::kNamePhoneFolders);
    panes.phoneList.accessibleName = word(words::kNamePhoneFiles);
    panes.computerTree.accessibleName = word(words::kNameComputerFolders);
    panes.computerList.accessibleName = word(words::kNameComputerFiles);
    panes.phoneHead->text = word(words::kPanePhone);
    panes.computerHead->text = word(words::kPaneComputer);
    panes.phoneList.columns = columns(kPhoneFileColumns);
    panes.computerList.columns = columns(kComputerFileColumns);
    panes.download.toolTip = panes.download.accessibleName = word(words::kDownloadTip);
    panes.upload.toolTip = panes.upload.accessibleName = word(words::kUploadTip);
    if (panes.storage != nullptr) panes.storage->accessibleName = word(words::kNameStorage);
  }
  lvwPhoneSMS.columns = columns(kMessageColumns);
  lvwPhonePhonebook.columns = columns(kContactColumns);
  const std::pair<Control*, int> names[] = {{&MainMenu, words::kNameMainMenu},
                                            {&Toolbar2, words::kNamePageBar},
                                            {&Toolbar1, words::kNameActionBar},
                                            {&StatusBar1, words::kNameStatusBar},
                                            {&tvwPhoneSMS, words::kNameMessageFolders},
                                            {&lvwPhoneSMS, words::kNameMessages},
                                            {&tvwPCSMS, words::kNameComputerFolders},
                                            {&rtbSMS, words::kNameMessageText},
                                            {&previewLogo, words::kNamePicturePreview},
                                            {&previewPhoto, words::kNameThemePreview},
                                            {&Text1, words::kYear},
                                            {&UpDown1, words::kNameYearStep},
                                            {&Combo2, words::kMonth},
                                            {&Combo3, words::kDay},
                                            {&MSHFlexGrid1, words::kNameAllEntries},
                                            {&tvwPhonePhonebook, words::kNameMemories},
                                            {&lvwPhonePhonebook, words::kNameContacts},
                                            {&tvwPCPhonebook, words::kNameComputerFolders},
                                            {&rtbPhonebook, words::kNameContactDetails}};
  for (const auto& [control, name] : names) control->accessibleName = word(name);
  for (int number = panel::kCount; number <= panel::kBattery; ++number) {
    StatusBar1.SetAccessibleName(number, word(words::kNameStatusPanels + number - 1));
  }
  const std::pair<Property<Text>*, int> captions[] = {
      {&cmdPlay.caption, words::kPlay},   {&cmdPause.caption, words::kPause},
      {&cmdStop.caption, words::kStop},   {&cYear.text, words::kYear},
      {&Check1.caption, words::kPreview}, {&previewLogo.emptyText, words::kPreviewHint},
      {&cMonth.text, words::kMonth},      {&cDay.text, words::kDay}};
  for (const auto& [shown, index] : captions) *shown = word(index);
}

void TessarinMenu::UpdateStatusTexts(StatusPhase phase) {
  const auto word = [this](int index) { return language_.getTSInterfaceStr(index); };
  if (phase == kNoPhone) {
    StatusBar1.SetText(panel::kConnection, word(words::kStatusNoPhone));
    Lbstatus.accessibleName = word(words::kNameConnectionState);
  } else {
    Lbstatus.text = word(words::kStatusCaption);
    Lbstatus.accessibleName = word(words::kNameConnectionState) + u": " + Lbstatus.text();
    StatusBar1.SetText(panel::kConnection, word(words::kStatusConnected));
    StatusBar1.SetText(panel::kModel,
                       phoneModel + word(words::kStatusSeparator) + u"COM" + ToText(connectedPort));
  }
  start.Update(*this, language_);
}

// The page bar's pictures stay where they are; their words are those of the new language.
void TessarinMenu::ChangeLanguage(int index) {
  languageIndex = index;
  ApplyInterfaceTexts();
  UpdateStatusTexts(statusPhase);
  try {
    registry_.RegSetValue(kRegistryKey, kRegistryLanguage,
                          kLanguages[static_cast<std::size_t>(index)].writtenCode, RegType::String);
  } catch (const FileError& fault) {
    // The language holds for this run; only the choice could not be kept.
    host().MessageBox(fault.Message(), MessageKind::Error);
  }
}

}  // namespace tessarin
