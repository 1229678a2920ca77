#pragma once

// The panel that stands before any page: which phone is connected, or how to connect one.

#include "controls/Basics.h"
#include "core/Language.h"
#include "core/Session.h"

namespace tessarin {

struct StartPanel {
  explicit StartPanel(Window& window);

  // Brings everything up to the session's state and the present language.
  void Update(const Session& session, const Language& language);
  // `percent` of 100; the text and picture of the status bar's battery.
  void SetBattery(const Text& level, const std::string& image);

  Picture imgPhone;
  Label lblHeading, lblHint;
  Label lblBattery, lblBatteryValue, lblStorage, lblStorageValue, lblPort, lblPortValue;
  Picture imgBattery;
  Label lblNext;
  Label lblStep1, lblStep2, lblStep3;  // how to connect
  Button cmdOpenFiles;

 private:
  void NameBattery();
};

}  // namespace tessarin
