#include "files/FilePages.h"

#include "core/PageTable.h"

namespace tessarin {

FilePages::FilePages(TessarinMenu& session, const PhoneLink& link,
                     frmSplashTransmission& busyWindow, ToolStarter& starter, MidiPlayer& player)
    : session_(session), transfers_(session, link, busyWindow), tools_(session, starter) {
  const FilePage::Shared shared{session,
                                link,
                                busyWindow,
                                transfers_,
                                tools_,
                                types_,
                                [this](FilePage& page) { Opened(page); }};
  for (std::size_t index = 0; index < kFilePages.size(); ++index) {
    pages_.push_back(
        std::make_unique<FilePage>(shared, kFilePages[index], session.filePanes()[index]));
    session.AddPage(*pages_.back());
  }
  active_ = pages_.front().get();
  ringtone_ = std::make_unique<RingtonePreview>(session, link, busyWindow,
                                                Page(MediaKind::Ringtone).phone(), player);
  FilePage& pictures = Page(MediaKind::Logo);
  picture_ = std::make_unique<PicturePreview>(session, link, busyWindow, pictures.phone(), tools_);
  pictures.SetEditing({[this] { return picture_->CanEdit(); }, [this] { picture_->edit_Logo(); }});
  session.AddPart(*ringtone_);
  session.AddPart(*picture_);
  FillTables(busyWindow);
}

FilePage& FilePages::Page(MediaKind kind) {
  for (const auto& page : pages_) {
    if (page->kind() == kind) return *page;
  }
  return *pages_.front();
}

void FilePages::Opened(FilePage& page) {
  active_ = &page;
  if (page.kind() == MediaKind::Ringtone) ringtone_->Opened();
}

void FilePages::FillTables(frmSplashTransmission& busyWindow) {
  JobTable& jobs = session_.jobs();
  jobs.Set(job::kLoadFolder, [this] { active_->Load(worker::kFileLoading); });
  jobs.Set(job::kLoadSubfolder, [this] { active_->Load(worker::kSubfileLoading); });
  jobs.Set(job::kDownload, [this] {
    active_->Download();
    session_.SetCommandIdle();
  });
  jobs.Set(job::kUpload, [this] {
    active_->Upload();
    session_.SetCommandIdle();
  });
  busyWindow.workers().Set(worker::kFileLoading, [this] { active_->fileLoading(); });
  busyWindow.workers().Set(worker::kSubfileLoading, [this] { active_->subfileLoading(); });
  for (const auto& panes : session_.filePanes()) {
    if (panes.panel == kFilePanel) continue;  // has it already
    panes.computerList.contextMenuRequested.Always(
        [this] { session_.MainMenu.PopUp("mnuClickPC"); });
  }
}

}  // namespace tessarin
