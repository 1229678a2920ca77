#include "messages/SmsPage.h"

#include <algorithm>
#include <map>
#include <utility>

#include "codecs/Faults.h"
#include "controls/WindowHost.h"
#include "core/TextIndex.h"
#include "messages/MessageJobs.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

constexpr char16_t kRoot[] = u"Node1";
constexpr int kFolders = 4;  // one for each status
constexpr int kSenderColumn = 2;
constexpr int kTextColumn = 3;
constexpr int kTimeColumn = 4;

Text FolderKey(int stat) { return u"S" + ToText(stat); }

// The status that a folder shows; -1 for the root, and for nothing.
int StatusOf(const Text& folderKey) {
  for (int stat = 0; stat < kFolders; ++stat) {
    if (folderKey == FolderKey(stat)) return stat;
  }
  return -1;
}

}  // namespace

SmsPage::SmsPage(TessarinMenu& session, linkport& port, ATMessages& messages,
                 frmSplashTransmission& busyWindow, frmComposeSMS& composer, NameOfNumber nameOf)
    : session_(session),
      port_(port),
      messages_(messages),
      busyWindow_(busyWindow),
      composer_(composer),
      nameOf_(std::move(nameOf)),
      sortIcons_(session.lvwPhoneSMS),
      folder_(FolderKey(0)) {
  session_.jobs().Set(job::kLoadMessages, [this] { Load(); });
  session_.jobs().Set(job::kDeleteMessages, [this] { DeleteConfirmed(); });
  session_.jobs().Set(job::kSendMessage, [this] { Send(); });
  busyWindow_.workers().Set(worker::kSmsLoading, [this] { smsLoading(); });
  session_.tvwPCSMS.visible = false;  // messages are saved through a dialog, never read back
  session_.tvwPhoneSMS.enabled = false;
  session_.tvwPhoneSMS.nodeClicked.Always([this] {
    folder_ = session_.tvwPhoneSMS.SelectedKey();
    FillList();
  });
  session_.lvwPhoneSMS.multipleSelection = true;
  session_.lvwPhoneSMS.selectionChanged.Always([this] { ShowRow(); });
  session_.lvwPhoneSMS.columnClicked.Always([this](int column) { SortBy(column); });
}

// Every opening reads the phone anew.
void SmsPage::Show() {
  if (session_.statusPhase == kPhonePresent) session_.commandState = job::kLoadMessages;
}

bool SmsPage::CanDo(std::string_view action) const {
  if (action == "New" || action == "Refresh") return isLoaded_;
  return isRowShown_;
}

void SmsPage::Do(std::string_view action) {
  if (action == "New") Compose(u"", u"");
  if (action == "Reply") Compose(shownSender_, currentMessageText_);
  if (action == "Forward") Compose(u"", currentMessageText_);
  if (action == "Refresh") refresh_SMS();
  if (action == "Delete") delete_SMS();
  if (action == "Save") SaveSelected();
}

void SmsPage::Compose(const Text& recipients, const Text& text) {
  composer_.SetVariable(recipients, text);
  composer_.Show(Modality::Modal);
}

void SmsPage::refresh_SMS() {
  if (session_.tvwPhoneSMS.Count() > 0) session_.commandState = job::kLoadMessages;
}

void SmsPage::delete_SMS() {
  const Answer answer =
      session_.host().MessageBox(session_.language().getTSPromptStr(text::prompt::kDeleteMessages),
                                 MessageKind::Question, MessageButtons::OkCancel);
  if (answer != Answer::Ok) return;
  keysToDelete_.clear();
  for (const ListRow& row : session_.lvwPhoneSMS.rows()) {
    if (row.selected) keysToDelete_.push_back(row.key);
  }
  session_.commandState = job::kDeleteMessages;
}

// The phone's answers are not looked at: what could not be deleted shows again with the reading
// that follows.
void SmsPage::DeleteConfirmed() {
  port_.serial_flush();
  for (const std::string& key : keysToDelete_) {
    for (const MessagePlace& place : mailbox_.PlacesOf(key)) {
      messages_.DeleteMessage(place.store, place.record->location);
    }
  }
  session_.commandState = job::kLoadMessages;
}

void SmsPage::Send() {
  port_.serial_flush();
  composer_.StartSendingSMS();
  session_.SetCommandIdle();
}

void SmsPage::Load() {
  isLoaded_ = false;
  keysToDelete_.clear();
  FillTree();
  session_.lvwPhoneSMS.Clear();
  session_.lvwPhoneSMS.emptyText = u"";
  ShowNothing();
  session_.tvwPhoneSMS.enabled = false;
  busyWindow_.PhoneToPc(worker::kSmsLoading,
                        session_.language().getTSInterfaceStr(words::kWorkMessages));
  busyWindow_.Work();
  isLoaded_ = true;
  session_.lvwPhoneSMS.sortColumn = -1;
  session_.UpdateActions();
  session_.SetCommandIdle();
}

// After a failure the lists stay empty. What was read of the first store is there for a click on a
// folder.
void SmsPage::smsLoading() {
  mailbox_.Clear();
  port_.serial_flush();
  const bool isRead =
      LoadStore(u"\"SM\"", mailbox_.simMessages) && LoadStore(u"\"ME\"", mailbox_.memMessages);
  session_.tvwPhoneSMS.enabled = true;
  if (!isRead) return session_.ShowError(text::error::kReadMessages);
  session_.tvwPhoneSMS.Select(folder_);
  FillList();
}

bool SmsPage::LoadStore(TextView store, std::vector<SMSMessage>& records) {
  std::int16_t used = 0;
  std::int16_t total = 0;
  if (!messages_.SelectMessageStore(store, used, total)) return false;
  return used == 0 || messages_.ReadAllMessages(used, total, records);
}

void SmsPage::FillTree() {
  auto& tree = session_.tvwPhoneSMS;
  const Language& language = session_.language();
  tree.Clear();
  tree.Add(u"", kRoot, language.getTSInterfaceStr(words::kMessagesRoot), "folder-closed",
           "folder-open");
  for (int stat = 0; stat < kFolders; ++stat) {
    tree.Add(kRoot, FolderKey(stat), language.getTSInterfaceStr(words::kMessageFolders + stat),
             "folder-closed", "folder-open");
  }
  tree.Expand(kRoot);
}

void SmsPage::FillList() {
  const int stat = StatusOf(session_.tvwPhoneSMS.SelectedKey());
  auto rows = mailbox_.RowsOf(stat);
  std::map<Text, Text> tips;  // the phonebook is asked once for each sender
  for (ListRow& row : rows) {
    const Text& sender = row.cells[kSenderColumn];
    const auto [tip, isNew] = tips.try_emplace(sender);
    if (isNew) tip->second = SenderTip(sender);
    row.toolTip = tip->second;
  }
  const Language& language = session_.language();
  auto& list = session_.lvwPhoneSMS;
  list.emptyText = stat < 0 ? Text() : language.getTSInterfaceStr(words::kFolderEmpty);
  list.sortColumn = -1;
  list.Fill(std::move(rows));
  if (session_.panelInFront() == panel()) {  // another page may be by now
    session_.StatusBar1.SetText(panel::kCount,
                                language.Filled(words::kStatusMessages, {ToText(list.Count())}));
  }
  ShowNothing();
}

Text SmsPage::SenderTip(const Text& sender) const {
  const Text name = nameOf_ ? nameOf_(sender) : Text();
  return name.empty() ? Text() : session_.language().Filled(words::kSenderTip, {name});
}

void SmsPage::ShowNothing() {
  currentMessageText_.clear();
  shownSender_.clear();
  session_.rtbSMS.text = u"";
  session_.rtbSMS.toolTip = session_.language().getTSInterfaceStr(words::kSelectMessage);
  isRowShown_ = false;
  session_.UpdateActions();
}

int SmsPage::RowToShow() const {
  const auto& list = session_.lvwPhoneSMS;
  if (list.Current() >= 0 && list.Row(list.Current()).selected) return list.Current();
  const auto& rows = list.rows();
  const auto first =
      std::find_if(rows.begin(), rows.end(), [](const ListRow& row) { return row.selected; });
  return first == rows.end() ? -1 : static_cast<int>(first - rows.begin());
}

void SmsPage::ShowRow() {
  const int index = RowToShow();
  if (index < 0) return ShowNothing();
  const auto& list = session_.lvwPhoneSMS;
  const ReadMessage message = mailbox_.Read(list.Row(index).key);
  currentMessageText_ = message.text;
  shownSender_ = list.Cell(index, kSenderColumn);
  session_.rtbSMS.toolTip = u"";
  session_.rtbSMS.text = Lines(message, u"\n");
  isRowShown_ = true;
  session_.UpdateActions();
}

Text SmsPage::Lines(const ReadMessage& message, TextView lineEnd) const {
  const auto word = [this](int index) { return session_.language().getTSInterfaceStr(index); };
  const Text end(lineEnd);
  return word(words::kReadingDate) + u'\t' + message.timestamp + end + word(words::kReadingSender) +
         u'\t' + message.sender + end + end + word(words::kReadingText) + end + message.text;
}

void SmsPage::SortBy(int column) {
  if (column == kSenderColumn || column == kTextColumn) sortIcons_.SetHeaderIcons(column);
  if (column == kTimeColumn) sortListByDate(session_.lvwPhoneSMS, column);
}

// Leaving the dialog without a name saves nothing.
void SmsPage::SaveSelected() {
  const Language& language = session_.language();
  const auto file = session_.host().AskSaveFile({language.getTSInterfaceStr(words::kSaveTitle),
                                                 language.getTSInterfaceStr(words::kFilterRichText),
                                                 "", session_.smsFolder, u""});
  if (!file) return;
  const RichText::Style style = {u"Times New Roman", 12, true};
  rtbSMSBuffer_.Clear();
  for (const ListRow& row : session_.lvwPhoneSMS.rows()) {
    if (!row.selected) continue;
    rtbSMSBuffer_.Append(Lines(mailbox_.Read(row.key), u"\r\n") + u"\r\n\r\n\r\n", style);
  }
  const Text name = FromUtf8(file->filename().string());
  try {
    modFile::WriteWholeFile(*file, rtbSMSBuffer_.Document());
    session_.StatusBar1.SetText(
        panel::kCount, FillPlaceholders(language.getTSPromptStr(text::prompt::kSavedAs), {name}));
  } catch (const FileError& fault) {
    session_.host().MessageBox(
        FillPlaceholders(language.getTSErrStr(text::error::kSaveFile), {name, fault.Message()}),
        MessageKind::Error);
  }
}

void SmsPage::PhoneLost() {
  isLoaded_ = false;
  mailbox_.Clear();
  keysToDelete_.clear();
  session_.tvwPhoneSMS.Clear();
  session_.tvwPhoneSMS.enabled = false;
  session_.lvwPhoneSMS.Clear();
  session_.lvwPhoneSMS.emptyText = u"";
  ShowNothing();
}

// The folder, the selection and what stands in the pane stay; their words change.
void SmsPage::ApplyTexts() {
  if (session_.tvwPhoneSMS.Count() == 0) return ShowNothing();
  const Text node = session_.tvwPhoneSMS.SelectedKey();
  const auto& list = session_.lvwPhoneSMS;
  const std::string row = list.Current() < 0 ? "" : list.Row(list.Current()).key;
  FillTree();
  session_.tvwPhoneSMS.Select(node);
  FillList();
  for (int index = 0; index < list.Count() && !row.empty(); ++index) {
    if (list.Row(index).key != row) continue;
    session_.lvwPhoneSMS.SetCurrent(index);
    ShowRow();
  }
}

}  // namespace tessarin
