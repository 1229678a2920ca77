#pragma once

// The Phonebook page: a tree of the phone's two memories, the contacts of the selected one, and the
// details of the selected contact.

#include <functional>

#include "core/Page.h"
#include "core/PageTable.h"
#include "core/PhoneLink.h"
#include "core/TessarinMenu.h"
#include "core/bar.h"
#include "files/frmSplashTransmission.h"
#include "phonebook/CopyDialogs.h"
#include "phonebook/PhoneMemories.h"
#include "phonebook/PhonebookLists.h"
#include "phonebook/PhonebookReader.h"
#include "phonebook/frmAddContact.h"

namespace tessarin {

class PhonebookPage : public Page {
 public:
  // Puts its jobs and workers into the tables. All must outlive the page.
  PhonebookPage(TessarinMenu& session, const PhoneLink& link, frmSplashTransmission& busyWindow,
                PhonebookLists& lists);

  int panel() const override { return kPhonebookPanel; }
  void Show() override;
  bool CanDo(std::string_view action) const override;
  std::string_view DeletionIn(const Control& control) const override {
    return &control == &session_.lvwPhonePhonebook ? "Delete" : std::string_view();
  }
  void Do(std::string_view action) override;
  void PhoneFound() override;
  // ReadAllPhonebooks: the SIM, then phone memory, which is shown.
  bool LoadWhileConnecting(bar& bars) override;
  void PhoneLost() override;
  void ApplyTexts() override;

  // What the action "Sync" opens; without it the action is not offered.
  void SetSync(std::function<void()> sync) { sync_ = std::move(sync); }
  // Both memories were read in this connection, and all of them.
  bool IsRead() const { return SIMLoaded_ && PMLoaded_ && reader_.PhoneIsWhole(); }
  // Shows the selected memory anew, after contacts of the mobile list were changed elsewhere.
  void ShowAgain();

  PhoneMemories& memories() { return memories_; }
  frmAddContact& editor() { return editor_; }
  const CopyDialogs& copyDialogs() const { return copyDialogs_; }

 private:
  // The memory of the selected node, "s" or "p"; 0 when none is selected.
  char16_t Kind() const;
  bool IsLoaded(char16_t kind) const;
  void AddNodes();
  void NodeClicked();

  // Jobs.
  void RefreshPhonebook();
  void DeleteSelectedContacts();
  void CopyToSim();
  // Workers.
  void SIMPhonebookLoading() { Load(PhoneMemories::kSim); }
  void PMPhonebookLoading() { Load(PhoneMemories::kPhone); }
  void DeleteContacts();

  void Load(char16_t kind);
  bool Read(char16_t kind, bar& bars);
  // Without contacts while the phone is at work; the list says what goes on `meanwhile`.
  void EmptyList(const Text& meanwhile);
  void SetLoading(bool loading);
  void ShowPhonebookList(char16_t kind);
  void ColumnClicked(int column);
  void SelectionChanged();
  void ShowContactDetails();
  void UpdateStatus();
  void EditSelectedContact();
  void SaveContacts();
  void OpenCopyDialogs();
  // Shows the selected memory anew and selects that contact in it.
  void ShowWritten(const Text& mobileId);

  // Positions in the mobile list of the selected rows, from the first row on.
  std::vector<int> SelectedPositions() const;

  TessarinMenu& session_;
  frmSplashTransmission& busyWindow_;
  PhonebookLists& lists_;
  PhonebookReader reader_;
  PhoneMemories memories_;
  frmAddContact editor_;
  CopyDialogs copyDialogs_;
  bar bars_;
  RichText rtbPhonebookBuffer_;  // what Save writes
  std::function<void()> sync_;
  bool SIMLoaded_ = false;  // read in this connection
  bool PMLoaded_ = false;
  bool loading_ = false;
  std::vector<int> toDelete_;  // positions, for the worker
  bool allDeleted_ = false;
};

}  // namespace tessarin
