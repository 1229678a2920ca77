#include "files/PhonePane.h"

#include <algorithm>

#include "codecs/Faults.h"
#include "controls/WindowHost.h"
#include "core/TextIndex.h"
#include "files/FileImages.h"
#include "link/FolderListing.h"

namespace tessarin {

namespace words = text::interface_;

namespace {

constexpr int kSizeColumn = 1;
constexpr int kNoReason = -1;
// No phone of the make nests folders as deep; one that never ends is left there.
constexpr int kDeepest = 12;

}  // namespace

PhonePane::PhonePane(TessarinMenu& session, const PhoneLink& link, TreeView& tree, ListView& list)
    : session_(session),
      link_(link),
      tree_(tree),
      list_(list),
      sorting_(list),
      whyEmpty_(words::kPageNeedsPhone) {
  list_.columnClicked.Always([this](int column) { ColumnClicked(column); });
}

void PhonePane::ColumnClicked(int column) {
  if (column == kSizeColumn) {
    sortListByNumber(list_, column);
  } else {
    sorting_.SetHeaderIcons(column);
  }
}

void PhonePane::SayWhyEmpty(int interfaceText) {
  whyEmpty_ = interfaceText;
  // One of the reasons names what could not be read.
  list_.emptyText = interfaceText == kNoReason
                        ? Text()
                        : session_.language().Filled(interfaceText, {session_.phoneModel});
}

void PhonePane::Clear(int whyEmpty) {
  tree_.Clear();
  list_.Clear();
  isRead_ = false;
  currentFolder_.clear();
  SayWhyEmpty(whyEmpty);
}

void PhonePane::ShowNote(const Text& note) {
  Clear(kNoReason);
  tree_.Add(u"", note, note, "info", "info");
}

void PhonePane::fileLoading(const Text& startFolder) {
  Clear(whyEmpty_);
  tree_.enabled = false;
  // The tree is of use again however the reading ends.
  struct Enable {
    TreeView& tree;
    ~Enable() { tree.enabled = true; }
  } enable{tree_};
  Text xml;
  if (!ReadFolder(startFolder, xml)) {
    SayWhyEmpty(words::kFolderUnreadable);
    return;
  }
  tree_.Add(u"", startFolder, startFolder.empty() ? session_.phoneModel : startFolder,
            kClosedFolder, kOpenFolder);
  tree_.Select(startFolder);
  tree_.Expand(startFolder);
  if (!ShowFolder(startFolder, xml)) tree_.Clear();
}

bool PhonePane::subfileLoading() {
  const Text key = tree_.SelectedKey();
  Text xml;
  const bool read = ReadFolder(key, xml) && ShowFolder(key, xml);
  if (read) {
    tree_.Expand(key);
  } else {
    tree_.Select(currentFolder_);
  }
  return read;
}

bool PhonePane::ReadFolder(const Text& key, Text& xml) const {
  return InPhoneFolder(link_, key, [&](const std::string& connectionId) {
    return link_.files.GetFolderListing(connectionId, xml, kFolderListingType);
  });
}

// A listing that is no XML is the phone's fault and costs the user this folder, not the program.
bool PhonePane::ShowFolder(const Text& key, TextView xml) {
  FolderListing listing;
  try {
    listing = ParseFolderListing(xml);
  } catch (const DocumentError& fault) {
    session_.host().MessageBox(
        Replace(session_.language().getTSErrStr(text::error::kListingDamaged), u"###1",
                fault.Message()),
        MessageKind::Error);
    return false;
  }
  currentFolder_ = key;
  isRead_ = true;
  const Text prefix = key.empty() ? Text() : key + u"\\";
  std::vector<TreeView::Item> folders;
  for (const Text& folder : listing.folders) {
    if (folder.empty()) continue;  // a step to nowhere
    folders.push_back({Text(prefix).append(folder), folder, kClosedFolder, kOpenFolder});
  }
  tree_.FillChildren(key, std::move(folders));
  std::vector<ListRow> rows;
  for (const ListedFile& file : listing.files) rows.push_back(PhoneFileRow(file.name, file.size));
  SayWhyEmpty(words::kFolderEmpty);
  list_.Fill(std::move(rows));  // in the phone's own order, until the user sorts them
  if (list_.sortColumn == kSizeColumn) {
    KeepSortedByNumber(list_);
  } else {
    SortListByText(list_);
  }
  return true;
}

void PhonePane::FindStartFolder(TextView word) {
  if (tree_.roots().empty()) return;
  const Text root = tree_.roots().front()->key;
  if (FindBelow(root, word, 0)) return;
  tree_.Select(root);
  (void)subfileLoading();  // what is shown stays when even the root cannot be read any more
}

bool PhonePane::FindBelow(const Text& key, TextView word, int depth) {
  tree_.Select(key);
  if (depth > kDeepest || !subfileLoading()) return false;
  std::vector<Text> children;
  for (const auto& child : tree_.Find(key)->children) children.push_back(child->key);
  for (const Text& child : children) {
    if (ToLower(child).find(word) != Text::npos) {
      tree_.Select(child);
      (void)subfileLoading();  // found it is, whether or not it can be read
      return true;
    }
    if (FindBelow(child, word, depth + 1)) return true;
  }
  return false;
}

const ListRow* PhonePane::SelectedRow() const {
  if (list_.Current() < 0 || !list_.Row(list_.Current()).selected) return nullptr;
  return &list_.Row(list_.Current());
}

Text PhonePane::SelectedName() const {
  const ListRow* row = SelectedRow();
  return row == nullptr ? Text() : WholeName(*row);
}

bool PhonePane::Holds(TextView name) const {
  const Text wanted = ToLower(name);
  return std::any_of(list_.rows().begin(), list_.rows().end(),
                     [&](const ListRow& row) { return ToLower(WholeName(row)) == wanted; });
}

}  // namespace tessarin
