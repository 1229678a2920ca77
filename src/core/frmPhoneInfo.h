#pragma once

// Who the phone is: manufacturer, model, firmware, IMEI.

#include "controls/Basics.h"
#include "controls/Window.h"
#include "core/TessarinMenu.h"
#include "link/AT.h"

namespace tessarin {

class frmPhoneInfo : public Window {
 public:
  explicit frmPhoneInfo(TessarinMenu& session);

  Picture Image1{*this, "Image1"};
  Label Label1{*this, "Label1"};
  Label Label3{*this, "Label3"};
  Label Label5{*this, "Label5"};
  Label Label7{*this, "Label7"};
  Label LabManu{*this, "LabManu"};
  Label LabModel{*this, "LabModel"};
  Label LabFirmware{*this, "LabFirmware"};
  Label LabIMEI{*this, "LabIMEI"};
  Button Command1{*this, "Command1"};

  // Asks the phone. A query that fails costs ten seconds and leaves its label empty.
  void Ask(AT& phone);

 protected:
  void FormLoad() override;
  void FormUnload() override;

 private:
  TessarinMenu& session_;
};

// The model's name for people: from the table, or, for a model that is not in it, as the phone
// itself gives it.
Text AskModelName(AT& phone, TextView modelCode);

}  // namespace tessarin
