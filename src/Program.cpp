#include "Program.h"

#include "core/SubMain.h"
#include "core/TextIndex.h"
#include "phonebook/NumberLookup.h"
#include "phonebook/frmAddGroup.h"

namespace tessarin {

Program::Program(WindowHost& host, const ProgramFolders& folders, MidiPlayer* player)
    : host_(host),
      files_(folders.application, folders.shipped),
      registry_(folders.registryFile),
      language_(files_),
      portMap_(folders.application / "ports", folders.devices),
      port_(portMap_, [this] { host_.YieldToScreen(); }),
      com_(port_, portMap_),
      at_(com_),
      obex_(com_),
      fileService_(com_,
                   [this](FileService::Failure failure) {
                     session_.ShowError(failure == FileService::Failure::Get
                                            ? text::error::kReceiveFile
                                            : text::error::kSendFile);
                   }),
      irmc_(com_),
      link_{port_, port_, com_, at_, obex_, fileService_, irmc_},
      session_({host, files_, registry_, language_, clock_, port_}),
      help_(host, language_),
      busyWindow_(session_),
      supervisor_(session_, link_),
      tools_({folders.program, files_.Path(u"\\Tools")}),
      filePages_(session_, link_, busyWindow_, tools_, player == nullptr ? player_ : *player),
      phonebookLists_(files_),
      phonebookPage_(session_, link_, busyWindow_, phonebookLists_),
      calendarLists_(files_, language_, clock_),
      calendarPage_(session_, link_, busyWindow_, calendarLists_),
      messages_(com_),
      composer_(session_, messages_),
      smsPage_(session_, port_, messages_, busyWindow_, composer_,
               [this](const Text& number) { return NameOfNumber(number); }),
      outlook_(files_, clock_, [this](const Text& names) { TellDamaged(names); }),
      phonebookSync_({session_, busyWindow_, phonebookLists_, outlook_,
                      [this](clsT610Contact& contact, char16_t kind, int mode, bool& written) {
                        auto& memories = phonebookPage_.memories();
                        return memories.WriteContactToMobile(contact, kind, mode, &written);
                      },
                      [this] { return phonebookPage_.IsRead(); },
                      [this](int position) { phonebookPage_.editor().OpenRecord(position); },
                      [this] { phonebookPage_.ShowAgain(); }}),
      calendarSync_({session_, busyWindow_, calendarLists_, outlook_,
                     [this](clsT610Appoint& entry, bool& written) {
                       return clsT610AppointList::WriteAppointToMobile(entry, session_, link_,
                                                                       &written);
                     }}) {
  host_.SetMainWindow(session_);
  session_.AddPart(phonebookLists_);
  session_.AddPart(calendarLists_);
  phonebookPage_.SetSync([this] { phonebookSync_.Open(); });
  calendarPage_.SetSync([this] { calendarSync_.Open(); });
  session_.AddPart(help_);
  session_.SetHelp([this](int panel) { help_.Open(panel); });
  session_.AddPage(phonebookPage_);
  session_.AddPart(phonebookSync_);  // behind its page, which tells it what is read
  session_.AddPage(calendarPage_);
  session_.AddPart(calendarSync_);
  session_.AddPage(smsPage_);
  composer_.SetPicker([this] { ChooseRecipients(); });
}

// The composer stands below the phonebook, so the way up leads through here.
void Program::ChooseRecipients() {
  const clsT610ContactList none;
  const auto& contacts = phonebookLists_.phoneContacts;
  frmAddGroup window(host_, language_, contacts == nullptr ? none : *contacts, composer_.Text1);
  window.Show(Modality::Modal);
}

Text Program::NameOfNumber(const Text& number) const {
  const auto& contacts = phonebookLists_.phoneContacts;
  return contacts == nullptr ? Text() : NameOf(*contacts, number);
}

void Program::TellDamaged(const Text& names) {
  host_.MessageBox(FillPlaceholders(language_.getTSErrStr(text::error::kDamagedItem), {names}),
                   MessageKind::Error);
}

void Program::Start() {
  host_.RunEvent([this] { SubMain(session_, registry_); });
}

}  // namespace tessarin
