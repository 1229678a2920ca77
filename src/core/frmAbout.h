#pragma once

// What the program is.

#include "controls/Basics.h"
#include "controls/Window.h"
#include "core/Language.h"

namespace tessarin {

class frmAbout : public Window {
 public:
  frmAbout(WindowHost& host, const Language& language);

  Picture Image1{*this, "Image1"};
  Label lblTitle{*this, "lblTitle"};
  Label lblVersion{*this, "lblVersion"};
  Label lblPurpose{*this, "lblPurpose"};
  Label lblLicense{*this, "lblLicense"};
  Button cmdOK{*this, "cmdOK"};

  // The title, the button and the words from the language in force.
  void setLanguage();

 protected:
  void FormLoad() override;

 private:
  const Language& language_;
};

}  // namespace tessarin
