#pragma once

// The main loop. Two timers of the main window do all the work with the phone: Timer2 looks for
// one, a port a tick; Timer1 runs one job a tick, by `commandState`. At most one of them is
// enabled, no tick starts inside another, and so an AT command and an OBEX exchange never overlap.

#include "core/PhoneConnection.h"
#include "core/PhoneLink.h"
#include "core/TessarinMenu.h"
#include "core/frmSplashFindCOM.h"

namespace tessarin {

class Supervisor {
 public:
  // Puts jobs 0 to 2 into the session's table. `session` and what `link` names must outlive this.
  Supervisor(TessarinMenu& session, const PhoneLink& link);

  frmSplashFindCOM& splash() { return splash_; }

 private:
  void Timer1_Timer();
  void Timer2_Timer();

  void StartScan();
  void PollBattery();
  void PhoneInfo();

  bool AskBattery(std::uint16_t& level);
  void ShowBattery(std::uint16_t level);
  void LosePhone();

  TessarinMenu& session_;
  PhoneLink link_;
  frmSplashFindCOM splash_;
  PhoneConnection connection_;
};

}  // namespace tessarin
