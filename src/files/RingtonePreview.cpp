#include "files/RingtonePreview.h"

#include "core/TextIndex.h"

namespace tessarin {

namespace fs = std::filesystem;

namespace {

constexpr char16_t kFirst[] = u"FIRST";
constexpr char16_t kStopped[] = u"STOPPED";
constexpr char16_t kPlaying[] = u"PLAYING";
constexpr char16_t kPaused[] = u"PAUSED";

constexpr char16_t kFolder[] = u"\\Temp";
constexpr char kFile[] = "temp.mid";

}  // namespace

RingtonePreview::RingtonePreview(TessarinMenu& session, const PhoneLink& link,
                                 frmSplashTransmission& busyWindow, PhonePane& pane,
                                 MidiPlayer& player)
    : session_(session), link_(link), busyWindow_(busyWindow), pane_(pane), player_(player) {
  Opened();
  Offer(false, false);
  pane_.list().released.Always([this](ListAct act) { RowChosen(act); });
  session_.cmdPlay.clicked.Always([this] { cmdPlay_Click(); });
  session_.cmdPause.clicked.Always([this] { cmdPause_Click(); });
  session_.cmdStop.clicked.Always([this] { cmdStop_Click(); });
  session_.jobs().Set(job::kRingtonePreview, [this] { Prelisten(); });
  busyWindow_.workers().Set(worker::kRingtonePreview, [this] { ringtonePrelisten(); });
}

void RingtonePreview::Opened() {
  device_ = std::make_unique<cMCI_Adv>(player_, session_.host(), session_.language());
}

bool RingtonePreview::Is(TextView state) const { return ToUpper(playerState) == state; }

void RingtonePreview::Offer(bool play, bool pauseAndStop) {
  session_.cmdPlay.enabled = play;
  session_.cmdPause.enabled = pauseAndStop;
  session_.cmdStop.enabled = pauseAndStop;
}

void RingtonePreview::RowChosen(ListAct act) {
  const ListRow* row = pane_.SelectedRow();
  if (row == nullptr || (act != ListAct::LeftButton && act != ListAct::ArrowKey)) return;
  cmdStop_Click();
  // A file without an extension counts as a tune.
  const Text extension = ToLower(row->cells[2]);
  const bool isTune = extension.empty() || extension == u"mid";
  Offer(isTune, false);
  if (isTune) playerState = kFirst;
}

void RingtonePreview::Playing() {
  playerState = kPlaying;
  Offer(false, true);
}

void RingtonePreview::cmdPlay_Click() {
  if (Is(kFirst)) {
    if (pane_.SelectedRow() == nullptr) return;  // the folder was read anew meanwhile
    pane_.list().enabled = false;
    session_.cmdPlay.enabled = false;
    session_.commandState = job::kRingtonePreview;
    return;
  }
  if (Is(kStopped)) {
    device_->MCI_PlayFromStart();
    Playing();
  } else if (Is(kPaused)) {
    device_->MCI_Play();
    Playing();
  }
  pane_.list().SetFocus();
}

void RingtonePreview::cmdPause_Click() {
  if (Is(kPlaying)) {
    device_->MCI_Pause();
    playerState = kPaused;
    session_.cmdPlay.enabled = true;
  } else if (Is(kPaused)) {
    device_->MCI_Play();
    Playing();
  }
  pane_.list().SetFocus();
}

void RingtonePreview::cmdStop_Click() {
  if (!Is(kPlaying) && !Is(kPaused)) return;
  playerState = kStopped;
  device_->MCI_Stop();
  device_->MCI_Seek();
  Offer(true, false);
  pane_.list().SetFocus();
}

// The state is "PLAYING" afterwards also when the tune could not be fetched: Stop then offers Play
// again.
void RingtonePreview::Prelisten() {
  fetched_ = false;
  busyWindow_.PhoneToPc(worker::kRingtonePreview,
                        session_.language().getTSInterfaceStr(text::interface_::kWorkRingtone));
  busyWindow_.Work();
  if (fetched_ && device_->MCI_Open(session_.files().Path(kFolder) / kFile)) {
    device_->MCI_PlayFromStart();
  }
  Playing();
  pane_.list().enabled = true;
  pane_.list().SetFocus();
  session_.SetCommandIdle();
}

void RingtonePreview::ringtonePrelisten() {
  device_->MCI_Stop();
  device_->MCI_CloseAll();
  const fs::path folder = session_.files().Path(kFolder);
  std::error_code error;  // a folder that cannot be made fails when it is written to
  fs::create_directories(folder, error);
  if (!Fetch(folder)) return;
  // In place of the tune before; one of just this name stays.
  fs::rename(folder / ToUtf8(pane_.SelectedName()), folder / kFile, error);
  fetched_ = !error;
}

bool RingtonePreview::Fetch(const fs::path& folder) {
  return pane_.InFolder([&](const std::string& connectionId) {
    return link_.files.FetchFile(connectionId, pane_.SelectedName(), folder);
  });
}

void RingtonePreview::PhoneLost() {
  cmdStop_Click();
  playerState.clear();
  Offer(false, false);
}

void RingtonePreview::Unloading() {
  device_->MCI_Stop();
  device_->MCI_CloseAll();
}

}  // namespace tessarin
