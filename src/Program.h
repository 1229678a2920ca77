#pragma once

// Everything below the windows, made once and joined: the half of the program that needs no
// toolkit. The desktop program and the end-to-end tests stand on it alike.

#include <filesystem>

#include "calendar/CalendarLists.h"
#include "calendar/CalendarPage.h"
#include "codecs/ATMessages.h"
#include "codecs/modDate.h"
#include "codecs/modFile.h"
#include "controls/WindowHost.h"
#include "core/Language.h"
#include "core/PhoneLink.h"
#include "core/Supervisor.h"
#include "core/TessarinMenu.h"
#include "core/frmHelp.h"
#include "core/regAPI.h"
#include "files/FilePages.h"
#include "files/FluidPlayer.h"
#include "files/ToolStarter.h"
#include "files/frmSplashTransmission.h"
#include "link/PortMap.h"
#include "link/PosixPort.h"
#include "messages/SmsPage.h"
#include "messages/frmComposeSMS.h"
#include "phonebook/PhonebookLists.h"
#include "phonebook/PhonebookPage.h"

#include "outlook/VdirOutlook.h"
#include "outlook/frmCalendarSync.h"
#include "outlook/frmPhonebookSync.h"

namespace tessarin {

struct ProgramFolders {
  std::filesystem::path application;  // the user's data
  std::filesystem::path shipped;      // language files and drawings that came with the program
  std::filesystem::path registryFile;
  std::filesystem::path devices = "/dev";
  std::filesystem::path program = {};  // where the program itself lies, and perhaps tools beside it
};

class Program {
 public:
  // `host` must outlive the program, and so must `player`. Without a player the program has one of
  // its own.
  Program(WindowHost& host, const ProgramFolders& folders, MidiPlayer* player = nullptr);

  // Shows the main window; from then on its timers do the rest.
  void Start();

  TessarinMenu& session() { return session_; }
  Supervisor& supervisor() { return supervisor_; }
  frmHelp& help() { return help_; }
  FilePages& filePages() { return filePages_; }
  PhonebookPage& phonebookPage() { return phonebookPage_; }
  frmSplashTransmission& busyWindow() { return busyWindow_; }
  PhonebookLists& phonebookLists() { return phonebookLists_; }
  CalendarPage& calendarPage() { return calendarPage_; }
  frmPhonebookSync& phonebookSync() { return phonebookSync_; }
  frmCalendarSync& calendarSync() { return calendarSync_; }
  CalendarLists& calendarLists() { return calendarLists_; }
  SmsPage& smsPage() { return smsPage_; }
  frmComposeSMS& composer() { return composer_; }
  const PhoneLink& link() const { return link_; }

 private:
  void ChooseRecipients();
  Text NameOfNumber(const Text& number) const;
  void TellDamaged(const Text& names);

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
  FluidPlayer player_;
  ProcessStarter tools_;
  FilePages filePages_;
  PhonebookLists phonebookLists_;
  PhonebookPage phonebookPage_;
  CalendarLists calendarLists_;
  CalendarPage calendarPage_;
  ATMessages messages_;
  frmComposeSMS composer_;
  SmsPage smsPage_;
  outlook::VdirOutlook outlook_;
  frmPhonebookSync phonebookSync_;
  frmCalendarSync calendarSync_;
};

}  // namespace tessarin
