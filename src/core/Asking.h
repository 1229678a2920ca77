#pragma once

// The question at the end of connecting: read the phonebook now, or not.

#include "controls/Basics.h"
#include "controls/Window.h"
#include "core/Language.h"
#include "core/Session.h"

namespace tessarin {

class Asking : public Window {
 public:
  // The answer goes into `session`'s phonebookLoadChoice: 1 yes, 2 no. Who closes the window by its
  // frame wants it out of the way, and has said no.
  Asking(WindowHost& host, const Language& language, Session& session);

  Picture Image1{*this, "Image1"};
  Label Label1{*this, "Label1"};
  Button Command1{*this, "Command1"};  // read it
  Button Command2{*this, "Command2"};  // not now

 protected:
  void FormLoad() override;

 private:
  const Language& language_;
  Session& session_;
};

}  // namespace tessarin
