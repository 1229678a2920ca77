#pragma once

// The help window: the contents and the search on the left, the page on the right.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "codecs/modFile.h"
#include "controls/Basics.h"
#include "controls/HtmlView.h"
#include "controls/ListView.h"
#include "controls/TreeView.h"
#include "controls/Window.h"
#include "core/HelpFile.h"
#include "core/HelpPlace.h"
#include "core/HelpSearch.h"
#include "core/Language.h"
#include "core/Page.h"

namespace tessarin {

// Stays open beside the other windows. It takes part in the session only to follow the language.
class frmHelp : public Window, public SessionPart {
 public:
  // Both must outlive the window.
  frmHelp(WindowHost& host, const Language& language);

  Button cmdBack{*this, "cmdBack"};
  Button cmdForward{*this, "cmdForward"};
  Button cmdHome{*this, "cmdHome"};
  Label lblTitle{*this, "lblTitle"};  // of the page
  TextBox txtSearch{*this, "txtSearch"};
  Button cmdSearch{*this, "cmdSearch"};
  Label lblList{*this, "lblList"};  // what the list below is
  // One of the two is visible: the contents, or after a search what it found.
  TreeView tvwContents{*this, "tvwContents"};
  ListView lvwFound{*this, "lvwFound"};
  HtmlView htmPage{*this, "htmPage"};

  // Shows the page that belongs to a panel of the main window, 0 to 9, in the present language. A
  // window that is open already comes to the front with it. A help file that cannot be read gives a
  // message and no window.
  void Open(int panel);
  // The same for a page by its name, such as "sync.html".
  void OpenPage(std::string_view name);

  void ApplyTexts() override;

 protected:
  void FormLoad() override;
  void FormUnload() override;

 private:
  // An open help file. The search holds the text of all its pages.
  struct Book {
    explicit Book(const std::filesystem::path& path)
        : file(modFile::ReadWholeFile(path)), search(file) {}
    HelpFile file;
    HelpSearch search;
  };

  void ConnectButtons();
  void ConnectPage();
  bool OpenBook();
  void ApplyCaptions();
  void FillContents();
  void AddEntry(const HelpEntry& entry, const Text& parent, const Text& key);
  void Search();
  void ShowList(bool found, const Text& heading);
  void GoTo(const HelpPlace& place);
  void GoHome();
  bool ShowPlace(const HelpPlace& place);
  void SelectInContents(const HelpPlace& place);
  void ShowPresent();
  void ShowButtons();
  void ShowFound();

  const Language& language_;
  std::optional<Book> book_;
  std::filesystem::path bookPath_;
  HelpHistory history_;
};

}  // namespace tessarin
