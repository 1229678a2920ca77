#pragma once

// The busy window: the program's single place for long work with the phone. It is set up with the
// code of a worker, shown modally, and its timer runs that worker once inside the modal show.

#include <chrono>
#include <cstdint>

#include "controls/Basics.h"
#include "controls/Window.h"
#include "core/JobTable.h"
#include "core/TessarinMenu.h"
#include "files/UserLocale.h"

namespace tessarin {

// Codes of workers.
namespace worker {
inline constexpr std::int16_t kUploading = 1;
inline constexpr std::int16_t kDownloading = 2;
inline constexpr std::int16_t kFileLoading = 4;
inline constexpr std::int16_t kCalendarLoading = 5;
inline constexpr std::int16_t kPMPhonebookLoading = 6;
inline constexpr std::int16_t kSIMPhonebookLoading = 7;
inline constexpr std::int16_t kPicturePreview = 10;
inline constexpr std::int16_t kRingtonePreview = 11;
inline constexpr std::int16_t kCopyPhoneToSIM = 12;
inline constexpr std::int16_t kSubfileLoading = 13;
inline constexpr std::int16_t kDeleteContacts = 14;
}  // namespace worker

class frmSplashTransmission : public Window {
 public:
  explicit frmSplashTransmission(TessarinMenu& session);

  Animation Animation1{*this, "Animation1"};
  Label Label1{*this, "Label1"};
  // How far a transfer or the deleting of contacts is; not seen for other work.
  ProgressBar prgTransfer{*this, "prgTransfer"};
  Label lblAmount{*this, "lblAmount"};
  Timer tmrTransferTimer{*this, "tmrTransferTimer", 1};

  // The workers by code; pages fill the table at start.
  JobTable& workers() { return workers_; }

  // Sets the window up for work whose bytes come from the phone. `text` is what the window says;
  // for a download it is the file's name.
  void PhoneToPc(std::int16_t code, const Text& text);
  // The same for sending the file of that name.
  void PcToPhone(const Text& text);
  // Shows the window and runs the worker. The window is closed and the main window repainted
  // however the worker ends.
  void Work();

  // Told by a worker, as often as it likes: so many bytes of a file of `total`, 0 for unknown, have
  // crossed. The screen follows every tenth of a second and at the end.
  void Progress(std::uint64_t bytes, std::uint64_t total);
  // The same for work on `total` things one by one, of which `done` are done.
  void Counted(int done, int total);

 protected:
  void FormLoad() override;
  void FormUnload() override;

 private:
  using Time = std::chrono::steady_clock;

  void SetUp(const char16_t* film, std::int16_t code, const Text& text);
  void tmrTransferTimer_Timer();
  // In bytes, or to one decimal in KB or MB, for the eye.
  Text Amount(std::uint64_t bytes) const;

  TessarinMenu& session_;
  JobTable workers_;
  UserLocale locale_;
  std::int16_t operationCode_ = 0;
  Time::time_point start_;
  Time::time_point lastShown_;
};

}  // namespace tessarin
