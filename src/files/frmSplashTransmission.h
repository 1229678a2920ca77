#pragma once

// The busy window: the program's single place for long work with the phone. It is set up with the
// code of a worker, shown modally, and its timer runs that worker once inside the modal show.

#include <cstdint>

#include "controls/Basics.h"
#include "controls/Window.h"
#include "core/JobTable.h"
#include "core/TessarinMenu.h"

namespace tessarin {

// Codes of workers.
namespace worker {
inline constexpr std::int16_t kUploading = 1;
inline constexpr std::int16_t kDownloading = 2;
inline constexpr std::int16_t kFileLoading = 4;
inline constexpr std::int16_t kCalendarLoading = 5;
inline constexpr std::int16_t kPMPhonebookLoading = 6;
inline constexpr std::int16_t kSIMPhonebookLoading = 7;
inline constexpr std::int16_t kCopyPhoneToSIM = 12;
inline constexpr std::int16_t kSubfileLoading = 13;
}  // namespace worker

class frmSplashTransmission : public Window {
 public:
  explicit frmSplashTransmission(TessarinMenu& session);

  Animation Animation1{*this, "Animation1"};
  Label Label1{*this, "Label1"};
  Timer tmrTransferTimer{*this, "tmrTransferTimer", 1};

  // The workers by code; pages fill the table at start.
  JobTable& workers() { return workers_; }

  // Sets the window up for work whose bytes come from the phone. `text` is what the window says;
  // for a download it is the file's name.
  void PhoneToPc(std::int16_t code, const Text& text);
  // Shows the window and runs the worker. The window is closed and the main window repainted
  // however the worker ends.
  void Work();

 protected:
  void FormLoad() override;
  void FormUnload() override;

 private:
  void tmrTransferTimer_Timer();

  TessarinMenu& session_;
  JobTable workers_;
  std::int16_t operationCode_ = 0;
};

}  // namespace tessarin
