#include "phonebook/CopyDialogs.h"

#include <algorithm>

#include "controls/WindowHost.h"

namespace tessarin {

CopyDialogs::CopyDialogs(TessarinMenu& session, PhonebookLists& lists, PhoneMemories& memories)
    : session_(session), lists_(lists), memories_(memories) {}

void CopyDialogs::Open(const Text& name, const std::vector<ContactLine>& numbers) {
  std::erase_if(closed_, [](const auto& dialog) { return !dialog->IsLoaded(); });
  auto dialog = std::make_unique<frmCopyToSIM>(session_, lists_, memories_);
  frmCopyToSIM& made = *dialog;
  made.SetContact(name, numbers);
  made.closed.Always([this, &made] { Closed(made); });
  made.copied.Always([this] { copied(); });
  open_.push_back(std::move(dialog));
  made.Show(Modality::Modeless);
  EnableMostRecent();
}

void CopyDialogs::Closed(const frmCopyToSIM& dialog) {
  const auto place = std::find_if(open_.begin(), open_.end(),
                                  [&](const auto& open) { return open.get() == &dialog; });
  if (place == open_.end()) return;
  closed_.push_back(std::move(*place));
  open_.erase(place);
  EnableMostRecent();
  if (session_.IsLoaded()) session_.Show(Modality::Modeless);  // it comes forward
}

void CopyDialogs::EnableMostRecent() {
  for (const auto& dialog : open_) {
    const bool isMostRecent = dialog == open_.back();
    dialog->List1.enabled = isMostRecent;
    dialog->Command1.enabled = isMostRecent;
  }
}

void CopyDialogs::CopyPhoneToSIM() {
  if (simCopyCount() > 0) open_[simCopyCount() - 1]->CopyContactToSIM();
}

}  // namespace tessarin
