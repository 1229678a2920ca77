#pragma once

// Hearing a ringtone of the phone without saving it: the three buttons of the Ringtone page. The
// tune is fetched into a temporary file that stays until the next one, or until the program ends.

#include <memory>

#include "files/PhonePane.h"
#include "files/cMCI_Adv.h"
#include "files/frmSplashTransmission.h"

namespace tessarin {

class RingtonePreview : public SessionPart {
 public:
  // Puts its job and its worker into the tables. All must outlive this object.
  RingtonePreview(TessarinMenu& session, const PhoneLink& link, frmSplashTransmission& busyWindow,
                  PhonePane& pane, MidiPlayer& player);

  // The Ringtone page was opened: it gets a device of its own each time.
  void Opened();

  void PhoneLost() override;
  void Unloading() override;

  // "FIRST" before the tune was fetched, then "PLAYING", "PAUSED" or "STOPPED"; empty before any
  // tune was selected. The end of a tune goes unnoticed: the state stays "PLAYING".
  Text playerState;

 private:
  void RowChosen(ListAct act);
  void cmdPlay_Click();
  void cmdPause_Click();
  void cmdStop_Click();
  // Job: fetches and plays the selected tune.
  void Prelisten();
  // Worker: fetches it.
  void ringtonePrelisten();
  bool Fetch(const std::filesystem::path& folder);
  bool Is(TextView state) const;
  void Playing();
  void Offer(bool play, bool pauseAndStop);

  TessarinMenu& session_;
  PhoneLink link_;
  frmSplashTransmission& busyWindow_;
  PhonePane& pane_;
  MidiPlayer& player_;
  std::unique_ptr<cMCI_Adv> device_;
  bool fetched_ = false;
};

}  // namespace tessarin
