#pragma once

// The File Explorer page: the phone's folders as a tree, the files of one folder as a list.

#include "core/Page.h"
#include "core/PhoneLink.h"
#include "core/TessarinMenu.h"
#include "files/frmSplashTransmission.h"

namespace tessarin {

class FilePage : public Page {
 public:
  // Puts its jobs and workers into the tables. All must outlive the page.
  FilePage(TessarinMenu& session, const PhoneLink& link, frmSplashTransmission& busyWindow);

  int panel() const override { return 0; }
  void Show() override;
  bool CanDo(std::string_view action) const override;
  void Do(std::string_view action) override;
  void PhoneFound() override;
  void PhoneLost() override;
  void ApplyTexts() override;

  // The key of the folder that the list shows: its path from the phone's root.
  const Text& currentFolder() const { return currentFolder_; }

 private:
  void Refresh();
  void NodeClicked();
  // Workers.
  void fileLoading();
  void subfileLoading();

  void Load(std::int16_t workerCode);
  // Lists the folder with that key over a session of its own. False when any step fails.
  bool ReadFolder(const Text& key, Text& xml);
  void SayWhyEmpty(int interfaceText);
  bool WalkTo(const std::string& connectionId, const Text& key);
  // False, with a message, when the listing is no XML.
  bool ShowFolder(const Text& key, TextView xml);

  TessarinMenu& session_;
  PhoneLink link_;
  frmSplashTransmission& busyWindow_;
  Text currentFolder_;
  int whyEmpty_;  // interface text that stands in the empty list
};

// A file's name as a row of a phone list: cell 0 the name without its last extension, cell 1 the
// size in bytes, cell 2 the extension without its point.
ListRow PhoneFileRow(const Text& name, const Text& size);

}  // namespace tessarin
