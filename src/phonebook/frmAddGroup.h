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
  // All must outlive the window. The choice is added to the text of `recipients`.
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
  bool IsChosen(const Text& name, const Text& number) const;

  const Language& language_;
  const clsT610ContactList& contacts_;
  TextBox& recipients_;
  Text contactShown_;  // the name of the contact in ListView3
};

}  // namespace tessarin
