#pragma once

// The six pages of files and media, and what they share. One page at a time is the active one: the
// last that was opened, on which jobs and workers work.

#include <memory>
#include <vector>

#include "files/ExternalTools.h"
#include "files/FilePage.h"
#include "files/MidiPlayer.h"
#include "files/PicturePreview.h"
#include "files/RingtonePreview.h"
#include "files/Transfers.h"

namespace tessarin {

class FilePages {
 public:
  // Adds the pages to the session, and their jobs and workers to the tables. All must outlive this
  // object.
  FilePages(TessarinMenu& session, const PhoneLink& link, frmSplashTransmission& busyWindow,
            ToolStarter& starter, MidiPlayer& player);

  FilePage& Page(MediaKind kind);
  RingtonePreview& ringtone() { return *ringtone_; }

 private:
  void FillTables(frmSplashTransmission& busyWindow);
  void Opened(FilePage& page);

  TessarinMenu& session_;
  Transfers transfers_;
  ExternalTools tools_;
  MimeTypes types_;
  std::vector<std::unique_ptr<FilePage>> pages_;
  std::unique_ptr<RingtonePreview> ringtone_;
  std::unique_ptr<PicturePreview> picture_;
  FilePage* active_ = nullptr;
};

}  // namespace tessarin
