#include "core/frmHelp.h"

#include <array>

#include "codecs/Faults.h"
#include "controls/WindowHost.h"
#include "core/PageTable.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

struct HelpPage {
  const char* name;
  const char* image;
};

// The first ten belong to the panels of the main window.
constexpr std::array kHelpPages = std::to_array<HelpPage>({
    {"file.html", "page-file"},
    {"sms.html", "page-sms"},
    {"mms.html", "page-mms"},
    {"ringtone.html", "page-ringtone"},
    {"picture.html", "page-picture"},
    {"theme.html", "page-theme"},
    {"movie.html", "page-movie"},
    {"calendar.html", "page-calendar"},
    {"phonebook.html", "page-phonebook"},
    {"connect.html", "phone"},
    {"index.html", "home"},
    {"sync.html", "sync"},
});

std::string PathOf(std::string_view name) { return std::string("/").append(name); }

// The contents know a place by this key.
Text KeyOf(const HelpPlace& place) {
  return FromUtf8(place.anchor.empty() ? place.path : place.path + "#" + place.anchor);
}

std::string ImageOf(const HelpPlace& place) {
  for (const HelpPage& page : kHelpPages) {
    if (place.anchor.empty() && place.path == PathOf(page.name)) return page.image;
  }
  return {};
}

}  // namespace

frmHelp::frmHelp(WindowHost& host, const Language& language)
    : Window(host, "frmHelp"), language_(language) {
  cmdBack.image = "back";
  cmdForward.image = "next";
  cmdHome.image = "home";
  cmdSearch.image = "search";
  lvwFound.columns = {ListColumn{{}, 240}};
  ConnectButtons();
  ConnectPage();
}

void frmHelp::ConnectButtons() {
  cmdBack.clicked.Always([this] {
    history_.Back();
    ShowPresent();
  });
  cmdForward.clicked.Always([this] {
    history_.Forward();
    ShowPresent();
  });
  cmdHome.clicked.Always([this] { GoHome(); });
  cmdSearch.clicked.Always([this] { Search(); });
  txtSearch.edited.Always([this] {
    if (txtSearch.text->empty()) Search();
  });
}

void frmHelp::ConnectPage() {
  htmPage.reader = [this](const std::string& link) -> std::optional<std::string_view> {
    const auto place = FollowLink(htmPage.path(), link);
    return place && book_ ? book_->file.Read(place->path) : std::nullopt;
  };
  tvwContents.nodeClicked.Always([this] {
    const auto place = FollowLink("/", ToUtf8(tvwContents.SelectedKey()));
    if (place) GoTo(*place);
  });
  lvwFound.selectionChanged.Always([this] { ShowFound(); });
  lvwFound.activated.Always([this] { ShowFound(); });
  htmPage.linkClicked.Always([this](const std::string& link) {
    const auto place = FollowLink(htmPage.path(), link);
    if (place) GoTo(*place);
  });
}

void frmHelp::Open(int panel) {
  const bool known = panel >= 0 && panel <= kStartPanel;
  OpenPage(known ? kHelpPages[static_cast<std::size_t>(panel)].name : "");
}

void frmHelp::OpenPage(std::string_view name) {
  if (!OpenBook()) return;
  const HelpPlace place{PathOf(name), {}};
  if (book_->file.Read(place.path)) {
    GoTo(place);
  } else {
    GoHome();
  }
  tvwContents.Expand(tvwContents.SelectedKey());
  Show(Modality::Modeless);
}

bool frmHelp::OpenBook() {
  const std::filesystem::path& path = language_.helpFile();
  if (book_ && bookPath_ == path) return true;
  try {
    book_.emplace(path);
  } catch (const Fault&) {
    const Text& message = language_.getTSErrStr(text::error::kHelpFile);
    host().MessageBox(FillPlaceholders(message, {FromUtf8(path.string())}), MessageKind::Error);
    return false;
  }
  bookPath_ = path;
  FillContents();
  return true;
}

void frmHelp::ApplyTexts() {
  if (!IsLoaded()) return;
  if (!OpenBook()) {
    Unload();
    return;
  }
  ApplyCaptions();
  txtSearch.text = Text();
  Search();
  ShowPresent();
}

void frmHelp::FormLoad() {
  ApplyCaptions();
  txtSearch.text = Text();
  Search();
}

void frmHelp::FormUnload() {
  history_.Clear();
  tvwContents.Clear();
  lvwFound.Clear();
  book_.reset();
}

void frmHelp::ApplyCaptions() {
  const auto word = [this](int index) { return language_.getTSInterfaceStr(index); };
  cmdBack.caption = word(words::kHelpBack);
  cmdForward.caption = word(words::kHelpForward);
  cmdHome.toolTip = book_->file.Title(book_->file.home());
  cmdHome.accessibleName = cmdHome.toolTip();
  cmdSearch.caption = word(words::kHelpSearch);
  txtSearch.toolTip = word(words::kHelpSearchHint);
  txtSearch.accessibleName = word(words::kHelpSearchHint);
  tvwContents.accessibleName = word(words::kHelpContents);
  lvwFound.accessibleName = word(words::kHelpSearch);
  htmPage.accessibleName = word(words::kNameHelpPage);
}

void frmHelp::FillContents() {
  tvwContents.Clear();
  std::vector<Text> parents;  // the key of the last entry of each level
  for (const HelpEntry& entry : book_->file.contents()) {
    const auto level = static_cast<std::size_t>(entry.level);
    parents.resize(level);
    const Text parent = parents.empty() ? Text() : parents.back();
    const Text key =
        entry.place.path.empty() ? u"#" + ToText(tvwContents.Count()) : KeyOf(entry.place);
    AddEntry(entry, parent, key);
    parents.push_back(key);
  }
}

void frmHelp::AddEntry(const HelpEntry& entry, const Text& parent, const Text& key) {
  const std::string image = ImageOf(entry.place);
  tvwContents.Add(parent, key, entry.title, image, image);
}

// The best page is shown at once. An empty question brings the contents back.
void frmHelp::Search() {
  const auto wanted = SearchWords(txtSearch.text());
  if (!book_ || wanted.empty()) {
    ShowList(false, language_.getTSInterfaceStr(words::kHelpContents));
    return;
  }
  const auto hits = book_->search.Find(wanted);
  std::vector<ListRow> rows;
  for (const HelpHit& hit : hits) {
    ListRow row;
    row.key = hit.path;
    row.cells = {hit.title + u"\n" + hit.snippet};
    row.image = ImageOf({hit.path, {}});
    rows.push_back(std::move(row));
  }
  lvwFound.Fill(std::move(rows));
  lvwFound.emptyText = language_.Filled(words::kHelpNothingFound, {txtSearch.text});
  const auto count = static_cast<long long>(hits.size());
  ShowList(true, language_.Filled(words::kHelpFound, {ToText(count)}));
  if (hits.empty()) return;
  lvwFound.SetCurrent(0);
  ShowFound();
}

void frmHelp::ShowList(bool found, const Text& heading) {
  lblList.text = heading;
  lvwFound.visible = found;
  tvwContents.visible = !found;
}

void frmHelp::ShowFound() {
  if (lvwFound.Current() < 0) return;
  const HelpPlace place{lvwFound.Row(lvwFound.Current()).key, {}};
  GoTo(place);
  if (htmPage.path() == place.path) htmPage.marks = SearchWords(txtSearch.text());
}

void frmHelp::GoTo(const HelpPlace& place) {
  if (ShowPlace(place)) history_.Add(place);
  ShowButtons();
}

void frmHelp::GoHome() { GoTo({book_->file.home(), {}}); }

// A place that the file does not hold leaves the page that is shown.
bool frmHelp::ShowPlace(const HelpPlace& place) {
  const auto html = book_ ? book_->file.Read(place.path) : std::nullopt;
  if (!html) return false;
  htmPage.marks = {};
  htmPage.ShowPage(place.path, std::string(*html), place.anchor);
  lblTitle.text = book_->file.Title(place.path);
  caption = lblTitle.text() + u" - " + language_.getTSInterfaceStr(words::kHelpTitle);
  SelectInContents(place);
  return true;
}

// A place that has no entry of its own belongs to that of its page.
void frmHelp::SelectInContents(const HelpPlace& place) {
  const TreeNode* node = tvwContents.Find(KeyOf(place));
  const Text key = node != nullptr ? node->key : KeyOf({place.path, {}});
  if (node != nullptr && node->parent != nullptr) tvwContents.Expand(node->parent->key);
  if (tvwContents.SelectedKey() != key) tvwContents.Select(key);
}

void frmHelp::ShowPresent() {
  if (!ShowPlace(history_.Present())) GoHome();
  ShowButtons();
}

void frmHelp::ShowButtons() {
  cmdBack.enabled = history_.CanGoBack();
  cmdForward.enabled = history_.CanGoForward();
}

}  // namespace tessarin
