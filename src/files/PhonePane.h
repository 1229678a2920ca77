#pragma once

// A page's side of the phone: the folders as a tree, the files of one folder as a list.

#include "core/PhoneLink.h"
#include "core/TessarinMenu.h"
#include "files/ListSort.h"
#include "files/PhoneFolder.h"

namespace tessarin {

class PhonePane {
 public:
  // All must outlive the pane.
  PhonePane(TessarinMenu& session, const PhoneLink& link, TreeView& tree, ListView& list);

  // Begins the tree anew with the folder of that key as its root, and lists it. When that fails the
  // tree stays empty, and the list says so.
  void fileLoading(const Text& startFolder);
  // Lists the selected node's folder. When that fails all stays as it is, and the folder that the
  // list shows is the selected one again, since files come from there and go there. False then.
  bool subfileLoading();
  // Looks below the tree's root for the first folder whose key holds `word`, in lower case, reading
  // folder after folder, each before its next sibling. Selects and lists it. The whole path counts,
  // and the first that fits is taken, whatever lies further down. When there is none the root is
  // listed again.
  void FindStartFolder(TextView word);

  // Nothing is known of the phone; the list says why, by an interface text.
  void Clear(int whyEmpty);
  // Nothing is shown of the phone but a single node that says something.
  void ShowNote(const Text& note);
  // An empty list says why it is empty, in the present language.
  void ApplyTexts() { SayWhyEmpty(whyEmpty_); }
  void SayWhyEmpty(int interfaceText);

  // The key of the folder that the list shows.
  const Text& currentFolder() const { return currentFolder_; }
  // Whether the tree shows a folder, so that a file can come from it or go there.
  bool StandsInAFolder() const { return isRead_; }
  // Whether the list shows another folder than the one that is selected: that one was chosen, and
  // is not read yet.
  bool IsBehind() const { return isRead_ && currentFolder_ != tree_.SelectedKey(); }
  // The whole name of the selected row, empty when there is none.
  Text SelectedName() const;
  // Null for none. A row may have the focus and not be selected.
  const ListRow* SelectedRow() const;
  // Whether the list has that name, upper and lower case being equal.
  bool Holds(TextView name) const;
  // InPhoneFolder, for the selected node.
  bool InFolder(const std::function<bool(const std::string& connectionId)>& work) const {
    return StandsInAFolder() && InPhoneFolder(link_, tree_.SelectedKey(), work);
  }

  TreeView& tree() { return tree_; }
  ListView& list() { return list_; }

 private:
  bool ReadFolder(const Text& key, Text& xml) const;
  // False, with a message, when the listing is no XML.
  bool ShowFolder(const Text& key, TextView xml);
  bool FindBelow(const Text& key, TextView word, int depth);
  void ColumnClicked(int column);

  TessarinMenu& session_;
  PhoneLink link_;
  TreeView& tree_;
  ListView& list_;
  cLVHeaderSortIcons sorting_;
  Text currentFolder_;
  bool isRead_ = false;
  int whyEmpty_;  // interface text that stands in the empty list
};

}  // namespace tessarin
