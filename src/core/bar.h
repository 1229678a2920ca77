#pragma once

// The progress of reading the phonebook: one bar for the SIM, one for the phone memory.

#include "controls/Basics.h"
#include "controls/Window.h"
#include "core/Language.h"

namespace tessarin {

class bar : public Window {
 public:
  // The bars' full lengths.
  static constexpr int kSimLength = 500;
  static constexpr int kPhoneLength = 480;

  bar(WindowHost& host, const Language& language);

  Label Label1{*this, "Label1"};  // SIM
  Label Label2{*this, "Label2"};  // phone memory
  Label Label3{*this, "Label3"};  // what is done
  ProgressBar simBar{*this, "simBar"};
  ProgressBar phoneBar{*this, "phoneBar"};

 protected:
  void FormLoad() override;

 private:
  const Language& language_;
};

}  // namespace tessarin
