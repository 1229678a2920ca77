#pragma once

// A page's side of the computer: the folder tree, read as it is opened, and the files of the folder
// that is selected.

#include <filesystem>
#include <map>
#include <set>

#include "core/TessarinMenu.h"
#include "files/ListSort.h"
#include "files/MimeTypes.h"
#include "files/UserLocale.h"

namespace tessarin {

// What a node of the tree stands for.
struct cTVItemData {
  std::filesystem::path folder;
  bool isRead = false;  // whether its folders are nodes already
};

class ComputerPane {
 public:
  // All must outlive the pane.
  ComputerPane(TessarinMenu& session, TreeView& tree, ListView& list, MimeTypes& types);

  // Fills the tree, unless that was done before: from the root of the file system with the way down
  // to `folder`, or as far as that is there. Then lists the selected folder.
  void Open(const std::filesystem::path& folder);

  // Empty for a key that is none.
  std::filesystem::path folderPathOf(TextView node) const;
  void selectNode(const Text& node) { tree_.Select(node); }
  // Reads the node's folders when it is opened for the first time.
  void expandNode(const Text& node);
  // Fills the list anew from the selected folder, in the order that its head shows. A folder that
  // cannot be read says so in the list.
  void fillList();

  std::filesystem::path SelectedFolder() const { return folderPathOf(tree_.SelectedKey()); }
  // Of the selected names the one with the focus, else the first; empty when there is none.
  Text SelectedFile() const;
  std::vector<Text> SelectedFiles() const;
  // Whether the list has that name, upper and lower case being equal, or the folder has by now.
  bool Holds(TextView name) const;

  // The words for types are those of the present language.
  void ApplyTexts();

 private:
  void FillTree(const std::filesystem::path& folder);
  Text NewKey() { return ToText(++lastNode_) + u"Node"; }
  // The key of the node's child for that folder, which is made when it is hidden; empty when there
  // is no such folder.
  Text ChildFor(const Text& node, const std::filesystem::path& folder);
  ListRow RowOf(const std::filesystem::path& file);

  TessarinMenu& session_;
  TreeView& tree_;
  ListView& list_;
  MimeTypes& types_;
  UserLocale locale_;
  cLVHeaderSortIcons sorting_;
  std::map<Text, cTVItemData> items_;  // by the keys of the nodes
  int lastNode_ = 0;
};

// A file's size as the list shows it, in KB, rounded up to whole ones: "1,234KB".
Text ComputerSizeText(std::uint64_t bytes, const UserLocale& locale);

}  // namespace tessarin
