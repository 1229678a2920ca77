#pragma once

// A page that shows files of the phone beside files of the computer, and moves them.

#include <functional>
#include <optional>

#include "core/Page.h"
#include "files/ComputerPane.h"
#include "files/ExternalTools.h"
#include "files/FilePageTable.h"
#include "files/PhonePane.h"
#include "files/Transfers.h"

namespace tessarin {

class FilePage : public Page {
 public:
  // What the six pages share.
  struct Shared {
    TessarinMenu& session;
    PhoneLink link;
    frmSplashTransmission& busyWindow;
    Transfers& transfers;
    ExternalTools& tools;
    MimeTypes& types;
    std::function<void(FilePage&)> opened;  // the page's panes are the active ones from now on
  };

  // All must outlive the page.
  FilePage(const Shared& shared, const FilePageRow& row, const FilePanes& panes);

  int panel() const override { return panes_.panel; }
  void Show() override;
  bool CanDo(std::string_view action) const override;
  std::string_view DeletionIn(const Control& control) const override;
  void Do(std::string_view action) override;
  void PhoneFound() override;
  void PhoneLost() override;
  void ApplyTexts() override;

  // Jobs and workers on the active panes.
  void Load(std::int16_t workerCode);
  void fileLoading();
  void subfileLoading();
  void Download();
  void Upload();

  // Shows the upload arrow if the file selected on the computer may go to this phone from here.
  void updateUploadArrows();

  MediaKind kind() const { return row_.kind; }
  PhonePane& phone() { return phone_; }
  ComputerPane& computer() { return computer_; }
  // What Edit does, on the page that can.
  struct Editing {
    std::function<bool()> can;
    std::function<void()> edit;
  };
  void SetEditing(Editing editing) { editing_ = std::move(editing); }

 private:
  bool PhoneIsThere() const { return shared_.session.statusPhase == kPhonePresent; }
  void ConnectControls();
  void ConnectDrops();

  void OpenStorage();
  void StorageChosen();
  void Refresh();
  void NodeClicked();
  Text StartFolder() const;
  void FindMmsFolder();
  void SearchTick();
  Text SearchWord() const;

  void PhoneRowReleased(ListAct act);
  void ComputerRowReleased(ListAct act);
  void DownloadClicked();
  void UploadClicked();
  void Drop(const std::vector<std::filesystem::path>& files);
  void Send(const std::filesystem::path& file);
  bool MayReplace(const Text& name);
  bool ReadsFirst();
  void Defer(std::int32_t commandState);
  void EnableLists();
  void Say(int interfaceText) const;
  // In the status bar, how many entries of the phone the page shows.
  void ShowCount();
  void DeleteOnPhone();
  // Asks, and deletes the files that are selected.
  void DeleteOnComputer();

  Shared shared_;
  const FilePageRow& row_;
  const FilePanes& panes_;
  PhonePane phone_;
  ComputerPane computer_;
  Editing editing_;
  Text mmsRoot_;
  std::filesystem::path upload_;  // what the next upload sends, empty for nothing
  bool searchNeeded_ = false;
  bool searching_ = false;
};

}  // namespace tessarin
