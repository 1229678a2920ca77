#include "files/FilePage.h"

#include "codecs/Faults.h"
#include "controls/WindowHost.h"
#include "core/TextIndex.h"
#include "link/FolderListing.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

constexpr char kClosed[] = "folder-closed";
constexpr char kOpen[] = "folder-open";

const char* ImageOf(const Text& extension) {
  static const std::map<Text, const char*> images = {
      {u"mid", "file-audio"}, {u"mp3", "file-audio"}, {u"amr", "file-audio"},
      {u"wav", "file-audio"}, {u"imy", "file-audio"}, {u"jpg", "file-image"},
      {u"gif", "file-image"}, {u"bmp", "file-image"}, {u"png", "file-image"},
      {u"3gp", "file-video"}, {u"mp4", "file-video"}, {u"txt", "file-text"},
      {u"vcf", "file-text"},  {u"vcs", "file-text"},
  };
  const auto image = images.find(ToLower(extension));
  return image == images.end() ? "file" : image->second;
}

}  // namespace

ListRow PhoneFileRow(const Text& name, const Text& size) {
  const auto point = name.rfind(u'.');
  const bool hasExtension = point != Text::npos;
  const Text extension = hasExtension ? name.substr(point + 1) : Text();
  ListRow row;
  row.cells = {hasExtension ? name.substr(0, point) : name, size, extension};
  row.image = ImageOf(extension);
  return row;
}

FilePage::FilePage(TessarinMenu& session, const PhoneLink& link, frmSplashTransmission& busyWindow)
    : session_(session), link_(link), busyWindow_(busyWindow), whyEmpty_(words::kPageNeedsPhone) {
  session_.jobs().Set(job::kLoadFolder, [this] { Load(worker::kFileLoading); });
  session_.jobs().Set(job::kLoadSubfolder, [this] { Load(worker::kSubfileLoading); });
  busyWindow_.workers().Set(worker::kFileLoading, [this] { fileLoading(); });
  busyWindow_.workers().Set(worker::kSubfileLoading, [this] { subfileLoading(); });
  // The computer's side is shown, and can be used once files are moved.
  for (Control* control : std::initializer_list<Control*>{
           &session_.tvwPCDir, &session_.lvwPCFile, &session_.icoDownload, &session_.icoUpload}) {
    control->enabled = false;
  }
  session_.ComFolder.enabled = false;
  session_.ComFolder.clicked.Always([this] { Refresh(); });
  session_.tvwPhoneDir.nodeClicked.Always([this] { NodeClicked(); });
}

// An empty list says why it is empty, in the present language.
void FilePage::ApplyTexts() { SayWhyEmpty(whyEmpty_); }

void FilePage::SayWhyEmpty(int interfaceText) {
  whyEmpty_ = interfaceText;
  // One of the reasons names what could not be read.
  session_.lvwPhoneFile.emptyText =
      session_.language().Filled(interfaceText, {session_.phoneModel});
}

// The first opening with a phone fills the choice of its top-level folders.
void FilePage::Show() {
  auto& box = session_.ComFolder;
  if (box.Count() == 0 && session_.comboStorage.Count() > 0) {
    for (int index = 0; index < session_.comboStorage.Count(); ++index) {
      box.Add(session_.comboStorage.Item(index));
    }
    box.Select(0);
    box.enabled = true;
  }
  Refresh();
}

bool FilePage::CanDo(std::string_view action) const {
  return action == "Refresh" && session_.statusPhase == kPhonePresent;
}

void FilePage::Do(std::string_view action) {
  if (action == "Refresh") Refresh();
}

void FilePage::Refresh() {
  if (session_.statusPhase == kPhonePresent) session_.commandState = job::kLoadFolder;
}

void FilePage::NodeClicked() {
  const auto* node = session_.tvwPhoneDir.Find(session_.tvwPhoneDir.SelectedKey());
  const bool isRoot = node != nullptr && node->parent == nullptr;
  session_.commandState = isRoot ? job::kLoadFolder : job::kLoadSubfolder;
}

void FilePage::PhoneFound() { SayWhyEmpty(words::kFolderEmpty); }

void FilePage::PhoneLost() {
  session_.tvwPhoneDir.Clear();
  session_.lvwPhoneFile.Clear();
  session_.ComFolder.enabled = false;
  SayWhyEmpty(words::kPageNeedsPhone);
  currentFolder_.clear();
}

void FilePage::Load(std::int16_t workerCode) {
  busyWindow_.PhoneToPc(workerCode, session_.language().getTSInterfaceStr(words::kWorkFolder));
  busyWindow_.Work();
  session_.SetCommandIdle();
}

void FilePage::fileLoading() {
  auto& tree = session_.tvwPhoneDir;
  tree.Clear();
  session_.lvwPhoneFile.Clear();
  tree.enabled = false;
  // The tree is of use again however the reading ends.
  struct Enable {
    TreeView& tree;
    ~Enable() { tree.enabled = true; }
  } enable{tree};
  const Text startFolder;  // this page shows the phone from its root
  Text xml;
  if (!ReadFolder(startFolder, xml)) {
    SayWhyEmpty(words::kFolderUnreadable);
    return;
  }
  tree.Add(u"", startFolder, session_.phoneModel, kClosed, kOpen);
  tree.Select(startFolder);
  tree.Expand(startFolder);
  if (!ShowFolder(startFolder, xml)) tree.Clear();
}

void FilePage::subfileLoading() {
  const Text key = session_.tvwPhoneDir.SelectedKey();
  Text xml;
  if (!ReadFolder(key, xml)) return;
  currentFolder_ = key;
  if (ShowFolder(key, xml)) session_.tvwPhoneDir.Expand(key);
}

bool FilePage::ReadFolder(const Text& key, Text& xml) {
  std::string connectionId;
  link_.obex.EndOBEXSession();
  const bool listed = link_.obex.ConnectFolderBrowsing(connectionId) &&
                      link_.obex.SetPathRoot(connectionId) && WalkTo(connectionId, key) &&
                      link_.files.GetFolderListing(connectionId, xml, kFolderListingType);
  link_.obex.EndOBEXSession();
  return listed;
}

bool FilePage::WalkTo(const std::string& connectionId, const Text& key) {
  for (const Text& part : Split(key, u"\\")) {
    if (!part.empty() && !link_.obex.SetPathDown(connectionId, part)) return false;
  }
  return true;
}

// A listing that is no XML is the phone's fault and costs the user this folder, not the program.
bool FilePage::ShowFolder(const Text& key, TextView xml) {
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
  const Text prefix = key.empty() ? Text() : key + u"\\";
  std::vector<TreeView::Item> folders;
  for (const Text& folder : listing.folders) {
    folders.push_back({Text(prefix).append(folder), folder, kClosed, kOpen});
  }
  session_.tvwPhoneDir.FillChildren(key, std::move(folders));
  std::vector<ListRow> rows;
  for (const ListedFile& file : listing.files) rows.push_back(PhoneFileRow(file.name, file.size));
  SayWhyEmpty(words::kFolderEmpty);
  session_.lvwPhoneFile.Fill(std::move(rows));
  return true;
}

}  // namespace tessarin
