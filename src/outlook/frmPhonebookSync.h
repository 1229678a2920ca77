#pragma once

// The contacts synchronisation: two panes that each show one of three places, the phone, the
// system's own book and Outlook, and the ways between them.

#include <array>
#include <functional>
#include <memory>

#include "controls/ItemList.h"
#include "controls/Menu.h"
#include "controls/Toolbar.h"
#include "outlook/ContactSync.h"
#include "outlook/SyncDialog.h"
#include "phonebook/PhonebookLists.h"

namespace tessarin {

class frmPhonebookSync : public SyncDialog, public SessionPart {
 public:
  // All must outlive the window. Puts its job and its worker into the tables.
  struct Needs {
    TessarinMenu& session;
    frmSplashTransmission& busyWindow;
    PhonebookLists& lists;
    outlook::Automation& automation;
    std::function<Text(clsT610Contact& contact, char16_t kind, int mode, bool& written)>
        writeToPhone;
    // Whether both memories of the phone were read in this connection.
    std::function<bool()> phoneIsRead;
    // Opens the contact editor on the contact of `tscContacts` at that position, modally.
    std::function<void(int position)> editRecord;
    // The window is gone; contacts may have changed.
    std::function<void()> closed;
  };
  explicit frmPhonebookSync(Needs needs);

  Toolbar Toolbar1{*this, "Toolbar1"};
  Menu mnuRClick{*this, "mnuRClick"};
  Label lblChoose{*this, "lblChoose"};
  std::array<ComboBox, 2> cboLocation{{{*this, "cboLocation(0)"}, {*this, "cboLocation(1)"}}};

  bool syncDialogOpen() const { return syncDialogOpen_; }

  // While no phone is there nothing can be run. One that is found again has another list, which is
  // empty until its memories are read.
  void PhoneLost() override;
  void PhoneFound() override { ShowPlacesAgain(); }
  bool LoadWhileConnecting(bar& bars) override;

 protected:
  void FormLoad() override;
  void FormUnload() override;
  bool MayRun() const override;
  void Run() override { PhonebookSync(); }
  bool AskTwoWay() override;
  void SetTwoWay(bool twoWay) override { engine_.twoWay = twoWay; }
  void ColumnClicked(int pane, int column) override;

 private:
  enum Place { kPhone, kTessarin, kOutlook, kNoPlace };

  void ConnectControls();
  void ApplyWords();
  void FillRightPlaces();
  void PlaceChosen(int pane);
  void Fill(int pane);
  void ShowPlacesAgain();
  Place PlaceOf(int pane) const;
  bool TakesPart(Place place) const { return PlaceOf(0) == place || PlaceOf(1) == place; }
  bool LacksPhone() const { return TakesPart(kPhone) && !needs_.phoneIsRead(); }
  bool LacksOutlook() const { return TakesPart(kOutlook) && outlookContacts_->LoadFailed(); }
  void EnablePlaces(bool enabled);
  void EnableBookActions(int pane);

  void PhonebookSync();
  void SaveLists();
  // False when a fault ended it.
  bool SyncOneWay(int sourcePane, int destinationPane);
  void RunEngine(Place source, Place destination, const ListView& pane);

  void AskOverwrite(const Text& replaced, const Text& replacing);

  void ToolbarClicked(const std::string& key);
  void mnuEditRecord();
  void mnuDeleteRecord();
  void DeleteRow(const ListRow& row);

  clsT610ContactList& ListAt(Place place) const;

  Needs needs_;
  ContactSync engine_;
  frmOverwrite overwrite_;
  std::unique_ptr<clsOutContactList> outlookContacts_;
  std::array<Text, 3> locationNames_;
  bool syncDialogOpen_ = false;
  int activePane_ = 0;
};

}  // namespace tessarin
