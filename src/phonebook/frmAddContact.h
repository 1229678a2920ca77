#pragma once

// The contact editor: a new contact for the phone, one on the phone, or one of the system's own
// book.

#include <array>
#include <utility>
#include <vector>

#include "controls/Basics.h"
#include "controls/OptionButton.h"
#include "controls/Window.h"
#include "core/TessarinMenu.h"
#include "phonebook/PhoneMemories.h"
#include "phonebook/PhonebookLists.h"

namespace tessarin {

class frmAddContact : public Window {
 public:
  // Puts its job into the table. All must outlive the window.
  frmAddContact(TessarinMenu& session, PhonebookLists& lists, PhoneMemories& memories);

  Label lblSaveIn{*this, "lblSaveIn"};
  OptionButton Option1{*this, "Option1"};  // on the SIM
  OptionButton Option2{*this, "Option2"};  // in phone memory
  Label Label1{*this, "Label1"};           // name
  TextBox Text1{*this, "Text1"};
  Label lblNumbers{*this, "lblNumbers"};
  std::array<Label, 5> NumberLabels{{{*this, "Label3"},
                                     {*this, "Label4"},
                                     {*this, "Label5"},
                                     {*this, "Label6"},
                                     {*this, "Label7"}}};
  // Home, work, mobile, fax, other.
  std::array<TextBox, 5> Text2{{{*this, "Text2(0)"},
                                {*this, "Text2(1)"},
                                {*this, "Text2(2)"},
                                {*this, "Text2(3)"},
                                {*this, "Text2(4)"}}};
  Label Label8{*this, "Label8"}, Label2{*this, "Label2"}, Label9{*this, "Label9"};  // e-mail 1 to 3
  TextBox Text3{*this, "Text3"}, Text6{*this, "Text6"}, Text4{*this, "Text4"};
  Label Label10{*this, "Label10"};  // company
  TextBox Text5{*this, "Text5"};
  Label Label11{*this, "Label11"};  // URL
  TextBox Text7{*this, "Text7"};

  // An address: street, city, state, zip, country.
  Label Frame1{*this, "Frame1"};  // home
  std::array<Label, 5> HomeLabels{{{*this, "Label14"},
                                   {*this, "Label15"},
                                   {*this, "Label16"},
                                   {*this, "Label17"},
                                   {*this, "Label18"}}};
  std::array<TextBox, 5> HomeAddress{{{*this, "Text8"},
                                      {*this, "Text9"},
                                      {*this, "Text10"},
                                      {*this, "Text11"},
                                      {*this, "Text12"}}};
  Label Frame2{*this, "Frame2"};  // work
  std::array<Label, 5> WorkLabels{{{*this, "Label19"},
                                   {*this, "Label20"},
                                   {*this, "Label21"},
                                   {*this, "Label22"},
                                   {*this, "Label23"}}};
  std::array<TextBox, 5> WorkAddress{{{*this, "Text13"},
                                      {*this, "Text14"},
                                      {*this, "Text15"},
                                      {*this, "Text16"},
                                      {*this, "Text17"}}};
  Button Command1{*this, "Command1"};  // OK
  Button Command2{*this, "Command2"};  // Cancel

  // Each shows the window modally. `kind` is the memory, "s" or "p".
  void OpenNew(char16_t kind);
  void OpenEdit(const clsT610Contact& contact, char16_t kind);
  // Edits the contact of `tscContacts` at that position. OK changes it at once; nothing goes to the
  // phone.
  void OpenRecord(int editIndex);
  // A phone was found while the window may stand open: what is being edited may be on another one.
  void PhoneFound() { isOtherConnection_ = true; }

  // The contact that was written to the phone stands in the mobile list, under this field 1.
  Signal<const Text&> written;

 protected:
  void FormLoad() override;

 private:
  using Row = std::pair<int, TextBox*>;  // a contact's field and its box

  std::vector<Row> Rows();
  std::vector<Control*> PartsOfPhone();
  void Prepare(int captionIndex, char16_t kind, bool choice);
  void Fill(const clsT610Contact* contact);
  void FillStreets();
  void ChooseMemory(bool onSim);
  void SetWidths(bool onSim);
  void LiftWidths();
  void ApplyWords();
  void SaveRecord();

  // The job. False when nothing was written; the form then stays open.
  void AddOrEditPhoneBook();
  // Whether the entry that is edited can be named and is still the one that was opened.
  bool CanBeWritten() const;
  bool IsStillOnSim();
  bool WriteToSim();
  bool WriteToPhone();
  bool Refuse(int errorIndex);
  bool NumberIsRefused(const Text& number);
  // The contact of the mobile list with that field 1, or a new one; field 2 is the present time.
  clsT610Contact& Record(const Text& oldId, const Text& newId);
  bool Finish(const Text& mobileId);

  TessarinMenu& session_;
  PhonebookLists& lists_;
  PhoneMemories& memories_;
  Text editID_;          // on the phone: location or LUID; empty for a new contact
  bool isEdit_ = false;  // of an entry on the phone
  clsT610Contact opened_;
  Text openedSerial_;  // of the phone that it is on
  bool isOtherConnection_ = false;
  int editIndex_ = 0;  // in `tscContacts`; 0 when the phone is written
  int captionIndex_ = 0;
};

}  // namespace tessarin
