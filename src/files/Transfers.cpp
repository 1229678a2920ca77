#include "files/Transfers.h"

#include "controls/WindowHost.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace fs = std::filesystem;

namespace {

// Lets the busy window follow a transfer for as long as this lives.
class Following {
 public:
  Following(FileService& files, frmSplashTransmission& window, std::uint64_t total)
      : files_(files) {
    files_.SetProgress([&window, total](std::uint64_t bytes) { window.Progress(bytes, total); });
  }
  ~Following() { files_.SetProgress(nullptr); }
  Following(const Following&) = delete;
  Following& operator=(const Following&) = delete;

 private:
  FileService& files_;
};

// What a phone wrote as a size; 0 for none.
std::uint64_t SizeOf(const Text& digits) {
  constexpr std::size_t kMostDigits = 18;
  std::uint64_t size = 0;
  for (const char16_t unit : digits.substr(0, kMostDigits)) {
    if (unit >= u'0' && unit <= u'9') size = size * 10 + (unit - u'0');
  }
  return size;
}

}  // namespace

Transfers::Transfers(TessarinMenu& session, const PhoneLink& link,
                     frmSplashTransmission& busyWindow)
    : session_(session), link_(link), busyWindow_(busyWindow) {
  busyWindow_.workers().Set(worker::kUploading, [this] { uploading(); });
  busyWindow_.workers().Set(worker::kDownloading, [this] { downloading(); });
}

// What fails in the file service was told there already.
void Transfers::Tell(Outcome outcome, int prompt, int error) const {
  if (outcome == Outcome::Done) {
    session_.host().MessageBox(session_.language().getTSPromptStr(prompt));
  } else if (outcome == Outcome::NotReached) {
    session_.ShowError(error);
  }
}

void Transfers::Download(PhonePane& phone, ComputerPane& computer) {
  phone_ = &phone;
  computer_ = &computer;
  reached_ = false;
  busyWindow_.PhoneToPc(worker::kDownloading, phone.SelectedName());
  busyWindow_.Work();
  if (reached_) computer.fillList();
}

bool Transfers::Note(Outcome& outcome, bool success) {
  outcome = success ? Outcome::Done : Outcome::Failed;
  return success;
}

void Transfers::downloading() {
  const ListRow* row = phone_->SelectedRow();
  const Text name = phone_->SelectedName();
  const fs::path folder = computer_->SelectedFolder();
  const Following following(link_.files, busyWindow_,
                            SizeOf(row == nullptr ? Text() : row->cells[1]));
  Outcome outcome = Outcome::NotReached;
  (void)phone_->InFolder([&](const std::string& connectionId) {
    return Note(outcome, link_.files.GetFile(connectionId, name, folder));
  });
  reached_ = outcome != Outcome::NotReached;
  Tell(outcome, text::prompt::kFileReceived, text::error::kReceiveFile);
}

void Transfers::Upload(PhonePane& phone, const fs::path& file) {
  phone_ = &phone;
  file_ = file;
  busyWindow_.PcToPhone(FromUtf8(file.filename().string()));
  busyWindow_.Work();
}

void Transfers::UploadToMms(const fs::path& file) {
  phone_ = nullptr;
  file_ = file;
  busyWindow_.PcToPhone(FromUtf8(file.filename().string()));
  busyWindow_.Work();
}

void Transfers::uploading() {
  std::error_code ignored;  // a file that cannot be read is refused when it is sent
  const std::uintmax_t size = fs::file_size(file_, ignored);
  const Following following(link_.files, busyWindow_, ignored ? 0 : size);
  Tell(Put(), text::prompt::kFileSent, text::error::kSendFile);
}

Transfers::Outcome Transfers::Put() const {
  Outcome outcome = Outcome::NotReached;
  if (phone_ != nullptr) {
    (void)phone_->InFolder([&](const std::string& connectionId) {
      return Note(outcome, link_.files.PutFile(connectionId, file_));
    });
    return outcome;
  }
  link_.obex.EndOBEXSession();
  if (link_.obex.ConnectMmsTarget()) Note(outcome, link_.files.PutFileNoId(file_));
  link_.obex.EndOBEXSession();
  return outcome;
}

}  // namespace tessarin
