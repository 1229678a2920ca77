#include "files/PicturePreview.h"

#include "controls/WindowHost.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace {

bool CanBeShown(const ListRow& row) {
  const Text extension = ToLower(row.cells[2]);
  return extension == u"gif" || extension == u"bmp" || extension == u"jpg";
}

}  // namespace

PicturePreview::PicturePreview(TessarinMenu& session, const PhoneLink& link,
                               frmSplashTransmission& busyWindow, PhonePane& pane,
                               ExternalTools& tools)
    : session_(session), link_(link), busyWindow_(busyWindow), pane_(pane), tools_(tools) {
  pane_.list().released.Always([this](ListAct act) { RowChosen(act); });
  session_.Check1.clicked.Always([this] { Check1_Click(); });
  session_.jobs().Set(job::kPicturePreview, [this] { Preview(); });
  session_.jobs().Set(job::kPictureEdit, [this] { PreviewAndEdit(); });
  busyWindow_.workers().Set(worker::kPicturePreview, [this] { imagePreview(); });
}

void PicturePreview::Offer(bool edit) {
  canEdit_ = edit;
  session_.UpdateActions();
}

void PicturePreview::Check1_Click() {
  session_.previewLogo.visible = session_.Check1.checked;
  if (!session_.Check1.checked) return;
  session_.previewLogo.content = Bytes();
  loaded_.clear();
}

void PicturePreview::RowChosen(ListAct act) {
  const ListRow* row = pane_.SelectedRow();
  if (row == nullptr) return;
  const bool canBeShown = CanBeShown(*row);
  const bool chosen = act == ListAct::LeftButton || act == ListAct::ArrowKey;
  if (act == ListAct::RightButton || (chosen && !session_.Check1.checked)) {
    Offer(canBeShown);
  } else if (chosen && canBeShown) {
    pane_.list().enabled = false;
    session_.commandState = job::kPicturePreview;
  } else if (chosen) {
    Offer(false);
    session_.previewLogo.content = Bytes();
    loaded_.clear();
    session_.ShowError(text::error::kNoPreview);
  }
}

void PicturePreview::Load() {
  loaded_.clear();
  busyWindow_.PhoneToPc(worker::kPicturePreview,
                        session_.language().getTSInterfaceStr(text::interface_::kWorkPicture));
  busyWindow_.Work();
}

// A picture that the phone does not give leaves the preview as it is.
void PicturePreview::imagePreview() {
  const Text name = pane_.SelectedName();
  Bytes picture;
  if (name.empty()) return;
  const bool got = pane_.InFolder([&](const std::string& connectionId) {
    return link_.files.GetFileBytes(connectionId, name, picture);
  });
  if (!got) return;
  session_.previewLogo.content = std::move(picture);
  loaded_ = Selected();
}

void PicturePreview::Preview() {
  Load();
  pane_.list().enabled = true;
  pane_.list().SetFocus();
  session_.SetCommandIdle();
  Offer(true);
}

// The preview may still show another picture than the one that is selected now.
void PicturePreview::edit_Logo() {
  if (session_.Check1.checked && loaded_ == Selected()) {
    HandToEditor();
  } else {
    session_.commandState = job::kPictureEdit;
  }
}

void PicturePreview::PreviewAndEdit() {
  Load();
  session_.SetCommandIdle();
  if (!loaded_.empty()) HandToEditor();
}

// Of several selected rows the one nearest the top is meant.
void PicturePreview::HandToEditor() {
  const ListView& list = pane_.list();
  int chosen = -1;
  for (int row = list.Count() - 1; row >= 0; --row) {
    if (list.Row(row).selected) chosen = row;
  }
  if (chosen < 0) return;
  tools_.OpenPictureDesk().ShowImage(WholeName(list.Row(chosen)), session_.previewLogo.content);
  session_.MainMenu.Enable("edit_Logo", false);
}

void PicturePreview::PhoneLost() {
  canEdit_ = false;
  loaded_.clear();
  session_.previewLogo.content = Bytes();
}

}  // namespace tessarin
