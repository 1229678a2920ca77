#pragma once

// Seeing a picture of the phone without saving it, and handing it to the picture editor.

#include "files/ExternalTools.h"
#include "files/PhonePane.h"
#include "files/frmSplashTransmission.h"

namespace tessarin {

class PicturePreview : public SessionPart {
 public:
  // Puts its jobs and its worker into the tables. All must outlive this object.
  PicturePreview(TessarinMenu& session, const PhoneLink& link, frmSplashTransmission& busyWindow,
                 PhonePane& pane, ExternalTools& tools);

  // Whether the selected picture can be edited.
  bool CanEdit() const { return canEdit_ && pane_.SelectedRow() != nullptr; }
  void edit_Logo();

  void PhoneLost() override;

 private:
  void RowChosen(ListAct act);
  void Check1_Click();
  // Jobs.
  void Preview();
  void PreviewAndEdit();
  // Worker.
  void imagePreview();

  void Load();
  void HandToEditor();
  void Offer(bool edit);
  // The path on the phone of the selected picture.
  Text Selected() const { return pane_.tree().SelectedKey() + u"\\" + pane_.SelectedName(); }

  TessarinMenu& session_;
  PhoneLink link_;
  frmSplashTransmission& busyWindow_;
  PhonePane& pane_;
  ExternalTools& tools_;
  bool canEdit_ = false;
  Text loaded_;  // the path of the picture that the preview holds
};

}  // namespace tessarin
