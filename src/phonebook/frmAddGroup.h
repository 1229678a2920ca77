#pragma once

// The choice of recipients from the phonebook. A group is nothing but the text that it adds to the
// recipients of a message: "name<number>" for each, with ";" between them. A name that holds "<" or
// ";" goes in as it stands.

#include "controls/Basics.h"
#include "controls/ListView.h"
#include "controls/Window.h"
#include "core/Language.h"
#include "phonebook/clsT610ContactList.h"

namespace tessarin {

class frmAddGroup : public Window {
 public:
  // `host`, `language` and `recipients` must outlive the window. The choice is added to the text of
  // `recipients`. The window keeps the contacts for itself: while it is open a lost phone may come
  // back, and with it another list.
  frmAddGroup(WindowHost& host, const Language& language, const clsT610ContactList& contacts,
              TextBox& recipients);

  ListView ListView1{*this, "ListView1"};  // the contacts
  ListView ListView2{*this, "ListView2"};  // the recipients chosen
  ListView ListView3{*this, "ListView3"};  // the numbers of one contact, in the place of ListView1
  Button Command1{*this, "Command1"};      // OK
  Button Command2{*this, "Command2"};      // Cancel
  Button Command3{*this, "Command3"};      // add
  Button Command4{*this, "Command4"};      // remove
  Button Command5{*this, "Command5"};      // back to the contacts

 protected:
  void FormLoad() override;

 private:
  void ApplyTexts();
  void FillContacts();
  void ShowNumbers();
  void ShowContacts();
  void Add();
  void Remove();
  void Confirm();
  void EnableButtons();
  // A contact of the phone memory, whose numbers have to be opened first.
  bool IsClosed(const ListRow& row) const;
  // A number of the contact in ListView3.
  bool IsChosen(const Text& label, const Text& number) const;

  const Language& language_;
  const clsT610ContactList contacts_;
  TextBox& recipients_;
  Text contactShown_;            // the name of the contact in ListView3
  std::string contactShownKey_;  // and its row's key, which its numbers have among the chosen
};

}  // namespace tessarin
