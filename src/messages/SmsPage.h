#pragma once

// The SMS page: the messages of both stores in four folders by status, one of them read in the
// pane, saved, deleted, answered.

#include <functional>

#include "codecs/ATMessages.h"
#include "codecs/RichText.h"
#include "core/Page.h"
#include "core/TessarinMenu.h"
#include "files/ListSort.h"
#include "files/frmSplashTransmission.h"
#include "messages/Mailbox.h"
#include "messages/frmComposeSMS.h"

namespace tessarin {

// The name that the phonebook has for a number, as the phone writes it in a message; empty for a
// number that it does not know.
using NameOfNumber = std::function<Text(const Text& number)>;

class SmsPage : public Page {
 public:
  // Puts its jobs and its worker into the tables. All must outlive the page.
  SmsPage(TessarinMenu& session, linkport& port, ATMessages& messages,
          frmSplashTransmission& busyWindow, frmComposeSMS& composer, NameOfNumber nameOf);

  int panel() const override { return 1; }
  void Show() override;
  bool CanDo(std::string_view action) const override;
  std::string_view DeletionIn(const Control& control) const override {
    return &control == &session_.lvwPhoneSMS ? "Delete" : std::string_view();
  }
  void Do(std::string_view action) override;
  void PhoneLost() override;
  void ApplyTexts() override;

  const Mailbox& mailbox() const { return mailbox_; }
  // The joined text of the row that was shown last.
  const Text& currentMessageText() const { return currentMessageText_; }
  // The document of the last save.
  const RichText& rtbSMSBuffer() const { return rtbSMSBuffer_; }

 private:
  // Jobs. Each begins by dropping what the phone still had to say to the battery's question, which
  // would be taken for the answer to the first command.
  void Load();
  void Send();
  void DeleteConfirmed();
  // The worker of the busy window.
  void smsLoading();

  void refresh_SMS();
  void delete_SMS();
  void SaveSelected();
  void Compose(const Text& recipients, const Text& text);

  bool LoadStore(TextView store, std::vector<SMSMessage>& records);
  void FillTree();
  // Lists the folder that the tree has selected.
  void FillList();
  // The row that the pane shows: the current one if it is selected, else the first that is; -1 when
  // none is.
  int RowToShow() const;
  void ShowRow();
  void ShowNothing();
  // Sorts by sender or text as text, by the time as a date; other columns keep the order.
  void SortBy(int column);
  // The three lines of the pane and of the file, with `lineEnd` between them.
  Text Lines(const ReadMessage& message, TextView lineEnd) const;
  Text SenderTip(const Text& sender) const;

  TessarinMenu& session_;
  linkport& port_;
  ATMessages& messages_;
  frmSplashTransmission& busyWindow_;
  frmComposeSMS& composer_;
  NameOfNumber nameOf_;
  Mailbox mailbox_;
  cLVHeaderSortIcons sortIcons_;
  Text folder_;  // the key of the tree's node that was chosen last
  bool isLoaded_ = false;
  bool isRowShown_ = false;
  Text shownSender_;
  Text currentMessageText_;
  // The rows that the user agreed to delete: the job comes up to a second later, when others may be
  // selected.
  std::vector<std::string> keysToDelete_;
  RichText rtbSMSBuffer_;
};

}  // namespace tessarin
