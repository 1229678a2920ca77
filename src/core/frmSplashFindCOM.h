#pragma once

// The search window: it moves while ports are tried, says which one is being tried, and why ports
// that look like a phone's were passed over.

#include <map>

#include "controls/Basics.h"
#include "controls/Window.h"
#include "core/Language.h"
#include "link/PortDiagnosis.h"

namespace tessarin {

class frmSplashFindCOM : public Window {
 public:
  frmSplashFindCOM(WindowHost& host, const Language& language);

  Animation Animation1{*this, "Animation1"};
  Label lblPort{*this, "lblPort"};        // what is being done
  Label lblHint{*this, "lblHint"};        // how to connect a phone
  Label lblTrouble{*this, "lblTrouble"};  // one line for each port that was passed over

  // A port is about to be tried. What was said of it on an earlier pass is taken back.
  void Trying(int port, const std::string& device);
  void PassedOver(int port, const PortTrouble& trouble);
  void NothingFound();  // a whole pass is over
  // The port answered; `step` is the interface text of what is done now.
  void Progress(int step);

 protected:
  void FormLoad() override;
  void FormUnload() override;

 private:
  void ShowTroubles();

  const Language& language_;
  std::map<int, Text> troubles_;  // by port
};

}  // namespace tessarin
