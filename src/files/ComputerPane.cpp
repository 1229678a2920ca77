#include "files/ComputerPane.h"

#include <sys/stat.h>

#include <algorithm>
#include <cmath>

#include "controls/WindowHost.h"
#include "core/TextIndex.h"
#include "files/FileImages.h"

namespace tessarin {

namespace fs = std::filesystem;

namespace {

Text NameOf(const fs::path& path) { return FromUtf8(path.filename().string()); }

bool IsFolder(const fs::directory_entry& entry) {
  std::error_code ignored;  // what cannot be asked is none
  return entry.is_directory(ignored);
}

// The visible folders in a folder, by name, upper and lower case being equal. Empty also when it
// cannot be read.
std::vector<fs::path> FoldersIn(const fs::path& folder) {
  std::error_code error;
  std::vector<std::pair<Text, fs::path>> found;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const Text name = NameOf(entry->path());
    if (!name.starts_with(u'.') && IsFolder(*entry)) found.emplace_back(ToLower(name), *entry);
  }
  std::sort(found.begin(), found.end());
  std::vector<fs::path> folders;
  folders.reserve(found.size());
  for (auto& [name, path] : found) folders.push_back(std::move(path));
  return folders;
}

TreeView::Item NodeOf(Text key, const fs::path& folder) {
  return {std::move(key), NameOf(folder), kClosedFolder, kOpenFolder, true};
}

}  // namespace

// 2^32 less 1, by which the high half counts, is what the sizes of this list always were reckoned
// with: a file beyond 4 GB shows a trifle too small.
Text ComputerSizeText(std::uint64_t bytes, const UserLocale& locale) {
  constexpr double kHighPart = 4294967295.0;
  const auto high = static_cast<double>(bytes >> 32);
  const auto low = static_cast<double>(bytes & 0xFFFFFFFF);
  const double kilobytes = std::ceil((high * kHighPart + low) / 1024);
  return locale.Grouped(static_cast<unsigned long long>(kilobytes)) + u"KB";
}

ComputerPane::ComputerPane(TessarinMenu& session, TreeView& tree, ListView& list, MimeTypes& types)
    : session_(session), tree_(tree), list_(list), types_(types), sorting_(list) {
  cLVHeaderSortIcons::SetPhoneHeaderIcons(list_, 0, true);
  list_.columnClicked.Always([this](int column) { sorting_.SetHeaderIcons(column); });
  tree_.nodeExpanded.Always([this](const Text& node) { expandNode(node); });
  tree_.nodeClicked.Always([this] { fillList(); });
}

void ComputerPane::Open(const fs::path& folder) {
  if (tree_.Count() == 0) FillTree(folder);
  fillList();
}

void ComputerPane::FillTree(const fs::path& folder) {
  fs::path reached = folder.root_path();
  Text node = NewKey();
  items_[node].folder = reached;
  tree_.Add(u"", node, FromUtf8(reached.string()), kClosedFolder, kOpenFolder);
  expandNode(node);
  for (const fs::path& step : folder.relative_path()) {
    const Text child = ChildFor(node, reached / step);
    if (child.empty()) break;
    reached /= step;
    node = child;
    expandNode(node);
  }
  selectNode(node);
}

// Hidden folders are left out of the tree, but for those that a page's own folder lies in.
Text ComputerPane::ChildFor(const Text& node, const fs::path& folder) {
  const TreeNode* parent = tree_.Find(node);
  for (const auto& child : parent->children) {
    if (folderPathOf(child->key) == folder) return child->key;
  }
  if (!modFile::FolderExists(folder)) return {};
  const Text key = NewKey();
  items_[key].folder = folder;
  tree_.Add(node, key, NameOf(folder), kClosedFolder, kOpenFolder);
  return key;
}

fs::path ComputerPane::folderPathOf(TextView node) const {
  const auto item = items_.find(Text(node));
  return item == items_.end() ? fs::path() : item->second.folder;
}

void ComputerPane::expandNode(const Text& node) {
  const auto item = items_.find(node);
  if (item == items_.end()) return;
  if (!item->second.isRead) {
    item->second.isRead = true;
    std::vector<TreeView::Item> children;
    for (const fs::path& folder : FoldersIn(item->second.folder)) {
      children.push_back(NodeOf(NewKey(), folder));
      items_[children.back().key].folder = folder;
    }
    if (children.empty()) tree_.SetMayHaveChildren(node, false);
    tree_.FillChildren(node, std::move(children));
  }
  tree_.Expand(node);
}

ListRow ComputerPane::RowOf(const fs::path& file) {
  ListRow row;
  const Text name = NameOf(file);
  const std::string& type = types_.Type(name);
  const auto language = static_cast<std::size_t>(session_.language().index());
  row.cells = {name, {}, types_.Words(type, name, kLanguages[language].isoCode), {}};
  row.image = ImageOfType(type);
  struct stat found {};
  if (::stat(file.c_str(), &found) == 0) {
    row.cells[1] = ComputerSizeText(static_cast<std::uint64_t>(found.st_size), locale_);
    row.cells[3] = locale_.DateAndTime(found.st_mtime);
  }
  return row;
}

void ComputerPane::fillList() {
  const fs::path folder = SelectedFolder();
  std::vector<ListRow> rows;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (!IsFolder(*entry)) rows.push_back(RowOf(entry->path()));
  }
  namespace words = text::interface_;
  list_.emptyText =
      error ? session_.language().Filled(words::kFolderUnreadable, {FromUtf8(folder.string())})
            : session_.language().getTSInterfaceStr(words::kFolderEmpty);
  // In the order of the folder, whatever that is, no two fills would be alike.
  std::sort(rows.begin(), rows.end(), [](const ListRow& left, const ListRow& right) {
    return left.cells[0] < right.cells[0];
  });
  list_.Fill(std::move(rows));
  SortListByText(list_);
  session_.host().YieldToScreen();
}

Text ComputerPane::SelectedFile() const {
  const int focus = list_.Current();
  if (focus >= 0 && list_.Row(focus).selected) return list_.Cell(focus, 0);
  const auto selected = SelectedFiles();
  return selected.empty() ? Text() : selected.front();
}

std::vector<Text> ComputerPane::SelectedFiles() const {
  std::vector<Text> names;
  for (const ListRow& row : list_.rows()) {
    if (row.selected) names.push_back(row.cells[0]);
  }
  return names;
}

bool ComputerPane::Holds(TextView name) const {
  const Text wanted = ToLower(name);
  const bool listed =
      std::any_of(list_.rows().begin(), list_.rows().end(),
                  [&](const ListRow& row) { return ToLower(row.cells[0]) == wanted; });
  return listed || modFile::FileExists(SelectedFolder() / ToUtf8(name));
}

void ComputerPane::ApplyTexts() {
  if (tree_.Count() > 0) fillList();
}

}  // namespace tessarin
