#pragma once

// One step of the scan: everything that is done with one COM port, up to a connected phone.

#include <string>

#include "core/PhoneLink.h"
#include "core/TessarinMenu.h"
#include "core/bar.h"
#include "core/frmSplashFindCOM.h"

namespace tessarin {

class PhoneConnection {
 public:
  // All must outlive this object.
  PhoneConnection(TessarinMenu& session, const PhoneLink& link, frmSplashFindCOM& splash);

  // Tests the port `scanPort`. A port without a phone moves the scan on, COM3 to COM256 and round
  // again; a phone is walked through the whole connection; a device that answers and is no phone of
  // the make, or a phone that cannot be prepared, ends the program with a message.
  void ScanStep();

 private:
  enum class Verdict { GoOn, NextPort, End };
  using Step = Verdict (PhoneConnection::*)();
  static const Step kSteps[];

  Verdict PortIsThere();
  Verdict NoPrinterOwnsIt();
  Verdict PhoneAnswers();
  Verdict MakeIsRight();
  Verdict NameTheModel();
  Verdict PrepareTheWindow();
  Verdict SetTheCharacterSet();
  Verdict ReadTheStorageRoots();
  Verdict AskAboutThePhonebook();
  Verdict LoadThePhonebook();
  Verdict StartWorking();

  // Shows the error and unloads the main window.
  Verdict Fail(int errorIndex);
  bool ReadRootListing(Text& xml);
  void FillStorageChoices();
  std::string PortName() const { return "COM" + std::to_string(session_.scanPort); }

  TessarinMenu& session_;
  PhoneLink link_;
  frmSplashFindCOM& splash_;
  bar bar_;
  Text modelCode_;
};

}  // namespace tessarin
