#pragma once

// The panel that stands before any page: which phone is connected, or how to connect one.

#include <array>
#include <memory>

#include "controls/Basics.h"
#include "core/Language.h"
#include "core/Session.h"

namespace tessarin {

// A page that the start panel offers, and the words that invite there.
struct NextStep {
  const char* button;  // its control's name
  int panel;
  int caption;  // interface text
};

// In the order of their buttons.
extern const std::array<NextStep, 6> kNextSteps;

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
  std::array<std::unique_ptr<Button>, 6> cmdNext;

 private:
  void NameBattery();
};

}  // namespace tessarin
