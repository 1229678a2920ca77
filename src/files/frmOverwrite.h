#pragma once

// The question before a contact takes the place of another: both are shown side by side.

#include "controls/Basics.h"
#include "controls/Window.h"
#include "core/Language.h"

namespace tessarin {

// Values of the caller's overwrite mode. It goes on with the record for the first two.
namespace overwrite {
inline constexpr std::int16_t kYes = 1;
inline constexpr std::int16_t kYesToAll = 2;
inline constexpr std::int16_t kNo = 3;
inline constexpr std::int16_t kNoToAll = 4;
}  // namespace overwrite

class frmOverwrite : public Window {
 public:
  // The answer goes into `mode`: 2, 3 or 4; the plain yes leaves it as it stands. A window that is
  // closed without an answer is a no.
  frmOverwrite(WindowHost& host, const Language& language, std::int16_t& mode);

  Label Label1{*this, "Label1"};  // over the record that would be replaced
  Label Label2{*this, "Label2"};  // over the record that would take its place
  // 0: the record that would take the place, 1: the one that would be replaced.
  Label lblOverwrite[2] = {{*this, "lblOverwrite0"}, {*this, "lblOverwrite1"}};
  CheckBox chkAddNew{*this, "chkAddNew"};
  Button cmdYes{*this, "cmdYes"};
  Button cmdYesToAll{*this, "cmdYesToAll"};
  Button cmdNo{*this, "cmdNo"};
  Button cmdNoToAll{*this, "cmdNoToAll"};

  // Whether the record is to be added as a new one and replace nothing. False each time the window
  // opens.
  bool addAsNew() const { return chkAddNew.checked; }

 protected:
  void FormLoad() override;
  void FormUnload() override;

 private:
  void Leave();

  const Language& language_;
  std::int16_t& mode_;
  bool answered_ = false;
};

}  // namespace tessarin
