#include "Program.h"

#include "core/PageTable.h"
#include "core/SubMain.h"
#include "core/TextIndex.h"
#include "phonebook/NumberLookup.h"
#include "phonebook/frmAddGroup.h"

namespace tessarin {

Program::Program(WindowHost& host, const ProgramFolders& folders)
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
      filePage_(session_, link_, busyWindow_),
      phonebookLists_(files_),
      phonebookPage_(session_, link_, busyWindow_, phonebookLists_),
      messages_(com_),
      composer_(session_, messages_),
      smsPage_(session_, messages_, busyWindow_, composer_,
               [this](const Text& number) { return NameOfNumber(number); }) {
  host_.SetMainWindow(session_);
  session_.AddPart(phonebookLists_);
  session_.AddPart(help_);
  session_.SetHelp([this](int panel) { help_.Open(panel); });
  session_.AddPage(filePage_);
  session_.AddPage(phonebookPage_);
  session_.AddPage(smsPage_);
  composer_.SetPicker([this] { ChooseRecipients(); });
  for (int panel = 1; panel < kStartPanel; ++panel) {
    if (panel == kPhonebookPanel || panel == smsPage_.panel()) continue;
    plainPages_.push_back(std::make_unique<PlainPage>(session_, panel));
    session_.AddPage(*plainPages_.back());
  }
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

void Program::Start() {
  host_.RunEvent([this] { SubMain(session_, registry_); });
}

}  // namespace tessarin
