#include "files/frmSplashTransmission.h"

#include "controls/WindowHost.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace words = text::interface_;

frmSplashTransmission::frmSplashTransmission(TessarinMenu& session)
    : Window(session.host(), "frmSplashTransmission"), session_(session) {
  tmrTransferTimer.tick.Always([this] { tmrTransferTimer_Timer(); });
}

void frmSplashTransmission::PhoneToPc(std::int16_t code, const Text& text) {
  Animation1.file = u"\\data transfer MPtoPC.avi";
  operationCode_ = code;
  const Text prefix = code == worker::kDownloading
                          ? session_.language().getTSInterfaceStr(words::kTransferReceiving)
                          : u"";
  Label1.text = prefix + text;
}

void frmSplashTransmission::Work() {
  const Busy busy(session_);
  Show(Modality::Modal);
}

void frmSplashTransmission::FormLoad() {
  caption = session_.language().getTSInterfaceStr(words::kTransferTitle);
  Animation1.accessibleName = session_.language().getTSInterfaceStr(words::kNameTransferAnimation);
  Animation1.playing = true;
  tmrTransferTimer.enabled = true;
}

void frmSplashTransmission::FormUnload() { Animation1.playing = false; }

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
