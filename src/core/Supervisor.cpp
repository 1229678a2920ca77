#include "core/Supervisor.h"

#include "controls/WindowHost.h"
#include "core/PageTable.h"
#include "core/frmPhoneInfo.h"

namespace tessarin {

namespace {

constexpr int kBatteryQuestions = 3;
constexpr int kChargingPictures = 5;

}  // namespace

Supervisor::Supervisor(TessarinMenu& session, const PhoneLink& link)
    : session_(session),
      link_(link),
      splash_(session.host(), session.language()),
      connection_(session, link, splash_) {
  session_.AddPart(splash_);
  session_.Timer1.tick.Always([this] { Timer1_Timer(); });
  session_.Timer2.tick.Always([this] { Timer2_Timer(); });
  session_.jobs().Set(job::kStartScan, [this] { StartScan(); });
  session_.jobs().Set(job::kIdlePoll, [this] { PollBattery(); });
  session_.jobs().Set(job::kPhoneInfo, [this] { PhoneInfo(); });
}

void Supervisor::Timer1_Timer() {
  if (session_.IsBusy()) return;
  const Busy busy(session_);
  session_.jobs().Run(session_.commandState);
}

void Supervisor::Timer2_Timer() {
  if (session_.IsBusy()) return;
  const Busy busy(session_);
  connection_.ScanStep();
}

void Supervisor::StartScan() {
  session_.Timer1.enabled = false;
  session_.Timer2.enabled = true;
  splash_.Show(Modality::Modeless);
}

void Supervisor::PhoneInfo() {
  frmPhoneInfo window(session_);
  window.Ask(link_.at);
  window.Show(Modality::Modal);
  session_.SetCommandIdle();
}

void Supervisor::PollBattery() {
  session_.Toolbar2.EnableAll();
  std::uint16_t level = linkport::kNoBatteryLevel;
  const bool phoneIsThere = AskBattery(level);
  if (session_.isClosing) return;
  if (phoneIsThere) {
    ShowBattery(level);
  } else {
    LosePhone();
  }
}

// A phone that is busy with a call of its own may miss a question or two.
bool Supervisor::AskBattery(std::uint16_t& level) {
  for (int question = 0; question < kBatteryQuestions; ++question) {
    level = link_.port.GetBatteryLevel();
    if (level != linkport::kNoBatteryLevel) return true;
  }
  return false;
}

// While charging, the picture steps through five images, one a second, and the sixth second rests.
void Supervisor::ShowBattery(std::uint16_t level) {
  auto& status = session_.StatusBar1;
  const Text percent = ToText(level) + u"%";
  status.SetText(panel::kBattery, percent);
  status.SetVisible(panel::kBattery, true);
  session_.start.SetBattery(percent, status.Panel(panel::kBattery).image);
  if (session_.panelInFront() == kCalendarPanel) status.SetText(panel::kPage, u"");
  const bool full = level == 100;
  if (!full && session_.batteryFrame > kChargingPictures) {
    session_.batteryFrame = 1;
    return;
  }
  const std::string image =
      full ? "battery-full" : "battery-" + std::to_string(session_.batteryFrame);
  status.SetImage(panel::kBattery, image);
  session_.start.SetBattery(percent, image);
  session_.batteryState = full ? 2 : 1;
  session_.UpdateStatusTexts(session_.statusPhase);
  if (!full) ++session_.batteryFrame;
}

// The scan goes on from the port on which the phone was found.
void Supervisor::LosePhone() {
  link_.com.ClosePhonePort();
  for (SessionPart* part : session_.parts()) part->PhoneLost();
  session_.EnablePhoneControls(false);
  auto& status = session_.StatusBar1;
  for (const int number : {panel::kConnection, panel::kModel, panel::kBattery}) {
    status.SetText(number, u"");
  }
  status.SetVisible(panel::kBattery, false);
  session_.statusPhase = kNoPhone;
  session_.ForgetStorage();
  session_.ShowStartPanel();
  session_.Lbstatus.text = u"";
  session_.Lbstatus.accessibleName =
      session_.language().getTSInterfaceStr(text::interface_::kNameConnectionState);
  session_.start.SetBattery(u"", "");
  session_.start.Update(session_, session_.language());
  session_.Refresh();
  StartScan();
}

}  // namespace tessarin
