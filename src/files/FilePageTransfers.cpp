// How a click or a drop on a page of files becomes a transfer.

#include <algorithm>
#include <utility>

#include "controls/WindowHost.h"
#include "core/TextIndex.h"
#include "files/FilePage.h"
#include "files/MediaRules.h"

namespace tessarin {

namespace fs = std::filesystem;
namespace words = text::interface_;

void FilePage::Say(int interfaceText) const {
  const TessarinMenu& session = shared_.session;
  session.host().MessageBox(session.language().getTSInterfaceStr(interfaceText));
}

void FilePage::EnableLists() {
  panes_.phoneList.enabled = PhoneIsThere();
  panes_.computerList.enabled = true;
  panes_.computerTree.enabled = true;
  panes_.upload.enabled = PhoneIsThere();
}

// On the ringtone page the right button, with its menu, is not a choice of a file to fetch.
void FilePage::PhoneRowReleased(ListAct act) {
  const bool right = act == ListAct::RightButton && row_.kind != MediaKind::Ringtone;
  const bool chosen = right || act == ListAct::LeftButton || act == ListAct::ArrowKey;
  panes_.download.enabled = chosen && PhoneIsThere() && phone_.SelectedRow() != nullptr;
  shared_.session.UpdateActions();
}

// The arrow comes with the left button. Any other act may have put another file under it.
void FilePage::ComputerRowReleased(ListAct act) {
  const bool chosen = act == ListAct::LeftButton || act == ListAct::ArrowKey;
  if (chosen || panes_.upload.visible) updateUploadArrows();
  shared_.session.UpdateActions();
}

void FilePage::updateUploadArrows() {
  const Text name = computer_.SelectedFile();
  panes_.upload.visible =
      !name.empty() && IsUploadOffered(row_.kind, shared_.session.phoneModel, name);
}

bool FilePage::MayReplace(const Text& name) {
  const TessarinMenu& session = shared_.session;
  return session.host().MessageBox(session.language().getTSPromptStr(text::prompt::kReplaceFile),
                                   MessageKind::Question, MessageButtons::OkCancel,
                                   name) == Answer::Ok;
}

// Until the next tick nothing else can be selected, so that what is moved, and where to, is what
// was asked about. The phone may have gone while the question stood.
void FilePage::Defer(std::int32_t commandState) {
  if (!PhoneIsThere()) return;
  panes_.phoneList.enabled = false;
  panes_.computerList.enabled = false;
  panes_.computerTree.enabled = false;
  shared_.session.commandState = commandState;
}

// A folder that was just chosen is read before anything moves: the list's names and the question
// would be those of another one.
bool FilePage::ReadsFirst() {
  if (!phone_.IsBehind()) return false;
  NodeClicked();
  return true;
}

void FilePage::DownloadClicked() {
  const Text name = phone_.SelectedName();
  if (name.empty() || !PhoneIsThere() || shared_.session.IsBusy() || ReadsFirst()) return;
  if (!row_.defers) {
    Download();
  } else if (!row_.asks || !computer_.Holds(name) || MayReplace(name)) {
    Defer(job::kDownload);
  }
}

void FilePage::Download() {
  if (phone_.SelectedRow() != nullptr) shared_.transfers.Download(phone_, computer_);
  panes_.upload.visible = false;  // no row of the list is selected any more
  EnableLists();
}

void FilePage::UploadClicked() {
  const Text name = computer_.SelectedFile();
  if (!name.empty()) Send(computer_.SelectedFolder() / ToUtf8(name));
}

void FilePage::Drop(const std::vector<fs::path>& files) {
  if (files.size() != 1) {
    Say(words::kOneFileAtATime);
    return;
  }
  const Text name = FromUtf8(files.front().filename().string());
  if (!modFile::FileExists(files.front()) ||
      !IsUploadOffered(row_.kind, shared_.session.phoneModel, name)) {
    Say(words::kFileNotTaken);
    return;
  }
  Send(files.front());
}

void FilePage::Send(const fs::path& file) {
  const Text name = FromUtf8(file.filename().string());
  if (!PhoneIsThere() || shared_.session.IsBusy() || ReadsFirst()) return;
  upload_ = file;
  if (!row_.defers) {
    Upload();
  } else if (!row_.asks || !phone_.Holds(name) || MayReplace(name)) {
    Defer(job::kUpload);
  }
}

// Nothing is sent twice: a page that was opened behind the click of another one has no file.
void FilePage::Upload() {
  const fs::path file = std::exchange(upload_, {});
  if (!file.empty() && row_.kind == MediaKind::MMS) {
    shared_.transfers.UploadToMms(file);
  } else if (!file.empty()) {
    shared_.transfers.Upload(phone_, file);
  }
  EnableLists();
}

void FilePage::DeleteOnComputer() {
  const auto names = computer_.SelectedFiles();
  TessarinMenu& session = shared_.session;
  if (session.host().MessageBox(
          session.language().getTSPromptStr(text::prompt::kDeleteComputerFiles),
          MessageKind::Question, MessageButtons::OkCancel) != Answer::Ok) {
    return;
  }
  for (const Text& name : names) {
    std::error_code error;
    fs::remove(computer_.SelectedFolder() / ToUtf8(name), error);
    if (!error) continue;
    const Text told = Replace(session.language().getTSErrStr(text::error::kDeleteComputerFile),
                              u"###2", FromUtf8(error.message()));
    session.host().MessageBox(Replace(told, u"###1", name), MessageKind::Error);
  }
  panes_.upload.visible = false;
  computer_.fillList();
  session.UpdateActions();
}

}  // namespace tessarin
