#pragma once

// The choice of the one number of a contact in phone memory that is copied to the SIM.

#include <functional>

#include "controls/Basics.h"
#include "controls/ItemList.h"
#include "controls/Window.h"
#include "core/TessarinMenu.h"
#include "phonebook/ContactTexts.h"
#include "phonebook/PhoneMemories.h"
#include "phonebook/PhonebookLists.h"

namespace tessarin {

class frmCopyToSIM : public Window {
 public:
  // All must outlive the window.
  frmCopyToSIM(TessarinMenu& session, PhonebookLists& lists, PhoneMemories& memories);

  Label Label1{*this, "Label1"};  // what to do
  Label Label2{*this, "Label2"};  // the contact's name
  ListBox List1{*this, "List1"};  // label, ":" and number
  Button Command1{*this, "Command1"};
  Button Command2{*this, "Command2"};

  void SetContact(const Text& name, const std::vector<ContactLine>& numbers);
  // The worker: writes the selected number to a free place of the SIM and adds it to the mobile
  // list. Of a number with a ":" only what stands before that is copied. On success the window is
  // closed, on failure it stays open. Each with its message.
  void CopyContactToSIM();

  Signal<> copied;  // the mobile list has one contact more
  Signal<> closed;

 protected:
  void FormLoad() override;
  void FormUnload() override { closed(); }

 private:
  bool Write(SIMPhoneBookRecord& record, Text& location);

  TessarinMenu& session_;
  PhonebookLists& lists_;
  PhoneMemories& memories_;
};

}  // namespace tessarin
