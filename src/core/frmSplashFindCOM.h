#pragma once

// The search window: it moves while ports are tried, says which one is being tried, and why ports
// that look like a phone's were passed over.

#include <map>

#include "controls/Basics.h"
#include "controls/Window.h"
#include "core/Language.h"
#include "core/Page.h"
#include "link/PortDiagnosis.h"

namespace tessarin {

// It takes part in the session only to follow the language.
class frmSplashFindCOM : public Window, public SessionPart {
 public:
  frmSplashFindCOM(WindowHost& host, const Language& language);

  Animation Animation1{*this, "Animation1"};
  Label lblPort{*this, "lblPort"};              // what is being done
  Label lblHint{*this, "lblHint"};              // how to connect a phone
  Label lblPassedOver{*this, "lblPassedOver"};  // heading of what follows
  Label lblTrouble{*this, "lblTrouble"};        // one line for each port that was passed over

  // A port is about to be tried.
  void Trying(int port, const std::string& device);
  // Takes the place of what was said of the port on an earlier pass; no trouble says nothing.
  void PassedOver(int port, const PortTrouble& trouble);
  void NothingFound();  // a whole pass is over
  // The port answered; `step` is the interface text of what is done now.
  void Progress(int step);

  void ApplyTexts() override;

 protected:
  void FormLoad() override;
  void FormUnload() override;

 private:
  void ShowTroubles();

  const Language& language_;
  int step_;                             // interface text of what is being done
  Text port_;                            // the port that it is done with, empty for none
  std::map<int, PortTrouble> troubles_;  // by port
};

}  // namespace tessarin
