#include "files/FilePage.h"

#include <algorithm>

#include "controls/WindowHost.h"
#include "core/TextIndex.h"
#include "files/MediaRules.h"

namespace tessarin {

namespace words = text::interface_;

namespace fs = std::filesystem;

FilePage::FilePage(const Shared& shared, const FilePageRow& row, const FilePanes& panes)
    : shared_(shared),
      row_(row),
      panes_(panes),
      phone_(shared.session, shared.link, panes.phoneTree, panes.phoneList),
      computer_(shared.session, panes.computerTree, panes.computerList, shared.types) {
  panes_.computerList.multipleSelection = true;
  panes_.download.visible = row_.receives;
  panes_.download.enabled = false;
  panes_.upload.visible = false;
  if (panes_.preview != nullptr) panes_.preview->visible = false;
  if (panes_.storage != nullptr) panes_.storage->enabled = false;
  // A tick without a search does nothing; the ringtones' search begins with the page's first
  // opening.
  if (row_.searchTimer != nullptr) {
    (shared_.session.*row_.searchTimer).enabled = row_.kind != MediaKind::Ringtone;
  }
  ConnectControls();
  ConnectDrops();
}

void FilePage::ConnectControls() {
  panes_.phoneTree.nodeClicked.Always([this] { NodeClicked(); });
  panes_.phoneList.released.Always([this](ListAct act) { PhoneRowReleased(act); });
  panes_.computerTree.nodeClicked.Always([this] { panes_.upload.visible = false; });
  panes_.computerList.released.Always([this](ListAct act) { ComputerRowReleased(act); });
  panes_.download.clicked.Always([this] { DownloadClicked(); });
  panes_.upload.clicked.Always([this] { UploadClicked(); });
  if (panes_.storage != nullptr) panes_.storage->clicked.Always([this] { StorageChosen(); });
  if (row_.searchTimer != nullptr) {
    (shared_.session.*row_.searchTimer).tick.Always([this] { SearchTick(); });
  }
}

// A drop does what the arrow does, with the same rules and questions.
void FilePage::ConnectDrops() {
  for (ListView* list : {&panes_.phoneList, &panes_.computerList}) {
    list->givesRows = true;
    list->takesRows = true;
  }
  panes_.phoneList.takesFiles = true;
  panes_.computerList.takesRows = row_.receives;
  panes_.computerList.rowsDropped.Always([this](ListView& from) {
    if (&from == &panes_.phoneList) DownloadClicked();
  });
  panes_.phoneList.rowsDropped.Always([this](ListView& from) {
    if (&from != &panes_.computerList) return;
    std::vector<fs::path> files;
    for (const Text& name : computer_.SelectedFiles()) {
      files.push_back(computer_.SelectedFolder() / ToUtf8(name));
    }
    Drop(files);
  });
  panes_.phoneList.filesDropped.Always([this](const auto& files) { Drop(files); });
}

void FilePage::Show() {
  shared_.opened(*this);
  EnableLists();
  computer_.Open(row_.computerFolder == nullptr ? fs::path("/")
                                                : shared_.session.*row_.computerFolder);
  panes_.upload.visible = false;
  OpenStorage();
}

// The File page fills its box at its first opening with a phone; the others' are filled when a
// phone is found.
void FilePage::OpenStorage() {
  ComboBox* box = panes_.storage;
  if (box != nullptr) {
    const ComboBox& known = shared_.session.comboStorage;
    for (int index = 0; box->Count() < known.Count(); ++index) box->Add(known.Item(index));
    if (row_.kind == MediaKind::File && box->Selected() < 0 && box->Count() > 0) box->Select(0);
    if (row_.opensOnFirstStorage && box->Count() > 0) box->Select(0);
    box->enabled = box->Count() > 0;
  }
  StorageChosen();
}

void FilePage::StorageChosen() {
  if (row_.storageRoot != nullptr) {
    shared_.session.*row_.storageRoot = panes_.storage->SelectedText();
  }
  Refresh();
}

void FilePage::Refresh() {
  if (!PhoneIsThere()) return;
  if (row_.kind == MediaKind::MMS) {
    FindMmsFolder();
    if (mmsRoot_.empty()) return;
  }
  shared_.session.commandState = job::kLoadFolder;
  if (row_.searchTimer == nullptr) return;
  searchNeeded_ = true;
  (shared_.session.*row_.searchTimer).enabled = true;
}

// Few phones of the make have a folder of messages among their top-level ones. The service that
// takes them needs none.
void FilePage::FindMmsFolder() {
  const auto& names = shared_.session.storageNames;
  const auto folder = std::find_if(names.begin(), names.end(),
                                   [](const Text& name) { return ToLower(name) == u"mms"; });
  mmsRoot_ = folder == names.end() ? Text() : *folder;
  if (!mmsRoot_.empty()) return;
  phone_.ShowNote(shared_.session.language().getTSInterfaceStr(words::kMmsUnavailable));
}

Text FilePage::StartFolder() const {
  if (row_.kind == MediaKind::MMS) return mmsRoot_;
  return row_.storageRoot == nullptr ? Text() : shared_.session.*row_.storageRoot;
}

void FilePage::NodeClicked() {
  if (!phone_.StandsInAFolder() || !PhoneIsThere()) return;
  const auto* node = panes_.phoneTree.Find(panes_.phoneTree.SelectedKey());
  const bool isRoot = node != nullptr && node->parent == nullptr;
  shared_.session.commandState = isRoot ? job::kLoadFolder : job::kLoadSubfolder;
}

void FilePage::Load(std::int16_t workerCode) {
  shared_.busyWindow.PhoneToPc(workerCode,
                               shared_.session.language().getTSInterfaceStr(words::kWorkFolder));
  shared_.busyWindow.Work();
  EnableLists();
  ShowCount();
  panes_.download.enabled = false;
  shared_.session.SetCommandIdle();
  shared_.session.UpdateActions();
}

void FilePage::ShowCount() {
  TessarinMenu& session = shared_.session;
  if (session.panelInFront() != panel()) return;
  const int count = panes_.phoneList.Count();  // an empty list says so itself
  session.StatusBar1.SetText(
      tessarin::panel::kCount,
      count == 0 ? Text() : session.language().Filled(words::kStatusItems, {ToText(count)}));
}

void FilePage::fileLoading() { phone_.fileLoading(StartFolder()); }

void FilePage::subfileLoading() {
  if (searching_) {
    phone_.FindStartFolder(SearchWord());
  } else {
    (void)phone_.subfileLoading();  // a folder that cannot be read leaves all as it is
  }
}

Text FilePage::SearchWord() const {
  const auto choices = Split(row_.startFolder, u"|");
  const auto chosen = static_cast<std::size_t>(std::max(0, panes_.storage->Selected()));
  return choices[choices.size() > chosen ? chosen : 0];
}

// Once the page was loaded anew. The whole search is one piece of work in one busy window.
void FilePage::SearchTick() {
  TessarinMenu& session = shared_.session;
  if (!searchNeeded_ || session.IsBusy() || session.panelInFront() != panel()) return;
  if (session.commandState != job::kIdlePoll || panes_.phoneTree.Count() == 0) return;
  const Busy busy(session);
  searchNeeded_ = false;
  session.commandState = job::kSearching;
  searching_ = true;
  Load(worker::kSubfileLoading);
  searching_ = false;
  (session.*row_.searchTimer).enabled = false;
}

void FilePage::PhoneFound() {
  phone_.SayWhyEmpty(words::kFolderEmpty);
  panes_.upload.enabled = true;
}

void FilePage::PhoneLost() {
  phone_.Clear(words::kPageNeedsPhone);
  searchNeeded_ = false;
  panes_.download.enabled = false;
  panes_.upload.enabled = false;
  if (panes_.storage != nullptr) panes_.storage->enabled = false;
  panes_.computerList.enabled = true;
  panes_.computerTree.enabled = true;
}

void FilePage::ApplyTexts() {
  phone_.ApplyTexts();
  computer_.ApplyTexts();
  if (row_.kind == MediaKind::MMS && PhoneIsThere() && mmsRoot_.empty()) FindMmsFolder();
  if (PhoneIsThere() && panes_.phoneTree.Count() > 0) ShowCount();
}

bool FilePage::CanDo(std::string_view action) const {
  if (action == "New") return row_.tool == nullptr || *row_.tool != '\0';
  if (action == "Mp3") return row_.kind == MediaKind::Ringtone;
  if (action == "DeleteOnComputer") return !computer_.SelectedFiles().empty();
  if (!PhoneIsThere()) return false;
  if (action == "Refresh") return row_.kind != MediaKind::MMS;
  if (action == "Delete") return row_.deletes && phone_.SelectedRow() != nullptr;
  return action == "Edit" && editing_.can != nullptr && editing_.can();
}

std::string_view FilePage::DeletionIn(const Control& control) const {
  if (&control == &panes_.computerList) return "DeleteOnComputer";
  return &control == &panes_.phoneList && row_.deletes ? "Delete" : std::string_view();
}

void FilePage::Do(std::string_view action) {
  if (action == "Refresh") {
    if (row_.searchTimer != nullptr) (shared_.session.*row_.searchTimer).enabled = false;
    Refresh();
  }
  if (action == "Delete") DeleteOnPhone();
  if (action == "DeleteOnComputer") DeleteOnComputer();
  if (action == "Edit") editing_.edit();
  if (action == "Mp3") shared_.tools.Start("TuneTrimmer.exe");
  if (action != "New") return;
  if (row_.tool == nullptr) {
    shared_.tools.OpenPictureDesk().ShowEditor();
  } else {
    shared_.tools.Start(row_.tool);
  }
}

// The phones of the make delete no file over this service, so what follows the question is a
// reading of what is there.
void FilePage::DeleteOnPhone() {
  WindowHost& host = shared_.session.host();
  const Text& question = shared_.session.language().getTSPromptStr(text::prompt::kDeleteFile);
  if (host.MessageBox(question, MessageKind::Question, MessageButtons::OkCancel) == Answer::Ok) {
    Refresh();
  }
}

}  // namespace tessarin
