#pragma once

// The copy dialogs that stand open, one for each contact to be copied to the SIM. They are answered
// from the most recent one back: only that can be worked.

#include <memory>
#include <vector>

#include "phonebook/frmCopyToSIM.h"

namespace tessarin {

class CopyDialogs {
 public:
  // All must outlive the dialogs.
  CopyDialogs(TessarinMenu& session, PhonebookLists& lists, PhoneMemories& memories);

  // Opens one more, in front of the others. Those of an earlier command that still stand stay
  // behind it.
  void Open(const Text& name, const std::vector<ContactLine>& numbers);
  // The worker, on the most recent dialog; does nothing when all were closed meanwhile.
  void CopyPhoneToSIM();
  // How many stand open.
  std::size_t simCopyCount() const { return open_.size(); }

  Signal<> copied;

 private:
  void Closed(const frmCopyToSIM& dialog);
  void EnableMostRecent();

  TessarinMenu& session_;
  PhonebookLists& lists_;
  PhoneMemories& memories_;
  std::vector<std::unique_ptr<frmCopyToSIM>> open_;
  // A dialog that is being closed is still in use; it goes when the next one opens.
  std::vector<std::unique_ptr<frmCopyToSIM>> closed_;
};

}  // namespace tessarin
