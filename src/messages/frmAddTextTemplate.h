#pragma once

// The editor of one template.

#include "controls/Basics.h"
#include "controls/Window.h"
#include "core/Language.h"

namespace tessarin {

class frmAddTextTemplate : public Window {
 public:
  // The text of a template that was left by OK goes into `result`; by Cancel nothing does. All must
  // outlive the window.
  frmAddTextTemplate(WindowHost& host, const Language& language, Text& result);

  Label Label1{*this, "Label1"};
  TextBox Text1{*this, "Text1"};
  Button Command1{*this, "Command1"};  // OK
  Button Command2{*this, "Command2"};  // Cancel

  // Sets the window up before it is shown: for a new template when `text` is empty.
  void initializeForm(const Text& text);

 private:
  const Language& language_;
};

}  // namespace tessarin
