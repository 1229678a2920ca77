#pragma once

// Everything below the windows, made once and joined: the half of the program that needs no
// toolkit. The desktop program and the end-to-end tests stand on it alike.

#include <filesystem>
#include <memory>
#include <vector>

#include "codecs/ATMessages.h"
#include "codecs/modDate.h"
#include "codecs/modFile.h"
#include "controls/WindowHost.h"
#include "core/Language.h"
#include "core/PhoneLink.h"
#include "core/PlainPage.h"
#include "core/Supervisor.h"
#include "core/TessarinMenu.h"
#include "core/frmHelp.h"
#include "core/regAPI.h"
#include "files/FilePage.h"
#include "files/frmSplashTransmission.h"
#include "link/PortMap.h"
#include "link/PosixPort.h"
#include "messages/SmsPage.h"
#include "messages/frmComposeSMS.h"
#include "phonebook/PhonebookLists.h"
#include "phonebook/PhonebookPage.h"

namespace tessarin {

struct ProgramFolders {
  std::filesystem::path application;  // the user's data
  std::filesystem::path shipped;      // language files and drawings that came with the program
  std::filesystem::path registryFile;
  std::filesystem::path devices = "/dev";
};

class Program {
 public:
  // `host` must outlive the program.
  Program(WindowHost& host, const ProgramFolders& folders);

  // Shows the main window; from then on its timers do the rest.
  void Start();

  TessarinMenu& session() { return session_; }
  Supervisor& supervisor() { return supervisor_; }
  frmHelp& help() { return help_; }
  FilePage& filePage() { return filePage_; }
  PhonebookPage& phonebookPage() { return phonebookPage_; }
  PhonebookLists& phonebookLists() { return phonebookLists_; }
  SmsPage& smsPage() { return smsPage_; }
  frmComposeSMS& composer() { return composer_; }
  const PhoneLink& link() const { return link_; }

 private:
  void ChooseRecipients();
  Text NameOfNumber(const Text& number) const;

  WindowHost& host_;
  modFile files_;
  regAPI registry_;
  Language language_;
  SystemClock clock_;
  PortMap portMap_;
  PosixPort port_;
  modComLib com_;
  AT at_;
  OBEX obex_;
  FileService fileService_;
  IrMC irmc_;
  PhoneLink link_;
  TessarinMenu session_;
  frmHelp help_;
  frmSplashTransmission busyWindow_;
  Supervisor supervisor_;
  FilePage filePage_;
  PhonebookLists phonebookLists_;
  PhonebookPage phonebookPage_;
  ATMessages messages_;
  frmComposeSMS composer_;
  SmsPage smsPage_;
  std::vector<std::unique_ptr<PlainPage>> plainPages_;
};

}  // namespace tessarin
