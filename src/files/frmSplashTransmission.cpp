#include "files/frmSplashTransmission.h"

#include <algorithm>

#include "controls/WindowHost.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace words = text::interface_;

namespace {

constexpr int kThousandths = 1000;
constexpr std::chrono::milliseconds kBetweenPictures{100};

// A phone may tell less than it sends.
int ShareOf(std::uint64_t bytes, std::uint64_t total) {
  const double whole = static_cast<double>(std::max<std::uint64_t>(total, 1));
  return static_cast<int>(std::min(1.0, static_cast<double>(bytes) / whole) * kThousandths);
}

}  // namespace

frmSplashTransmission::frmSplashTransmission(TessarinMenu& session)
    : Window(session.host(), "frmSplashTransmission"), session_(session) {
  prgTransfer.maximum = kThousandths;
  tmrTransferTimer.tick.Always([this] { tmrTransferTimer_Timer(); });
}

void frmSplashTransmission::SetUp(const char16_t* film, std::int16_t code, const Text& text) {
  Animation1.file = film;
  operationCode_ = code;
  Label1.text = text;
  const bool isCounted =
      code == worker::kUploading || code == worker::kDownloading || code == worker::kDeleteContacts;
  prgTransfer.visible = isCounted;
  lblAmount.visible = isCounted;
  prgTransfer.value = 0;
  lblAmount.text = u"";
}

void frmSplashTransmission::PhoneToPc(std::int16_t code, const Text& text) {
  const Text prefix = code == worker::kDownloading
                          ? session_.language().getTSInterfaceStr(words::kTransferReceiving)
                          : u"";
  SetUp(u"\\data transfer MPtoPC.avi", code, prefix + text);
}

void frmSplashTransmission::PcToPhone(const Text& text) {
  SetUp(u"\\data transfer PCtoMP.avi", worker::kUploading,
        session_.language().getTSInterfaceStr(words::kTransferSending) + text);
}

void frmSplashTransmission::Work() {
  const Busy busy(session_);
  Show(Modality::Modal);
}

void frmSplashTransmission::FormLoad() {
  caption = session_.language().getTSInterfaceStr(words::kTransferTitle);
  Animation1.accessibleName = session_.language().getTSInterfaceStr(words::kNameTransferAnimation);
  prgTransfer.accessibleName = session_.language().getTSInterfaceStr(words::kNameProgress);
  Animation1.playing = true;
  start_ = lastShown_ = Time::now();
  tmrTransferTimer.enabled = true;
}

void frmSplashTransmission::FormUnload() { Animation1.playing = false; }

Text frmSplashTransmission::Amount(std::uint64_t bytes) const {
  constexpr std::uint64_t kStep = 1024;
  const Language& language = session_.language();
  if (bytes < kStep) return language.Filled(words::kSizeBytes, {locale_.Grouped(bytes)});
  const bool isLarge = bytes >= kStep * kStep;
  const Text number = locale_.Tenths(bytes * 10 / (isLarge ? kStep * kStep : kStep));
  return language.Filled(isLarge ? words::kSizeMegabytes : words::kSizeKilobytes, {number});
}

void frmSplashTransmission::Progress(std::uint64_t bytes, std::uint64_t total) {
  const auto now = Time::now();
  if (now - lastShown_ < kBetweenPictures && bytes != total) return;
  lastShown_ = now;
  const std::chrono::duration<double> passed = now - start_;
  const double rate = static_cast<double>(bytes) / std::max(passed.count(), 0.001);
  const Language& language = session_.language();
  const Text amount = Amount(bytes);
  prgTransfer.visible = total > 0;
  prgTransfer.value = ShareOf(bytes, total);
  lblAmount.text =
      (total == 0 ? amount : language.Filled(words::kTransferProgress, {amount, Amount(total)})) +
      u" · " + language.Filled(words::kTransferRate, {Amount(static_cast<std::uint64_t>(rate))});
  Refresh();
  host().YieldToScreen();
}

void frmSplashTransmission::Counted(int done, int total) {
  prgTransfer.value = static_cast<int>(std::int64_t{kThousandths} * done / std::max(total, 1));
  lblAmount.text =
      session_.language().Filled(words::kTransferProgress, {ToText(done), ToText(total)});
  Refresh();
  host().YieldToScreen();
}

void frmSplashTransmission::tmrTransferTimer_Timer() {
  tmrTransferTimer.enabled = false;
  try {
    workers_.Run(operationCode_);
  } catch (...) {
    Unload();
    throw;
  }
  Unload();
  session_.Refresh();
}

}  // namespace tessarin
